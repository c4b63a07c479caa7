#pragma once

/// \file
/// The driver's own object for one channel of the console or of an adapter.

#include "console/console_records.h"

#include <wx/string.h>

#include <cstdint>

namespace orvane {

/// The conversion of a channel's values from the console's scale to the host's.
struct HostScale {
    double Ampli;      ///< The host's multiplier.
    double Offset;     ///< The host's addend.
    double MinCalibre; ///< Limits, in console units.
    double MaxCalibre;

    /// A console value in the host's scale, not limited.
    double Scaled(double brut) const {
        return Ampli * brut + Offset;
    }

    /// The same, limited to the calibre.
    double Converted(double brut) const {
        return Limited(Scaled(brut), Scaled(MinCalibre), Scaled(MaxCalibre));
    }

    /// The upper limit comes first, also where a negative scale puts it below the lower one.
    static double Limited(double value, double low, double high) {
        const double raised = low > value ? low : value;
        return value > high ? high : raised;
    }
};

/// What the console reports of a channel, what the host has set for it, and the channels of the
/// same connector that adjust it. A value: copies are independent of one another.
struct TvlVoieOrvane {
    int32_t CodeReference = -1;    ///< Reference number of the adapter; 999999: the console itself.
    int32_t ValeurAdaptateur = -1; ///< Code of the kind of adapter.
    uint8_t ModeSpecial = 0;       ///< Non-zero: the host's texts in place of the console's.
    wxString GrandeurSpeciale;     ///< The host's symbol of the quantity.
    wxString UniteSpeciale;        ///< The host's symbol of the unit.
    double Ampli = 1.0;            ///< The host's multiplier.
    double Offset = 0.0;           ///< The host's addend.
    tChannelDesc Desc{};           ///< Snapshot of the channel's record.
    uint8_t Connecteur = 0;        ///< 0: the console itself.
    uint8_t Canal = 0;             ///< Channel number within the connector.
    int32_t VoieReglage = -1;      ///< Channel that receives adjustment values; -1: none.
    int32_t VoieValeur = -1;       ///< Channel that gives a value of the adjustment; -1: none.
    int32_t VoieEtat = -1;         ///< Channel that gives the adjustment's state; -1: none.
    int32_t ModeReglage = 0;       ///< Number of the adapter's "Reglage" line; 0: none.
    bool SynchroExterne = false;   ///< An external trigger input.
    double MinCalibre = 0.0;       ///< Lower limit of the selected calibre, console units.
    double MaxCalibre = 0.0;       ///< Upper limit of the selected calibre, console units.
    double PeriodeDefautSec = 0.0; ///< Default sample period, s.
    double TempsMinSec = 0.0;      ///< Shortest sample period, s.

    /// Updates limits and periods from the console. What can't be read stays as it was.
    void RafraichirCalibre();

    /// A console value as the host sees it, limited to the calibre; without the host's scale if
    /// `personnalise` is false.
    double ConvertirBrut(double brut, bool personnalise) const {
        return personnalise ? Scale().Converted(brut)
                            : HostScale::Limited(brut, MinCalibre, MaxCalibre);
    }

    /// A value of the host as a console value, not limited. An `Ampli` of 0.0 gives an infinity or
    /// not-a-number.
    double ConvertirInverse(double valeur) const {
        return (valeur - Offset) / Ampli;
    }

    /// A console value in the host's scale, not limited.
    double Scaled(double brut) const {
        return Scale().Scaled(brut);
    }

    HostScale Scale() const {
        return {Ampli, Offset, MinCalibre, MaxCalibre};
    }
};

} // namespace orvane
