#include "hosts/panel/catalogue.h"
#include "hosts/panel/habits.h"
#include "hosts/panel/panel_frame.h"
#include "hosts/panel/panel_text.h"
#include "hosts/session/host_error.h"
#include "hosts/session/translation.h"

#include <wx/app.h>
#include <wx/log.h>

#include <CLI/CLI.hpp>

#include <clocale>
#include <cstdio>
#include <cstdlib>

namespace orvane {

namespace {

std::string NoDisplay() {
    const char* display = std::getenv("DISPLAY");
    return display == nullptr || *display == '\0'
               ? Translated("There is no display to open a window on: DISPLAY is not set.")
               : Translated("The display %s cannot be opened.", {display});
}

/// `failure` gets the reason if the window does not open.
class PanelApplication : public wxApp {
public:
    PanelApplication(DriverOptions options, bool languageGiven, std::string& failure)
        : Options(std::move(options)), LanguageGiven(languageGiven), Failure(failure) {
        SetAppName("orvane-panel");
    }

    bool Initialize(int& count, wxChar** arguments) override {
        UseTheme();
        // The toolkit would report a missing display in a box, which ends the program.
        const wxLogNull quiet;
        if (wxApp::Initialize(count, arguments)) {
            return true;
        }
        UseLanguage(Options.Language);
        Failure = NoDisplay();
        return false;
    }

    bool OnInit() override {
        UseHabits();
        if (!LanguageGiven) {
            Options.Language = Habit(habit_key::Language, FromUtf8(Options.Language)).utf8_string();
        }
        UseLanguage(Options.Language);
        auto* frame = new PanelFrame(Options); // NOLINT: the toolkit owns it
        SetTopWindow(frame);
        try {
            frame->Open(Options);
        } catch (const HostError& error) {
            if (error.Kind != ErrorKind::NoConsole) {
                Failure = error.what();
                return false;
            }
            frame->ChooseInstead(error.what());
        }
        frame->Show();
        return true;
    }

private:
    DriverOptions Options;
    bool LanguageGiven;   ///< On the command line.
    std::string& Failure; ///< Of main: it outlives the application object.
};

void DescribeProgram(CLI::App& app, DriverOptions& options) {
    app.set_version_flag("--version", "orvane-panel " ORVANE_VERSION);
    app.add_option("--library", options.Library,
                   "The driver library; without it, the one of the build folder or of the system")
        ->type_name("PATH")
        ->check([](const std::string& path) { return path.empty() ? "no path is given" : ""; });
    app.add_option("--scenario", options.Scenario,
                   "A scenario of the laboratory, by name or file, instead of the virtual console")
        ->type_name("NAME|FILE");
    app.add_option("--lang", options.Language,
                   "Language of the window, fr or en, and of the channel names")
        ->type_name("CODE")
        ->capture_default_str()
        ->check([](const std::string& code) {
            return code == "fr" || code == "en" ? "" : "the language is fr or en";
        });
}

} // namespace

} // namespace orvane

using namespace orvane;

int main(int argc, char** argv) try {
    std::setlocale(LC_CTYPE, ""); // for the names of files
    DriverOptions options;
    options.Language = EnvironmentLanguage();
    CLI::App app("Shows an Orvane console at work in a window.", "orvane-panel");
    DescribeProgram(app, options);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& end) {
        return app.exit(end) == 0 ? 0 : 2;
    }
    std::string failure;
    // The toolkit deletes the application object when it ends.
    // NOLINTNEXTLINE
    wxApp::SetInstance(new PanelApplication(options, app.count("--lang") > 0, failure));
    int none = 1; // The toolkit would take further arguments for its own.
    const int code = wxEntry(none, argv);
    if (!failure.empty()) {
        std::fprintf(stderr, "orvane-panel: %s\n", failure.c_str());
        return EXIT_FAILURE;
    }
    return code;
} catch (const std::exception& error) {
    std::fprintf(stderr, "orvane-panel: %s\n", error.what());
    return EXIT_FAILURE;
}
