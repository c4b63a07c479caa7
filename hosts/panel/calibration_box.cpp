#include "hosts/panel/calibration_box.h"

#include "hosts/panel/channel_table.h"
#include "hosts/panel/panel_text.h"

#include <wx/datetime.h>
#include <wx/intl.h>
#include <wx/msgdlg.h>
#include <wx/settings.h>
#include <wx/wrapsizer.h>

namespace orvane {

CalibrationBox::CalibrationBox(wxWindow* parent, DriverAccess& access)
    : wxPanel(parent), Access(access) {
    constexpr int highestPoint = 15;
    Title = new wxStaticText(this, wxID_ANY, _("Calibration"));
    Title->SetFont(Title->GetFont().Bold());
    List = new wxListView(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(300, 80)),
                          wxLC_REPORT | wxLC_NO_HEADER | wxLC_SINGLE_SEL);
    List->SetName(_("Steps of the calibration"));
    List->AppendColumn("", wxLIST_FORMAT_CENTRE, FromDIP(40));
    List->AppendColumn("", wxLIST_FORMAT_LEFT, FromDIP(540));
    List->AppendColumn("", wxLIST_FORMAT_LEFT, FromDIP(240));
    auto* whole = new wxBoxSizer(wxVERTICAL);
    whole->Add(Title, wxSizerFlags().Expand().Border(wxBOTTOM, FromDIP(4)));
    whole->Add(List, wxSizerFlags(1).Expand().Border(wxBOTTOM, FromDIP(8)));
    Point = new wxSpinCtrl(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                           wxSP_ARROW_KEYS | wxALIGN_RIGHT, 0, highestPoint, 0);
    BuildRow(whole);
    auto* note = new wxStaticText(
        this, wxID_ANY,
        _("The console reports nothing back about a calibration: judge by the reading.\n"
          "A calibration stays in the adapter and changes the readings of every program."));
    note->SetForegroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT));
    whole->Add(note, wxSizerFlags().Border(wxTOP, FromDIP(4)));
    SetSizer(whole);
    ShowSteps();
}

void CalibrationBox::BuildRow(wxSizer* whole) {
    const auto button = [this](const wxString& label, void (CalibrationBox::*pressed)()) {
        auto* made = new wxButton(this, wxID_ANY, label);
        made->Bind(wxEVT_BUTTON, [this, pressed](wxCommandEvent&) { (this->*pressed)(); });
        return made;
    };
    auto* row = new wxWrapSizer(wxHORIZONTAL);
    const auto add = [&](wxWindow* control) {
        row->Add(control, wxSizerFlags().CentreVertical().Border(wxRIGHT, FromDIP(6)));
    };
    Start = button(_("Be&gin"), &CalibrationBox::Begin);
    add(Start);
    auto* label = new wxStaticText(this, wxID_ANY, _("Poi&nt, value"));
    label->MoveBeforeInTabOrder(Point);
    add(label);
    Point->SetName(_("Point"));
    add(Point);
    Value = new NumberField(this, _("Value of the point"), "");
    add(Value);
    UnitText = new wxStaticText(this, wxID_ANY, "");
    add(UnitText);
    Take = button(_("Ta&ke"), &CalibrationBox::TakePoint);
    add(Take);
    Factory = button(_("Factory values") + wxUniChar(0x2026), &CalibrationBox::RestoreFactory);
    add(Factory);
    GiveUp = button(_("Give up"), &CalibrationBox::Drop);
    add(GiveUp);
    Done = button(_("Done"), &CalibrationBox::End);
    add(Done);
    whole->Add(row, wxSizerFlags().Expand());
    whole->Add(Value->Message);
}

void CalibrationBox::ShowChannel(const ChannelInfo& channel) {
    if (KeyOf(channel) != KeyOf(Channel)) {
        Active = false;
        Points.clear();
        Point->SetValue(0);
    }
    Channel = channel;
    Now.reset();
    UnitText->SetLabelText(FromUtf8(channel.Unit));
    ShowSteps();
}

void CalibrationBox::ShowReading(double value) {
    Now = value;
    for (TakenPoint& point : Points) {
        if (!point.After) {
            point.After = value;
        }
    }
    ShowSteps();
}

wxString CalibrationBox::Reading(double value) const {
    return FromUtf8(ReadingText(Channel, value) + " " + Channel.Unit);
}

