#pragma once

#include <wx/msgout.h>

#include <mutex>
#include <string>
#include <vector>

namespace orvane {

/// Takes what the driver tells the user for as long as it lives, each text once. The toolkit has to
/// be initialised.
class ConsoleMessages : public wxMessageOutput {
public:
    ConsoleMessages();
    ConsoleMessages(const ConsoleMessages&) = delete;
    ConsoleMessages& operator=(const ConsoleMessages&) = delete;
    ~ConsoleMessages() override;

    void Output(const wxString& text) override;

    /// Writes the texts so far to standard error, "console:" before each.
    void Show();

private:
    wxMessageOutput* const Before;
    std::mutex Guard; ///< The driver may have a thread of its own at work.
    std::vector<std::string> Texts;
};

} // namespace orvane
