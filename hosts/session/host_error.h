#pragma once

#include <stdexcept>
#include <string>

namespace orvane {

/// Why something was not done.
enum class ErrorKind { Failure, WrongArguments, Interrupted, NoConsole };

/// Ends a command or an action: one sentence for the user.
struct HostError : std::runtime_error {
    explicit HostError(const std::string& sentence, ErrorKind kind = ErrorKind::Failure)
        : std::runtime_error(sentence), Kind(kind) {}
    ErrorKind Kind;
};

/// A HostError about the request of the user.
inline HostError WrongArgument(const std::string& sentence) {
    return HostError(sentence, ErrorKind::WrongArguments);
}

} // namespace orvane
