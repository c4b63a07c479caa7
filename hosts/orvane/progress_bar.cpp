#include "hosts/orvane/progress_bar.h"

#include "hosts/common/text_table.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <iostream>
#include <string>
#include <string_view>

namespace {

constexpr auto interval = std::chrono::milliseconds(100);
constexpr size_t widestBar = 40;

size_t TerminalColumns() {
    if (isatty(STDERR_FILENO) == 0) {
        return 0;
    }
    constexpr size_t usual = 80;
    winsize size{};
    return ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : usual;
}

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

ProgressBar::ProgressBar(size_t total) : Total(total), Columns(TerminalColumns()) {}

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
    std::string text = std::to_string(static_cast<int>(fraction * 100.0)) + " %  ";
    text += std::to_string(done) + " of " + std::to_string(Total) + " points";
    const size_t used = CharacterCount(text) + 4; // both ends, a blank, and no line wrap
    const size_t width = Columns > used ? std::min(Columns - used, widestBar) : 0;
    std::cerr << "\r▕" << Bar(fraction, width) << "▏ " << text << "\x1b[K" << std::flush;
}
