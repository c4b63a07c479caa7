#include "hosts/orvane/terminal/progress_bar.h"

#include "hosts/orvane/terminal/standard_output.h"
#include "hosts/session/number_text.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <iostream>
#include <string>
#include <string_view>

namespace orvane {

namespace {

constexpr auto interval = std::chrono::milliseconds(100);
constexpr size_t widestBar = 40;

/// A bar filled to an eighth of a character.
std::string Bar(double fraction, size_t width) {
    constexpr std::array<std::string_view, 8> eighths{" ", "▏", "▎", "▍", "▌", "▋", "▊", "▉"};
    const auto filled = static_cast<size_t>(fraction * static_cast<double>(width * eighths.size()));
    std::string bar;
    for (size_t i = 0; i < width; ++i) {
        const size_t before = i * eighths.size();
        bar += filled >= before + eighths.size() ? "█"
               : filled > before                 ? eighths[filled - before]
                                                 : " ";
    }
    return bar;
}

} // namespace

ProgressBar::ProgressBar(size_t total)
    : Total(total), Columns(CanOverwrite(STDERR_FILENO) ? TerminalColumns(STDERR_FILENO) : 0) {}

ProgressBar::~ProgressBar() {
    if (Columns > 0) {
        std::cerr << "\r\x1b[K" << std::flush;
    }
}

void ProgressBar::Show(size_t done) {
    if (Columns == 0 || Clock::now() < Next) {
        return;
    }
    Next = Clock::now() + interval;
    const double fraction = static_cast<double>(done) / static_cast<double>(Total);
    const std::string percent = std::to_string(static_cast<int>(fraction * 100.0)) + " %";
    const std::string text =
        percent + "  " + std::to_string(done) + " of " + std::to_string(Total) + " points";
    const size_t used = CharacterCount(text) + 4; // both ends, a blank, and no line wrap
    std::cerr << '\r';
    if (Columns > used) {
        std::cerr << "▕" << Bar(fraction, std::min(Columns - used, widestBar)) << "▏ " << text;
    } else {
        std::cerr << percent;
    }
    std::cerr << "\x1b[K" << std::flush;
}

} // namespace orvane
