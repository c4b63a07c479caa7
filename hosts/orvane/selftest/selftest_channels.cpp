// Enumeration, queries and settings of the input channels.

#include "hosts/orvane/selftest/selftest_checks.h"
#include "hosts/session/number_text.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace orvane {

namespace {

/// The channels of a new enumeration; without any, the check is skipped.
std::vector<ChannelInfo> SomeChannels(const DriverExports& driver) {
    auto channels = EnumerateChannels(driver);
    if (channels.empty()) {
        throw SkippedCheck("the console has no input channels");
    }
    return channels;
}

void ExpectSame(const std::vector<ChannelInfo>& found, const std::vector<ChannelInfo>& expected) {
    ExpectEqual(static_cast<double>(found.size()), static_cast<double>(expected.size()),
                "the number of input channels");
    for (size_t i = 0; i < found.size(); ++i) {
        Expect(found[i] == expected[i], OnChannel(found[i].Index, "it is not what it was"));
    }
}

void EnumeratesTheSameTwice(const SelftestTarget& target) {
    const DriverExports& driver = target.Driver;
    const auto first = EnumerateChannels(driver);
    const int outputs = driver.CombienDeCanauxEnSortie();
    ExpectSame(EnumerateChannels(driver), first);
    ExpectEqual(driver.CombienDeCanauxEnSortie(), outputs, "the number of outputs");
    ExpectEqual(driver.CombienDeCanauxDeSynchro(), static_cast<double>(first.size()),
                "the number of trigger channels");
}

void NamesThings(const SelftestTarget& target) {
    const DriverExports& driver = target.Driver;
    for (const ChannelInfo& channel : SomeChannels(driver)) {
        const int index = channel.Index;
        Expect(!channel.Name.empty(), OnChannel(index, "it has no name"));
        ExpectOneLine(driver.QuelNomPour(index, 0), OnChannel(index, "name"));
        ExpectOneLine(driver.QuelNomPourSynchro(index), OnChannel(index, "trigger name"));
        ExpectOneLine(driver.QuelGrandeurPour(index), OnChannel(index, "quantity"));
        ExpectOneLine(driver.QuelUnitePour(index), OnChannel(index, "unit"));
        for (int i = 0; i < driver.CombienDeFonctionPour(index); ++i) {
            ExpectOneLine(driver.QuelNomPourFonction(index, i), OnChannel(index, "function"));
        }
        for (int i = 0; i < driver.CombienDeCalibrePour(index); ++i) {
            ExpectOneLine(driver.QuelNomPourCalibre(index, i), OnChannel(index, "calibre"));
        }
    }
}

void ExpectRange(double min, double max, int index) {
    Expect(std::isfinite(min) && std::isfinite(max) && min < max,
           OnChannel(index, "its limits are " + NumberText(min) + " and " + NumberText(max)));
}

void HasLimits(const SelftestTarget& target) {
    const DriverExports& driver = target.Driver;
    for (const ChannelInfo& channel : SomeChannels(driver)) {
        const int index = channel.Index;
        const auto calibres = static_cast<int>(channel.Calibres.size());
        if (calibres == 0) {
            continue; // It has no limits.
        }
        ExpectRange(channel.Min, channel.Max, index);
        for (int i = 0; i < calibres; ++i) {
            ExpectRange(driver.QuelMinPourCalibrePour(index, i),
                        driver.QuelMaxPourCalibrePour(index, i), index);
        }
        const int selected = channel.Calibre;
        Expect(selected >= 0 && selected < calibres,
               OnChannel(index, "it has no calibre " + std::to_string(selected)));
        ExpectEqual(channel.Min, driver.QuelMinPourCalibrePour(index, selected),
                    OnChannel(index, "its lower limit"));
        ExpectEqual(channel.Max, driver.QuelMaxPourCalibrePour(index, selected),
                    OnChannel(index, "its upper limit"));
        ExpectEqual(driver.QuelMaxPourCalibrePour(index, calibres), 0.0,
                    OnChannel(index, "the limit of a calibre beyond the last"));
    }
}

void MeasuresWithinLimits(const SelftestTarget& target) {
    constexpr int values = 100;
    for (const ChannelInfo& channel : SomeChannels(target.Driver)) {
        for (int i = 0; i < values; ++i) {
            const double value = target.Driver.QuelValeurPour(channel.Index);
            Expect(value >= channel.Min && value <= channel.Max,
                   OnChannel(channel.Index, "it measures " + NumberText(value)));
        }
    }
}

void HasPeriods(const SelftestTarget& target) {
    for (const ChannelInfo& channel : SomeChannels(target.Driver)) {
        Expect(channel.ShortestPeriodSec >= 0.0 && std::isfinite(channel.DefaultPeriodSec) &&
                   channel.ShortestPeriodSec <= channel.DefaultPeriodSec,
               OnChannel(channel.Index,
                         "its shortest period is " + NumberText(channel.ShortestPeriodSec) +
                             " s, its default " + NumberText(channel.DefaultPeriodSec) + " s"));
    }
}

void HasConstantConversions(const SelftestTarget& target) {
    const DriverExports& driver = target.Driver;
    constexpr double level = 0.25;
    for (const ChannelInfo& channel : SomeChannels(driver)) {
        const int index = channel.Index;
        ExpectEqual(driver.ConvertirSeuilSynchroPour(index, level), level,
                    OnChannel(index, "an unscaled threshold"));
        ExpectEqual(driver.ConvertirPour(index, 1), 0.0, OnChannel(index, "ConvertirPour"));
        ExpectEqual(driver.Convertir2BitPour(index, 1.0), 0, OnChannel(index, "Convertir2BitPour"));
        ExpectEqual(driver.QuelBitCodagePour(index), 0, OnChannel(index, "QuelBitCodagePour"));
    }
}

void ExpectNothing(const DriverExports& driver, int index) {
    const wxString texts = driver.QuelNomPour(index, 0) + driver.QuelNomPourSynchro(index) +
                           driver.QuelNomPourFonction(index, 0) +
                           driver.QuelNomPourCalibre(index, 0) + driver.QuelGrandeurPour(index) +
                           driver.QuelUnitePour(index);
    Expect(texts.empty(), OnChannel(index, "it has a text"));
    for (const auto question :
         {driver.QuelVoiePhysiquePour, driver.QuelReferencePour, driver.QuelCodePour,
          driver.CombienDeFonctionPour, driver.QuelFonctionPour, driver.CombienDeCalibrePour,
          driver.QuelCalibrePour, driver.QuelEtiquettePour, driver.QuelBitCodagePour}) {
        ExpectEqual(question(index), 0, OnChannel(index, "a number"));
    }
    ExpectEqual(driver.QuelCanalPour(index), 0, OnChannel(index, "its channel number"));
    ExpectEqual(driver.QuelNbDecimalPour(index), 0, OnChannel(index, "its decimals"));
    for (const auto question : {driver.QuelDefaultPeriodSecPour, driver.QuelTempsMinPour,
                                driver.QuelMinPour, driver.QuelMaxPour, driver.QuelValeurPour}) {
        ExpectEqual(question(index), 0.0, OnChannel(index, "a number"));
    }
    ExpectEqual(driver.QuelValeurSansPersonnalisationPour(index), 0.0, OnChannel(index, "a value"));
    ExpectEqual(driver.QuelMinPourCalibrePour(index, 0), 0.0, OnChannel(index, "a limit"));
    ExpectEqual(driver.QuelMaxPourCalibrePour(index, 0), 0.0, OnChannel(index, "a limit"));
    ExpectEqual(driver.ConvertirSeuilSynchroPour(index, 1.0), 0.0, OnChannel(index, "a threshold"));
    Expect(!driver.IsSynchroExternePour(index), OnChannel(index, "it is an external trigger"));
}

void AnswersNothingOutside(const SelftestTarget& target) {
    const int count = target.Driver.CombienDeCanauxEnEntree();
    for (const int index : IndexesOutside(count)) {
        ExpectNothing(target.Driver, index);
    }
}

/// Restores a channel's calibre.
struct CalibreKeeper {
    CalibreKeeper(const DriverExports& exports, const ChannelInfo& channel)
        : Driver(exports), Index(channel.Index), Calibre(channel.Calibre) {}
    CalibreKeeper(const CalibreKeeper&) = delete;
    CalibreKeeper& operator=(const CalibreKeeper&) = delete;
    ~CalibreKeeper() {
        Driver.MetCalibrePour(Index, Calibre);
    }
    const DriverExports& Driver;
    int Index;
    int Calibre;
};

void SelectsCalibres(const SelftestTarget& target) {
    const DriverExports& driver = target.Driver;
    const auto channels = SomeChannels(driver);
    for (const ChannelInfo& channel : channels) {
        const int index = channel.Index;
        const CalibreKeeper keeper(driver, channel);
        const auto calibres = static_cast<int>(channel.Calibres.size());
        for (int calibre = 0; calibre < calibres; ++calibre) {
            driver.MetCalibrePour(index, calibre);
            ExpectEqual(driver.QuelCalibrePour(index), calibre, OnChannel(index, "its calibre"));
            ExpectEqual(driver.QuelMinPour(index), driver.QuelMinPourCalibrePour(index, calibre),
                        OnChannel(index, "its lower limit"));
            ExpectEqual(driver.QuelMaxPour(index), driver.QuelMaxPourCalibrePour(index, calibre),
                        OnChannel(index, "its upper limit"));
        }
        driver.MetCalibrePour(index, calibres);
        ExpectEqual(driver.QuelCalibrePour(index), std::max(calibres - 1, 0),
                    OnChannel(index, "its calibre after one that it does not have"));
    }
    ExpectSame(EnumerateChannels(driver), channels);
}

void ScalesAndRenames(const SelftestTarget& target) {
    const DriverExports& driver = target.Driver;
    const auto channels = SomeChannels(driver);
    for (const ChannelInfo& channel : channels) {
        const int index = channel.Index;
        driver.MetGrandeurPour(index, L"p");
        driver.MetUnitPour(index, L"µbar");
        driver.MetModeSpecialPour(index, 1);
        driver.MetAmpliPour(index, 2.0);
        driver.MetOffsetPour(index, 1.0);
        const ChannelInfo scaled = DescribeChannel(driver, index);
        ExpectEqual(scaled.Min, channel.Min * 2.0 + 1.0, OnChannel(index, "its scaled limit"));
        ExpectEqual(scaled.Max, channel.Max * 2.0 + 1.0, OnChannel(index, "its scaled limit"));
        Expect(scaled.Quantity == "p" && scaled.Unit == "µbar",
               OnChannel(index, "it does not use the host's texts"));
        const double value = driver.QuelValeurSansPersonnalisationPour(index);
        Expect(value >= channel.Min && value <= channel.Max,
               OnChannel(index, "its console value is " + NumberText(value)));
        driver.MetModeSpecialPour(index, 0);
        Expect(DescribeChannel(driver, index) == channel,
               OnChannel(index, "the scale outlasts the special mode"));
    }
    ExpectSame(EnumerateChannels(driver), channels);
}

void SetsNothingOutside(const SelftestTarget& target) {
    const DriverExports& driver = target.Driver;
    const auto channels = SomeChannels(driver);
    for (const int index : IndexesOutside(static_cast<int>(channels.size()))) {
        driver.MetAmpliPour(index, 2.0);
        driver.MetOffsetPour(index, 1.0);
        driver.MetModeSpecialPour(index, 1);
        driver.MetUnitPour(index, L"x");
        driver.MetGrandeurPour(index, nullptr);
        driver.MetFonctionPour(index, 0);
        driver.MetCalibrePour(index, 0);
        driver.AbandonCalibrationPour(index);
    }
    for (const ChannelInfo& channel : channels) {
        Expect(DescribeChannel(driver, channel.Index) == channel,
               OnChannel(channel.Index, "it is not what it was"));
    }
}

} // namespace

std::vector<SelftestCheck> ChannelChecks() {
    return {
        {"two enumerations give the same", EnumeratesTheSameTwice},
        {"names, quantities and units are texts of one line", NamesThings},
        {"limits are in order and those of the selected calibre", HasLimits},
        {"values lie within the limits", MeasuresWithinLimits},
        {"no default period is shorter than the shortest", HasPeriods},
        {"conversions give what they are documented to", HasConstantConversions},
        {"a channel that does not exist gives neutral results", AnswersNothingOutside},
    };
}

std::vector<SelftestCheck> SettingChecks() {
    return {
        {"a selected calibre shows in the limits", SelectsCalibres},
        {"scale and texts of the host take effect and can be removed", ScalesAndRenames},
        {"a channel that does not exist takes no setting", SetsNothingOutside},
    };
}

} // namespace orvane
