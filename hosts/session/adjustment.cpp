#include "hosts/session/adjustment.h"

#include "hosts/session/channel_info.h"

#include <algorithm>
#include <array>

namespace orvane {

namespace {

/// An adjustment code of the driver.
struct Kind {
    int Code;
    const char* Text;
    bool HasValue;
    bool HasState;
};

constexpr int presets = 106;

constexpr std::array<Kind, 7> kinds{{{101, "own adjustment 1", false, false},
                                     {102, "own adjustment 2", false, false},
                                     {103, "own adjustment 3", false, false},
                                     {104, "value", true, false},
                                     {105, "value with a state and its picture", true, true},
                                     {presets, "presets", false, true},
                                     {107, "value with a state", true, true}}};

const Kind* KindOf(int code) {
    const auto* kind = std::ranges::find(kinds, code, &Kind::Code);
    return kind != kinds.end() ? kind : nullptr;
}

} // namespace

AdjustmentInfo DescribeAdjustment(const DriverExports& driver, int channel) {
    AdjustmentInfo adjustment;
    adjustment.Code = driver.QuelReglagePour(channel);
    adjustment.Label = TextOf(driver.QuelLibelleReglagePour(channel));
    int number = 0;
    adjustment.StateText = TextOf(driver.QuelStatusPour(channel, &number));
    const Kind* kind = KindOf(adjustment.Code);
    if (kind != nullptr && kind->HasValue) {
        adjustment.Value = driver.QuelValeurReglagePour(channel);
    }
    if (!adjustment.StateText.empty()) {
        adjustment.State = number;
    } else if (kind != nullptr && kind->HasState) {
        adjustment.State = driver.QuelValeurStatusPour(channel);
    }
    return adjustment;
}

bool HasAdjustment(const AdjustmentInfo& adjustment) {
    return adjustment != AdjustmentInfo{};
}

bool HasPresets(const AdjustmentInfo& adjustment) {
    return adjustment.Code == presets;
}

std::string AdjustmentKind(const AdjustmentInfo& adjustment) {
    if (const Kind* kind = KindOf(adjustment.Code); kind != nullptr) {
        return kind->Text;
    }
    return adjustment.State ? "state" : "value"; // These have no code.
}

} // namespace orvane
