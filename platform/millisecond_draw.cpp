#include "platform/millisecond_draw.h"

#include <array>
#include <cstdlib>

namespace orvane {

uint32_t platform::ComputeDraw(uint32_t millisecond) {
    // srandom_r with 128 bytes of state is srand's generator, on private state.
    std::array<char, 128> state{};
    random_data generator{};
    initstate_r(millisecond, state.data(), state.size(), &generator);
    int32_t number = 0;
    random_r(&generator, &number);
    const uint32_t draw = static_cast<uint32_t>(number) % DrawSteps;
    LastDraw.store(uint64_t{millisecond} << 32U | (draw + 1), std::memory_order_relaxed);
    return draw;
}

} // namespace orvane
