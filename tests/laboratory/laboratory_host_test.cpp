#include "tests/hosts/orvane_fixture.h"

#include <nlohmann/json.hpp>

namespace {

using nlohmann::json;
using testing::HasSubstr;

class LaboratoryHost : public Orvane {
protected:
    LaboratoryHost() {
        setenv("ORVANE_CLOCK", "virtual", 1);
    }
};

TEST_F(LaboratoryHost, PlaysASignalDuringARun) {
    const std::string square = "acquire --channels 0 --points 400 --play 0:square:10:4 --json";
    const Result run = Run(square + " --scenario school --csv %/run.csv");
    EXPECT_EQ(Run("--scenario school " + square).Out, run.Out) << "the same each time";
    const json told = json::parse(run.Out);
    EXPECT_EQ(told["points"], 400);
    EXPECT_EQ(told["preTriggerPoints"], 0);
    EXPECT_EQ(told["end"], "full");
    EXPECT_EQ(told["periodSec"], 1e-3);
    const json& channel = told["channels"].at(0);
    EXPECT_EQ(channel["unit"], "V");
    EXPECT_NEAR(channel["min"], -2.0, 0.1);
    EXPECT_NEAR(channel["mean"], 0.0, 0.1);
    EXPECT_NEAR(channel["max"], 2.0, 0.1);
    EXPECT_EQ(Rows("run.csv").size(), 401U);
    Fails(2, "acquire --scenario school --channels 0",
          {"--play 0:square:10", "--play 0:saw:1:1", "--play 9:sine:1:1", "--play 0:sine:1:50",
           "--json --csv -"});
}

TEST_F(LaboratoryHost, AdjustsAChannel) {
    EXPECT_THAT(Run("adjust 2 --value 1 --scenario school").Out, HasSubstr("Value       1\n"));
    Fails(1, "adjust 0", {"", "--value 1"}, " --scenario school",
          HasSubstr("Channel 0 has no adjustment."));
    Fails(1, "read", {"--scenario %/none.toml"});
}

TEST_F(LaboratoryHost, PassesTheSelftest) {
    setenv("ORVANE_CLOCK", "real", 1);
    const Result run = Run("selftest --scenario radio");
    EXPECT_EQ(run.Code, 0) << run.Out;
}

} // namespace