std::vector<CalibrationBox::Row> CalibrationBox::Rows() const {
    const wxString taken = wxUniChar(0x2713);
    const wxString now = Now ? wxString::Format(_("reads %s"), Reading(*Now)) : wxString();
    const auto number = [](size_t step) { return wxString::Format("%zu", step); };
    std::vector<Row> rows{{Active ? taken : number(1),
                           _("Begin: the console takes down a new calibration"),
                           Active ? BegunAt : wxString()}};
    for (const TakenPoint& point : Points) {
        wxString read = wxString::Format(_("read %s"), Reading(point.Before));
        if (point.After) {
            read += wxString::Format(_(", then %s"), Reading(*point.After));
        }
        rows.push_back(
            {taken, wxString::Format(_("Point %d: %s taken"), point.Number, Reading(point.Written)),
             read});
    }
    rows.push_back(
        {number(Steps() - 1),
         wxString::Format(
             _("Point %d: put a known value on, wait until it is steady, write it and take it"),
             Point->GetValue()),
         Active ? now : wxString()});
    rows.push_back({number(Steps()), _("Check: the reading now and what was written"),
                    Points.empty() ? wxString() : now});
    return rows;
}

void CalibrationBox::ShowSteps() {
    const std::vector<Row> rows = Rows();
    const auto count = static_cast<int>(rows.size());
    while (List->GetItemCount() > count) {
        List->DeleteItem(List->GetItemCount() - 1);
    }
    for (int row = 0; row < count; ++row) {
        if (row == List->GetItemCount()) {
            List->InsertItem(row, "");
        }
        const Row& texts = rows[static_cast<size_t>(row)];
        for (int column = 0; column < static_cast<int>(texts.size()); ++column) {
            const wxString& text = texts.at(static_cast<size_t>(column));
            if (List->GetItemText(row, column) != text) {
                List->SetItem(row, column, text);
            }
        }
    }
    if (Active && List->GetFirstSelected() != count - 2) {
        List->Select(count - 2);
        List->EnsureVisible(count - 1);
    }
    const wxString title =
        Active ? wxString::Format(_("Calibration, step %zu of %zu"), Step(), Steps())
               : _("Calibration");
    if (Title->GetLabelText() != title) {
        Title->SetLabelText(title);
    }
    EnableButtons();
}

void CalibrationBox::EnableButtons() {
    const bool can = Allowed && !Access.IsBusy();
    Start->Enable(can && !Active);
    Take->Enable(can && Active);
    Factory->Enable(can && !Active);
    GiveUp->Enable(can && Active);
    Done->Enable(can && Active && !Points.empty());
}

void CalibrationBox::Allow(bool allowed) {
    Allowed = allowed;
    EnableButtons();
}

void CalibrationBox::Call(std::function<void(const DriverExports&)> call,
                          std::function<void()> done) {
    Access.CallInBackground(std::move(call), [this, done = std::move(done)] {
        done();
        ShowSteps();
    });
    EnableButtons();
}

void CalibrationBox::Begin() {
    Call([channel =
              Channel.Index](const DriverExports& driver) { driver.DebutCalibrationPour(channel); },
         [this] {
             Active = true;
             Points.clear();
             Point->SetValue(0);
             BegunAt = wxDateTime::Now().FormatISOTime();
             Changed();
             Value->SetFocus();
         });
}

void CalibrationBox::TakePoint() {
    const auto value = Value->Number();
    if (!value || !Active || !Now || Access.IsBusy()) {
        return;
    }
    const TakenPoint point{
        .Number = Point->GetValue(), .Written = *value, .Before = *Now, .After = {}};
    Call(
        [channel = Channel.Index, point](const DriverExports& driver) {
            driver.MetCalibrationValuePour(channel, point.Number, point.Written);
        },
        [this, point] {
            std::erase_if(Points,
                          [&](const TakenPoint& old) { return old.Number == point.Number; });
            Points.push_back(point);
            Point->SetValue(point.Number + 1);
        });
}

void CalibrationBox::RestoreFactory() {
    if (wxMessageBox(wxString::Format(_("Give %s the calibration that it was made with? The one "
                                        "that it has is lost."),
                                      FromUtf8(Channel.Name)),
                     "orvane-panel", wxYES_NO | wxNO_DEFAULT | wxICON_QUESTION, this) != wxYES) {
        return;
    }
    Call([channel = Channel.Index](
             const DriverExports& driver) { driver.ParDefautCalibrationPour(channel); },
         [] {});
}

void CalibrationBox::Drop() {
    Call([channel = Channel.Index](
             const DriverExports& driver) { driver.AbandonCalibrationPour(channel); },
         [this] {
             Points.clear();
             End();
         });
}

void CalibrationBox::GiveUpNow() {
    if (!Active) {
        return;
    }
    {
        const DriverTurn turn(Access);
        turn->AbandonCalibrationPour(Channel.Index);
    }
    Points.clear();
    End();
}

void CalibrationBox::End() {
    Active = false;
    ShowSteps();
    Changed();
}

} // namespace orvane
