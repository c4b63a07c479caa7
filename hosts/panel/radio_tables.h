#pragma once

#include "hosts/session/pod_log.h"

#include <wx/listctrl.h>

namespace orvane {

/// The pods of a network, a row each; those that left are grey.
class PodTable : public wxListView {
public:
    explicit PodTable(wxWindow* parent);

    void Show(const RadioLog& log, LogTime now);
    int SelectedPod() const; ///< Below 0: none.

private:
    void ShowRow(long row, const PodRecord& pod, LogTime now);
    void SetText(long row, int column, const wxString& text);

    std::vector<int> Ids; ///< Of the rows.
};

/// What happened in a network, the newest first.
class RadioEventTable : public wxListView {
public:
    explicit RadioEventTable(wxWindow* parent);

    void Show(const RadioLog& log);

private:
    LogTime Newest;
    size_t Count = 0;
};

/// An event in the window's language.
wxString WordsOf(const RadioEvent& event);

} // namespace orvane
