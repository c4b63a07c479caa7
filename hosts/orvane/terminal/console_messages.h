#pragma once

#include <wx/msgout.h>

#include <mutex>
#include <string>
#include <vector>

namespace orvane {

/// Collects the messages of the driver during its lifetime, each text once. The toolkit has to be
/// initialised.
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
    std::mutex Guard; ///< The driver may have a thread of its own.
    std::vector<std::string> Texts;
};

} // namespace orvane
