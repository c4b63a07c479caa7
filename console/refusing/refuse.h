#pragma once

/// \file
/// The default of an operation: it ignores its arguments, writes nothing and refuses.

namespace orvane {

template <class... Arguments> void Ignore(const Arguments&... /*arguments*/) {}

} // namespace orvane

/// Defines an operation of the list that refuses every call. It is a weak symbol: a definition in
/// the console replaces it.
#define ORVANE_REFUSE(result, name, parameters, arguments)                                         \
    __attribute__((weak)) result name parameters {                                                 \
        orvane::Ignore arguments;                                                                  \
        return result();                                                                           \
    }
