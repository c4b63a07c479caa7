#include "hosts/orvane/commands/commands.h"
#include "hosts/orvane/selftest/selftest_checks.h"
#include "hosts/orvane/terminal/interrupt.h"
#include "hosts/orvane/terminal/standard_output.h"
#include "hosts/session/host_error.h"
#include "hosts/session/number_text.h"

#include <array>
#include <iostream>
#include <limits>

namespace orvane {

namespace {

enum class Verdict { Passed, Failed, Skipped };

struct VerdictStyle {
    const char* Word;
    const char* Colour;
};

constexpr std::array<VerdictStyle, 3> styles{
    {{"ok     ", "\x1b[32m"}, {"FAILED ", "\x1b[1;31m"}, {"skipped", "\x1b[33m"}}};

/// Shows a line for each check and counts the verdicts.
struct Report {
    void Tell(Verdict verdict, const SelftestCheck& check, const std::string& why) {
        const auto number = static_cast<size_t>(verdict);
        ++Counts[number];
        const VerdictStyle& style = styles[number];
        const std::string text = why.empty() ? check.Text : check.Text + ": " + why;
        std::string line = TableForOutput({{}, {}}, {{style.Word, text}});
        if (Colours) {
            const size_t length = std::string_view(style.Word).size();
            line = style.Colour + line.substr(0, length) + "\x1b[0m" + line.substr(length);
        }
        std::cout << line << std::flush;
    }

    [[nodiscard]] size_t Of(Verdict verdict) const {
        return Counts[static_cast<size_t>(verdict)];
    }

    std::array<size_t, styles.size()> Counts{};
    bool Colours = InColour();
};

/// Whether adapters have changed since the driver counted this many changes.
bool AdaptersChanged(const DriverExports& driver, int count) {
    driver.VerifCanaux();
    return driver.GetEtatVerifCanaux() != count;
}

/// A check that fails while adapters change is repeated, since the promises are about channels that
/// stay.
/// \return whether it passed or could not be made
bool RunCheck(const SelftestCheck& check, const SelftestTarget& target, Report& report) {
    constexpr int mostRuns = 5;
    for (int runs = 1;; ++runs) {
        const int count = target.Driver.GetEtatVerifCanaux();
        try {
            check.Run(target);
            report.Tell(Verdict::Passed, check, "");
            return true;
        } catch (const SkippedCheck& skipped) {
            report.Tell(Verdict::Skipped, check, skipped.what());
            return true;
        } catch (const FailedCheck& failed) {
            if (runs == mostRuns || !AdaptersChanged(target.Driver, count)) {
                report.Tell(Verdict::Failed, check, failed.what());
                return false;
            }
        }
    }
}

/// "1 adjustment, 2 outputs"
std::string InstrumentsText(const std::map<std::string, int>& exercised) {
    std::string text;
    for (const auto& [kind, count] : exercised) {
        if (count > 0) {
            text += (text.empty() ? "" : ", ") + std::to_string(count) + " " + kind +
                    (count > 1 ? "s" : "");
        }
    }
    return text.empty() ? "none" : text;
}

std::vector<SelftestCheck> AllChecks() {
    std::vector<SelftestCheck> all;
    for (const auto& family : {LifecycleChecks(), ChannelChecks(), SettingChecks(),
                               AcquisitionChecks(), InstrumentChecks(), EndChecks()}) {
        all.insert(all.end(), family.begin(), family.end());
    }
    return all;
}

/// Without all exports or without a console, the other checks are skipped.
void RunAll(const DriverSession& session, const SelftestTarget& target, Report& report) {
    const SelftestCheck complete{"the library has all exports", nullptr, true};
    const bool usable = session.Driver.Missing.empty();
    report.Tell(usable ? Verdict::Passed : Verdict::Failed, complete,
                usable ? "" : "it lacks " + MissingNames(session.Driver.Missing));
    const char* missing = usable ? nullptr : "exports are missing";
    for (const SelftestCheck& check : AllChecks()) {
        if (Interrupted()) {
            throw HostError("The test was interrupted.", ErrorKind::Interrupted);
        }
        if (missing != nullptr) {
            report.Tell(Verdict::Skipped, check, missing);
        } else if (!RunCheck(check, target, report) && check.Prerequisite) {
            missing = "the driver does not start";
        }
    }
}

void Test(const DriverOptions& options, bool outputs) {
    CatchInterrupts(); // Settings have to be restored in any case.
    const auto session = LoadDriverLibrary(options);
    std::map<std::string, int> exercised;
    const SelftestTarget target{session->Driver.Exports, options, outputs, exercised};
    std::cout << "Library  " << session->Library
              << "\nThe test makes the driver show messages; they follow at the end, each after "
                 "\"console:\".\n\n";
    Report report;
    RunAll(*session, target, report);
    std::cout << '\n'
              << report.Of(Verdict::Passed) << " passed, " << report.Of(Verdict::Failed)
              << " failed, " << report.Of(Verdict::Skipped) << " skipped\n"
              << "Instruments exercised: " << InstrumentsText(exercised) << '\n';
    if (report.Of(Verdict::Failed) > 0) {
        throw HostError("The driver does not pass all checks.");
    }
}

} // namespace

void Expect(bool holds, const std::string& finding) {
    if (!holds) {
        throw FailedCheck(finding);
    }
}

void ExpectEqual(double found, double expected, const std::string& what) {
    Expect(found == expected,
           what + " is " + NumberText(found, 17) + " and not " + NumberText(expected, 17));
}

void ExpectOneLine(const wxString& text, const std::string& what) {
    Expect(wxString::FromUTF8(TextOf(text)) == text,
           what + ": \"" + TextOf(text) + "\" holds control characters");
}

std::string OnChannel(int index, const std::string& finding) {
    return "channel " + std::to_string(index) + ": " + finding;
}

std::vector<int> IndexesOutside(int count) {
    return {-1, count, count + 255, std::numeric_limits<int>::min(),
            std::numeric_limits<int>::max()};
}

void AddSelftestCommand(CLI::App& command, const DriverOptions& driver) {
    auto outputs = std::make_shared<bool>(false);
    command.footer(
        "A line for each check. Settings of the channels are restored, and the radio is only "
        "started and stopped. Exit codes: 0 all passed, 1 some failed.");
    command.add_flag("--outputs", *outputs, "Drive the analog outputs too, up to 0.1");
    command.callback([outputs, &driver] { Test(driver, *outputs); });
}

} // namespace orvane
