#pragma once

/// \file
/// How an operation refuses: nothing is looked at and nothing is written.

namespace orvane {

template <class... Arguments> void Ignore(const Arguments&... /*arguments*/) {}

} // namespace orvane

/// Defines an operation of the list that refuses each call. It is weak: one that the console has
/// itself takes its place.
#define ORVANE_REFUSE(result, name, parameters, arguments)                                         \
    __attribute__((weak)) result name parameters {                                                 \
        orvane::Ignore arguments;                                                                  \
        return result();                                                                           \
    }
