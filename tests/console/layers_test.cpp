// Layers in the stack: asked for at a start, they see every call on its way to the console.

#include "channel_exports.h"
#include "console/stack/layers.h"
#include "lifecycle_exports.h"

#include <gmock/gmock.h>

using namespace orvane;

namespace {

using testing::EndsWith;
using testing::StartsWith;

bool Wanted = false;
std::string Told;

/// Tells of each call and hands it on.
template <char Mark> struct TellingLayer {
    static inline const orvane::PortTable* Below = nullptr;

#define TELL(result, name, parameters, arguments)                                                  \
    static result name parameters {                                                                \
        Told += std::string(1, Mark) + #name + " ";                                                \
        return Below->name arguments;                                                              \
    }
    ORVANE_PORT_OPERATIONS(TELL)

#define ENTRY(result, name, parameters, arguments) &(name),
    static inline const orvane::PortTable Table{ORVANE_PORT_OPERATIONS(ENTRY)};

    static const orvane::PortTable& Over(const orvane::PortTable& below) {
        Below = &below;
        return Wanted ? Table : below;
    }
};

TEST(Layers, AreThereFromTheStartThatAsksForThemToTheOneThatDoesNot) {
    testing::internal::CaptureStderr();
    EXPECT_TRUE(OVOpen(ConsoleInterfaceId)) << "the console answers before any start";
    Wanted = true;
    ASSERT_TRUE(StartDll(0, "", "fr", 0));
    EXPECT_THAT(Told, StartsWith("2OVStartLibrary 1OVStartLibrary 2OVOpen 1OVOpen "));
    EXPECT_EQ(CombienDeCanauxEnEntree(), 2);
    EXPECT_GE(QuelValeurPour(1), 0.3);
    EXPECT_THAT(Told, EndsWith(" 2OVReadValue 1OVReadValue "));
    ShutdownConsole();
    EXPECT_THAT(Told, EndsWith(" 2ShutdownConsole 1ShutdownConsole "));
    Wanted = false;
    ASSERT_TRUE(StartDll(0, "", "fr", 0));
    EXPECT_THAT(Told, EndsWith(" 2OVRelease 1OVRelease ")) << "the last call before the start";
    testing::internal::GetCapturedStderr();
}

} // namespace

const orvane::PortTable& orvane::console_stack::Faults(const PortTable& below) {
    return TellingLayer<'1'>::Over(below);
}

const orvane::PortTable& orvane::console_stack::Recorder(const PortTable& below) {
    return TellingLayer<'2'>::Over(below);
}
