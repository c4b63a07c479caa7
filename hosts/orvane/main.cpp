#include "hosts/orvane/command_line.h"
#include "hosts/orvane/terminal/console_messages.h"
#include "hosts/session/host_error.h"

#include <wx/init.h>

#include <csignal>
#include <iostream>
#include <new>

namespace orvane {

namespace {

/// The exit codes that the help lists.
int ExitCode(ErrorKind kind) {
    switch (kind) {
    case ErrorKind::WrongArguments:
        return 2;
    case ErrorKind::Interrupted:
        return 130; // 128 and the number of the signal, as shells have it
    case ErrorKind::NoConsole:
    case ErrorKind::Failure:
        break;
    }
    return 1;
}

int Complain(const std::string& sentence, ErrorKind kind) {
    std::cout.flush();
    std::cerr << "orvane: " << sentence << '\n';
    return ExitCode(kind);
}

int RunCommandLine(int argc, char** argv) {
    DriverOptions driver;
    CLI::App app("", "orvane");
    DescribeCommandLine(app, driver);
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& request) {
        app.exit(request); // --help and --version
    } catch (const CLI::Error& error) {
        throw WrongCommandLine(app, error);
    }
    return std::cout.flush() ? 0
                             : Complain("Standard output cannot be written.", ErrorKind::Failure);
}

int RunAndComplain(int argc, char** argv) {
    try {
        return RunCommandLine(argc, argv);
    } catch (const HostError& error) {
        return Complain(error.what(), error.Kind);
    } catch (const std::bad_alloc&) {
        return Complain("There is not enough memory.", ErrorKind::Failure);
    } catch (const std::exception& error) {
        return Complain(error.what(), ErrorKind::Failure);
    }
}

} // namespace

} // namespace orvane

using namespace orvane;

int main(int argc, char** argv) {
    // If the reader of our output closes it or a file exceeds its size limit, the write fails, and
    // the driver is still stopped.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    // An application object without GUI, so that the driver's messages don't block.
    const wxInitializer toolkit;
    if (!toolkit) {
        return Complain("The toolkit cannot be initialised.", ErrorKind::Failure);
    }
    ConsoleMessages messages;
    const int code = RunAndComplain(argc, argv);
    messages.Show();
    return code;
}
