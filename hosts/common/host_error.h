#pragma once

#include <stdexcept>
#include <string>

namespace orvane {

/// How the program ends when a command does not.
enum class ExitCode { Failure = 1, WrongArguments = 2, Interrupted = 130 };

/// Ends a command: one sentence for the user, and the exit code of the program.
struct HostError : std::runtime_error {
    explicit HostError(const std::string& sentence, ExitCode code = ExitCode::Failure)
        : std::runtime_error(sentence), Code(code) {}
    ExitCode Code;
};

/// A HostError about what stands on the command line.
inline HostError WrongArgument(const std::string& sentence) {
    return HostError(sentence, ExitCode::WrongArguments);
}

} // namespace orvane
