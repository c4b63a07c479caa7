#pragma once

/// \file
/// The controls at the left of a page: groups of rows with a label, and the error of a field under
/// it.

#include <wx/panel.h>
#include <wx/scrolwin.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <functional>
#include <optional>
#include <vector>

namespace orvane {

/// A line under a field that says what is wrong with it. Empty, it takes no room.
class FieldMessage : public wxStaticText {
public:
    explicit FieldMessage(wxWindow* parent);

    void ShowError(const wxString& text);
    void ShowWarning(const wxString& text);
    void Clear();

private:
    void ShowText(const wxString& text, const wxColour& colour);
};

/// A field for a number. What it holds counts once Enter is pressed or it is left; until it is a
/// number within the limits, the message below says so.
class NumberField : public wxTextCtrl {
public:
    /// \param unit of the number, such as "V"; empty: none. A field of the unit "s" takes "20 ms"
    NumberField(wxWindow* parent, const wxString& name, const wxString& unit);

    /// The number, if it is one. Tells what is wrong otherwise.
    std::optional<double> Number();
    void SetNumber(double number, int decimals);
    /// Shows a text that counts as taken.
    void ShowText(const wxString& text);
    void SetLimits(double least, double most);
    /// Takes what is still being written.
    void Take();

    FieldMessage* Message;
    wxString Unit;
    std::function<void(double)> Entered = [](double) {};

private:
    double Least;
    double Most;
    wxString Taken; ///< The text that was last taken.
};

/// A column of groups in a window that scrolls when it is too low.
class Form : public wxScrolledWindow {
public:
    explicit Form(wxWindow* parent);

    /// Begins a group. \return its title
    wxStaticText* AddGroup(const wxString& title);
    /// Adds a row: the label, then the control, which gets the label's name.
    void AddRow(const wxString& label, wxWindow* control, wxWindow* after = nullptr);
    void AddField(const wxString& label, NumberField* field, wxWindow* after = nullptr);
    /// Adds something over the whole width.
    void AddWide(wxWindow* control, int proportion = 0);
    void AddSizer(wxSizer* sizer);
    /// Two buttons beside each other.
    void AddPair(wxWindow* left, wxWindow* right);
    /// A note in grey, broken into lines.
    wxStaticText* AddNote(const wxString& text);

private:
    void WrapNotes();

    wxSizer* Rows;
    std::vector<wxStaticText*> Notes;
    int WrappedWidth = 0;
};

} // namespace orvane
