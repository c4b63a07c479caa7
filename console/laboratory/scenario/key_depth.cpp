#include "console/laboratory/scenario/key_depth.h"

namespace orvane::laboratory {

namespace {

constexpr unsigned mostKeyParts = 100;

struct Cursor {
    std::string_view Text;
    size_t At = 0;
    Place Where;

    [[nodiscard]] bool Ended() const {
        return At >= Text.size();
    }

    [[nodiscard]] char Now() const {
        return Text[At];
    }

    [[nodiscard]] bool Sees(std::string_view text) const {
        return Text.substr(At, text.size()) == text;
    }

    void Step(size_t bytes = 1) {
        for (; bytes > 0 && !Ended(); --bytes, ++At) {
            if (Now() == '\n') {
                Where = {Where.Line + 1, 1};
            } else if ((static_cast<unsigned char>(Now()) & 0xC0U) != 0x80U) { // Not within one.
                ++Where.Column;
            }
        }
    }
};

/// Goes behind a text in quotes; one that has no end takes all the rest.
void PassText(Cursor& cursor) {
    const char quote = cursor.Now();
    const std::string three(3, quote);
    const bool longText = cursor.Sees(three);
    const std::string_view end = std::string_view(three).substr(0, longText ? 3 : 1);
    cursor.Step(end.size());
    while (!cursor.Ended() && !cursor.Sees(end) && (longText || cursor.Now() != '\n')) {
        cursor.Step(quote == '"' && cursor.Now() == '\\' ? 2 : 1);
    }
    cursor.Step(end.size());
    while (longText && !cursor.Ended() && cursor.Now() == quote) { // Up to two belong to the text.
        cursor.Step();
    }
}

void PassComment(Cursor& cursor) {
    while (!cursor.Ended() && cursor.Now() != '\n') {
        cursor.Step();
    }
}

} // namespace

std::optional<SyntaxError> FindTooDeep(std::string_view toml) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    constexpr std::string_view separators = "\n,=[]{}";
    Cursor cursor{toml, toml.starts_with(byteOrderMark) ? byteOrderMark.size() : 0, {}};
    for (unsigned dots = 0; !cursor.Ended();) {
        const char now = cursor.Now();
        if (now == '"' || now == '\'') {
            PassText(cursor);
            continue;
        }
        if (now == '#') {
            PassComment(cursor);
            continue;
        }
        dots = separators.find(now) != std::string_view::npos ? 0 : dots + (now == '.');
        if (dots >= mostKeyParts) {
            return SyntaxError{cursor.Where, "a key has at most " + std::to_string(mostKeyParts) +
                                                 " parts with dots between them"};
        }
        cursor.Step();
    }
    return std::nullopt;
}

} // namespace orvane::laboratory
