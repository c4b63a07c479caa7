// A console of model 12336 for hosts: while it is the pilot of its radio network, its pods 3 and 42
// are connected and answer.

#include "tests/support/scripted_console.h"

namespace {

bool HasMode(const char* mode) {
    return !Console.CallsOf(std::string("OVRadioSetMode") + mode).empty();
}

void FollowTheNetwork(const std::string& /*operation*/) {
    const bool runs = HasMode("(17)") && !HasMode("(19)");
    for (const uint8_t pod : {uint8_t{3}, uint8_t{42}}) {
        Console.RadioEvent(pod, RadioPod, runs);
    }
    Console.Fail("OVRadioPing", runs ? 0 : -1);
}

[[maybe_unused]] const bool IsSetUp = [] {
    Console.Model = 12336;
    Console.Memory.assign(32768, 0);
    Console.Memory[7175] = 1;
    Console.Memory[7178] = 20;
    Console.OnCall = FollowTheNetwork;
    return true;
}();

} // namespace
