// What the command line makes of runs whose samples a closed formula tells.

#include "tests/hosts/orvane_fixture.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <numbers>
#include <sstream>

namespace {

using nlohmann::json;
using namespace testing;

class LaboratoryRuns : public Orvane {
protected:
    LaboratoryRuns() {
        setenv("ORVANE_CLOCK", "virtual", 1);
        std::ofstream(Files / "bench.toml") << R"(scenario = 1
console = { model = 12368 }
[adapter.a]
reference = 482034
[[adapter.a.channel]]
name = "Pendule"
align = "run"
calibres = [[-4, 4], [0, 4]]
signal = [{ sin = [0.25, 2, 5] }]
)";
    }

    /// Time and value of each row.
    [[nodiscard]] std::vector<std::pair<double, double>> Samples(const char* csv) const {
        std::vector<std::pair<double, double>> samples;
        for (const std::string& row : Rows(csv)) {
            std::istringstream text(row);
            double time = 0.0;
            char comma = 0;
            double value = 0.0;
            if (text >> time >> comma >> value) {
                samples.emplace_back(time, value);
            }
        }
        return samples;
    }
    const std::string bench =
        "--scenario %/bench.toml acquire --points 400 --csv %/run.csv --json ";
};

TEST_F(LaboratoryRuns, BeginAtTheirTrigger) {
    const json told = json::parse(Run(bench + "--trigger 0:1:falling --pre").Out);
    EXPECT_EQ(told["preTriggerPoints"], 50);
    const auto samples = Samples("run.csv");
    ASSERT_EQ(samples.size(), 450U);
    // The level is crossed downwards at asin(0.375) before the half of a period of 200 ms, first
    // when the points before it are full: in the first period.
    const double crossing = 0.1 - std::asin(0.375) / (10.0 * std::numbers::pi);
    const double first = std::ceil(crossing * 1e3) * 1e-3;
    double mean = 0.0;
    for (size_t i = 0; i < samples.size(); ++i) {
        const double time = (static_cast<double>(i) - 50.0) * 1e-3;
        EXPECT_NEAR(samples[i].first, time, 1e-9);
        EXPECT_NEAR(samples[i].second,
                    0.25 + 2.0 * std::sin(10.0 * std::numbers::pi * (first + time)), 1e-6);
        mean += samples[i].second / 450.0;
    }
    EXPECT_NEAR(told["channels"][0]["mean"], mean, 1e-6);
}

TEST_F(LaboratoryRuns, KeepWithinTheCalibreThatTheyAreGiven) {
    const json told = json::parse(Run(bench + "--set 0:calibre=1,ampli=10,offset=-1").Out);
    EXPECT_EQ(told["channels"][0]["min"], -1.0) << "what is below 0 reads 0";
    EXPECT_NEAR(told["channels"][0]["max"], 21.5, 1e-4);
    std::ofstream(Files / "bench.toml", std::ios::app)
        << "[timeline]\n\"0\" = [{ fault = { operation = \"OVSelectCalibre\" } }]\n";
    Fails(1, bench, {"--set 0:calibre=1"}, "", HasSubstr("calibre"));
    EXPECT_THAT(FileNames(), Not(Contains("run.csv.tmp")));
}

} // namespace
