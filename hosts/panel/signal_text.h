#pragma once

/// \file
/// What a signal is in words and numbers.

#include "hosts/panel/generator_form.h"

namespace orvane {

/// What an output plays of it. Throws HostError if it cannot.
PlannedSignal PlanOf(const AskedSignal& asked, const OutputLimits& limits);

/// Whether it goes on until something else is sent.
bool Repeats(const AskedSignal& asked);

/// "▶ square, 50.00 Hz", or "○ 0.000 V" for nothing.
wxString SentText(const std::optional<AskedSignal>& sent, bool plays);

/// A row of the table that compares what was asked with what is played.
struct SignalRow {
    wxString What;
    wxString Asked;
    wxString Played;
};

std::vector<SignalRow> RowsOf(const AskedSignal& asked, const PlannedSignal& planned);

} // namespace orvane
