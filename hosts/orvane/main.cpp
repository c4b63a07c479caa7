#include "hosts/common/host_error.h"
#include "hosts/orvane/commands.h"

#include <wx/init.h>

#include <csignal>
#include <iostream>
#include <new>

namespace {

void DescribeProgram(CLI::App& app, DriverOptions& driver) {
    app.description("Measures with an Orvane console and drives it, through its driver library.");
    app.footer("Exit codes: 0 done, 1 failure, 2 wrong arguments, 130 interrupted run.");
    app.set_version_flag("--version", "orvane " ORVANE_VERSION);
    app.require_subcommand(1);
    app.fallthrough(); // The common options may stand behind the command too.
    app.add_option("--library", driver.Library,
                   "The driver library; without it, the one of the build folder or of the system")
        ->type_name("PATH");
    app.add_option("--lang", driver.Language, "Language of the channel names")
        ->type_name("CODE")
        ->capture_default_str();
    AddInfoCommand(app, driver);
    AddChannelsCommand(app, driver);
    AddReadCommand(app, driver);
    AddAcquireCommand(app, driver);
    AddSetCommand(app, driver);
    AddCalibrateCommand(app, driver);
    AddSignalCommand(app, driver);
    AddGatesCommand(app, driver);
    AddSpiroCommand(app, driver);
    AddRadioCommand(app, driver);
    AddRateCommand(app, driver);
    AddSelftestCommand(app, driver);
    AddCompleteCommand(app);
}

int Complain(const std::string& sentence, ExitCode code) {
    std::cout.flush();
    std::cerr << "orvane: " << sentence << '\n';
    return static_cast<int>(code);
}

std::string WrongCommandLine(const CLI::App& app, const CLI::Error& error) {
    const std::vector<std::string> unknown = app.remaining();
    const bool unknownCommand = app.get_subcommands().empty() && !unknown.empty();
    const std::string wrong =
        unknownCommand ? "There is no command " + unknown.front() : error.what();
    return wrong + " (orvane --help tells more).";
}

int RunCommandLine(int argc, char** argv) {
    DriverOptions driver;
    CLI::App app("", "orvane");
    DescribeProgram(app, driver);
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& wish) {
        app.exit(wish); // --help and --version
    } catch (const CLI::Error& error) {
        return Complain(WrongCommandLine(app, error), ExitCode::WrongArguments);
    }
    return std::cout.flush() ? 0
                             : Complain("Standard output cannot be written.", ExitCode::Failure);
}

} // namespace

int main(int argc, char** argv) {
    // A reader of our output that goes away, or a file that grows past its limit, must not keep the
    // driver from being stopped: the write fails instead.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    // An application object without GUI: the driver's messages go to standard error and wait for
    // nobody.
    const wxInitializer toolkit;
    if (!toolkit) {
        return Complain("The toolkit cannot be initialised.", ExitCode::Failure);
    }
    try {
        return RunCommandLine(argc, argv);
    } catch (const HostError& error) {
        return Complain(error.what(), error.Code);
    } catch (const std::bad_alloc&) {
        return Complain("There is not enough memory.", ExitCode::Failure);
    } catch (const std::exception& error) {
        return Complain(error.what(), ExitCode::Failure);
    }
}
