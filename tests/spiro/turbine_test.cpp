// The turbine is found among the channels, and a flow becomes a volume.

#include "channel_exports.h"
#include "lifecycle_exports.h"
#include "spiro/volume_step.h"
#include "spiro_exports.h"
#include "tests/support/scripted_console.h"

#include <gmock/gmock.h>

using namespace orvane;

namespace {

TEST(Turbine, IsTheLastInputOfItsReference) {
    int32_t index = 7;
    EXPECT_EQ(GetCodeAdaptSpiro(1), -1) << "no detection yet";
    EXPECT_EQ(SensTurbineSpiro(), 0);
    Console.Connectors[1] = Adapter("482034", {InputChannel("U", -12, 12)});
    StartDll(0, "", "fr", 0);
    EXPECT_EQ(DetecteTurbineSpiro(&index), 0);
    EXPECT_EQ(index, -1);
    EXPECT_EQ(GetCodeAdaptSpiro(1), 482034);

    const ScriptedAdapter turbine = Adapter("482109", {InputChannel("Flow", -20, 20)});
    Console.Plug(2, turbine);
    Console.Plug(4, turbine);
    EXPECT_EQ(DetecteTurbineSpiro(nullptr), 4);
    EXPECT_EQ(DetecteTurbineSpiro(&index), 4);
    EXPECT_EQ(index, 2);

    Console.Unplug(2);
    Console.Unplug(4);
    CombienDeCanauxEnEntree();
    EXPECT_EQ(GetCodeAdaptSpiro(1), 482034) << "the list is shorter than at the detection";
    EXPECT_EQ(GetCodeAdaptSpiro(4), -1);
    EXPECT_TRUE(LectureDonneesSpiro(nullptr));
}

TEST(Turbine, FlowBecomesVolumeOfItsDirection) {
    const auto fields = [](double flow, double us) {
        const tSpiroSample step = VolumeStep(flow, us);
        return std::array{step.VolumeNegatif, step.VolumePositif, step.Debit, step.DureeUs,
                          static_cast<double>(step.Sens)};
    };
    EXPECT_THAT(fields(2.0, 25000.0), testing::ElementsAre(0.0, 0.05, 2.0, 25000.0, 1));
    EXPECT_THAT(fields(-2.0, 25000.0), testing::ElementsAre(0.05, 0.0, 2.0, 25000.0, -1));
    EXPECT_THAT(fields(0.0, 25000.0), testing::ElementsAre(0.0, 0.0, 0.0, 25000.0, -1));
    EXPECT_THAT(fields(-2.0, 0.0), testing::ElementsAre(0.0, 0.0, 0.0, 0.0, -1));
}

} // namespace
