#include "hosts/common/host_error.h"
#include "hosts/panel/catalogue.h"
#include "hosts/panel/panel_frame.h"

#include <wx/app.h>

#include <CLI/CLI.hpp>

#include <clocale>
#include <cstdio>

namespace {

class PanelApplication : public wxApp {
public:
    explicit PanelApplication(DriverOptions options) : Options(std::move(options)) {}

    bool OnInit() override {
        SetAppName("orvane-panel");
        UseLanguage(Options.Language);
        return ShowPanel(Options);
    }

private:
    DriverOptions Options;
};

} // namespace

int main(int argc, char** argv) try {
    std::setlocale(LC_CTYPE, ""); // for the names of files
    DriverOptions options;
    options.Language = EnvironmentLanguage();
    CLI::App app("Shows an Orvane console at work in a window.", "orvane-panel");
    app.set_version_flag("--version", "orvane-panel " ORVANE_VERSION);
    app.add_option("--library", options.Library,
                   "The driver library; without it, the one of the build folder or of the system")
        ->type_name("PATH");
    app.add_option("--lang", options.Language,
                   "Language of the window, fr or en, and of the channel names")
        ->type_name("CODE")
        ->capture_default_str();
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& end) {
        return app.exit(end) == 0 ? 0 : static_cast<int>(ExitCode::WrongArguments);
    }
    // The toolkit deletes the application object when it ends.
    wxApp::SetInstance(new PanelApplication(options)); // NOLINT
    int none = 1; // The toolkit would take further arguments for its own.
    return wxEntry(none, argv);
} catch (const std::exception& error) {
    std::fprintf(stderr, "orvane-panel: %s\n", error.what());
    return static_cast<int>(ExitCode::Failure);
}
