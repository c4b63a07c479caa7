#pragma once

/// \file
/// Answers as one text.

#include <sstream>
#include <string>

/// Several answers, such as "3 | V | 0.5 | ". They are evaluated in no particular order.
template <typename... Values> std::string Text(const Values&... values) {
    std::ostringstream text;
    (text << ... << (std::ostringstream() << values << " | ").str());
    return text.str();
}
