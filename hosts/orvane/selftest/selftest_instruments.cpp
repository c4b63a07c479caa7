// All but the channels: adjustments, pictures, outputs, gates, spirometer, radio.

#include "hosts/orvane/selftest/selftest_checks.h"
#include "hosts/session/host_error.h"
#include "hosts/session/spirometer.h"
#include "radio_exports.h"

#include <wx/bitmap.h>
#include <wx/image.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <limits>

namespace orvane {

namespace {

void HasKnownAdjustments(const SelftestTarget& target) {
    const DriverExports& driver = target.Driver;
    const int count = driver.CombienDeCanauxEnEntree();
    int adjustments = 0;
    for (int index = 0; index < count; ++index) {
        const int kind = driver.QuelReglagePour(index);
        adjustments += kind != 0 ? 1 : 0;
        Expect(kind == 0 || (kind >= 101 && kind <= 107),
               OnChannel(index, "its adjustment is of kind " + std::to_string(kind)));
        ExpectOneLine(driver.QuelLibelleReglagePour(index), OnChannel(index, "label"));
        ExpectOneLine(driver.QuelStatusPour(index, nullptr), OnChannel(index, "state"));
    }
    for (const int index : IndexesOutside(count)) {
        driver.MetReglagePour(index, 1.0);
        driver.PresetAdaptateurPour(index, 1);
        const int numbers = driver.QuelReglagePour(index) | driver.QuelValeurReglagePour(index) |
                            driver.QuelValeurStatusPour(index);
        ExpectEqual(numbers, 0, OnChannel(index, "a number of its adjustment"));
        Expect(driver.QuelLibelleReglagePour(index).empty() &&
                   driver.QuelStatusPour(index, nullptr).empty(),
               OnChannel(index, "its adjustment has a text"));
    }
    target.Exercised["adjustment"] = adjustments;
}

void HasWholePictures(const SelftestTarget& target) {
    const DriverExports& driver = target.Driver;
    wxInitAllImageHandlers(); // The driver decodes with those of its host.
    constexpr int side = 32;
    const int count = driver.CombienDeCanauxEnEntree();
    for (int index = 0; index < count; ++index) {
        const wxBitmap picture = driver.QuelBitmapPour(index);
        Expect(!picture.IsOk() || (picture.GetWidth() == side && picture.GetHeight() == side),
               OnChannel(index, "its picture is not 32 by 32"));
        const wxBitmap state = driver.QuelImageReglagePour(index);
        Expect(!state.IsOk() || (state.GetWidth() > 0 && state.GetHeight() > 0),
               OnChannel(index, "the picture of its state is empty"));
    }
    for (const int index : IndexesOutside(count)) {
        Expect(!driver.QuelBitmapPour(index).IsOk() && !driver.QuelImageReglagePour(index).IsOk(),
               OnChannel(index, "it has a picture"));
    }
}

void DescribesItsOutputs(const SelftestTarget& target) {
    const DriverExports& driver = target.Driver;
    Expect(driver.KiroDACIsGereBoucle(), "KiroDACIsGereBoucle gives false");
    double a = 0.0;
    double b = 0.0;
    double frequency = 0.0;
    double alone = 0.0;
    driver.KiroDACParam(0, &alone, nullptr, nullptr);
    driver.KiroDACParam(0, &a, &b, &frequency);
    ExpectEqual(alone, a, "a number of the generator, beside null pointers");
    Expect(a > 0.0 && std::isfinite(a),
           "the first number of the generator is " + std::to_string(a));
    ExpectEqual(b, 1.0, "the second number of the generator");
    Expect(frequency > 0.0 && std::isfinite(frequency),
           "the highest frequency is not a positive number");
    driver.CombienDeCanauxEnEntree();
    for (const int index : IndexesOutside(driver.CombienDeCanauxEnSortie())) {
        Expect(!driver.KiroDACDisponible(index), "there is an output " + std::to_string(index));
    }
}

void PlaysAndRests(const SelftestTarget& target) {
    if (!target.Outputs) {
        throw SkippedCheck("it drives the outputs; --outputs allows that");
    }
    const DriverExports& driver = target.Driver;
    driver.CombienDeCanauxEnEntree();
    const int count = driver.CombienDeCanauxEnSortie();
    constexpr double amplitude = 0.2;
    constexpr double frequency = 50.0;
    constexpr int32_t restCode = 2048;
    for (int index = 0; index < count; ++index) {
        const auto signals = {driver.KiroDACCreneau, driver.KiroDACSinus, driver.KiroDACTriangle};
        for (const auto signal : signals) {
            const bool plays = signal(index, amplitude, 0.0, frequency, 1);
            driver.KiroDACEcrireNum(index, restCode);
            Expect(plays, "output " + std::to_string(index) + " does not play");
            for (const double wrong : {0.0, std::numeric_limits<double>::quiet_NaN(), 1e12}) {
                Expect(!signal(index, amplitude, 0.0, wrong, 1), "output " + std::to_string(index) +
                                                                     " plays " +
                                                                     std::to_string(wrong) + " Hz");
            }
        }
    }
    for (const int index : IndexesOutside(count)) {
        Expect(!driver.KiroDACSinus(index, amplitude, 0.0, frequency, 0),
               "there is an output " + std::to_string(index));
    }
    if (count == 0) {
        throw SkippedCheck("the console has no outputs");
    }
    target.Exercised["output"] = count;
}

void CountsItsGates(const SelftestTarget& target) {
    const DriverExports& driver = target.Driver;
    const int32_t forks = driver.GetNombreDeFourcheMaxPortimetre();
    Expect(forks >= 0, "there are " + std::to_string(forks) + " forks");
    ExpectEqual(driver.GetNombreDeFourcheMaxPortimetre(), forks, "the number of forks");
    for (int32_t gate = 0; gate < 2 * forks; ++gate) {
        const int32_t state = driver.GetEtatFourchePortimetre(gate);
        Expect(state == 0 || state == 1,
               "gate " + std::to_string(gate) + " is " + std::to_string(state));
    }
    for (const int gate : {std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        ExpectEqual(driver.GetEtatFourchePortimetre(gate), 0, "gate " + std::to_string(gate));
    }
}

void GivesUpRunsOverGates(const SelftestTarget& target) {
    const DriverExports& driver = target.Driver;
    const int32_t most = driver.GetNombreDeFourcheMaxPortimetre();
    if (most == 0) {
        throw SkippedCheck("the console has no gates");
    }
    for (const int32_t forks : {1, most}) {
        const bool starts = driver.StartAcquisitionPortimetre(forks);
        driver.TestEndOfLogPortimetre();
        const double time = driver.GetTimeRayPortimetre(0); // Gives the run up.
        Expect(starts, "a run over " + std::to_string(forks) + " forks does not start");
        Expect(std::isfinite(time), "the time of ray 0 is not a number");
        ExpectEqual(driver.GetTimeRayPortimetre(0), time, "the time of ray 0, read again");
    }
    target.Exercised["fork"] = most;
}

void LooksForATurbine(const SelftestTarget& target) {
    const DriverExports& driver = target.Driver;
    int32_t index = 0;
    const int32_t connector = driver.DetecteTurbineSpiro(&index);
    const int count = driver.CombienDeCanauxEnEntree();
    Expect(connector == 0 ? index == -1 : index >= 0 && index < count,
           "connector " + std::to_string(connector) + " goes with channel " +
               std::to_string(index));
    ExpectEqual(driver.DetecteTurbineSpiro(nullptr), connector, "the connector of the turbine");
    ExpectEqual(driver.GetCodeAdaptSpiro(-1), -1, "the adapter on connector -1");
    Expect(!driver.StartThreadSpiro(nullptr, nullptr, 0, 0.0, nullptr),
           "a thread starts without the host's objects");
    tSpiroData data{};
    Expect(driver.LectureDonneesSpiro(&data) && driver.LectureDonneesSpiro(nullptr),
           "LectureDonneesSpiro gives false");
    ExpectEqual(data.NbEchantillons, 0, "the number of samples without a thread");
    target.Exercised["turbine"] = connector == 0 ? 0 : 1;
}

/// Some steps of the driver's thread. A change of adapters fails the check like any other finding.
void MeasuresAFlow(const SelftestTarget& target) {
    if (target.Driver.DetecteTurbineSpiro(nullptr) == 0) {
        throw SkippedCheck("the console has no turbine");
    }
    constexpr int steps = 4;
    constexpr unsigned long patienceMs = 2000;
    constexpr double tolerance = 1e-9;
    try {
        wxCriticalSection section;
        Spirometer spirometer(target.Driver, section);
        FlowReading last;
        for (int step = 0; step < steps; ++step) {
            const auto reading = NextReading(spirometer, patienceMs);
            Expect(reading.has_value(), "no step comes within 2 s");
            const double time = reading->TimeSec - last.TimeSec;
            const double out = reading->VolumeOut - last.VolumeOut;
            const double in = reading->VolumeIn - last.VolumeIn;
            Expect(time > 0.0, "a step takes " + std::to_string(time) + " s");
            Expect(std::abs(out - std::max(reading->Flow, 0.0) * time) < tolerance &&
                       std::abs(in + std::min(reading->Flow, 0.0) * time) < tolerance,
                   "a flow of " + std::to_string(reading->Flow) + " for " + std::to_string(time) +
                       " s counts as " + std::to_string(out) + " and " + std::to_string(in));
            last = *reading;
        }
    } catch (const HostError& error) {
        throw FailedCheck(error.what());
    }
}

void KeepsATableOfPods(const SelftestTarget& target) {
    const DriverExports& driver = target.Driver;
    int connected = 0;
    for (int id = 0; id < RadioDeviceCount; ++id) {
        TVL_RADIO_DEVICE* const device = driver.GetRadioDeviceO150(id);
        Expect(device != nullptr, "device " + std::to_string(id) + " has no record");
        connected += std::atomic_ref(device->Connecte).load() != 0 ? 1 : 0;
    }
    ExpectEqual(driver.GetNbPodConnectedO150(), connected, "the number of pods");
    for (const int index : IndexesOutside(RadioDeviceCount)) {
        Expect(driver.GetRadioDeviceO150(index) == nullptr,
               "there is a device " + std::to_string(index));
    }
    const int channel = driver.GetCanalReelO150();
    Expect(channel >= 11 && channel <= 26, "the radio channel is " + std::to_string(channel));
    target.Exercised["radio network"] = driver.GetInterfaceName() == "Orvane150" ? 1 : 0;
}

} // namespace

std::vector<SelftestCheck> InstrumentChecks() {
    return {
        {"adjustments are of a known kind", HasKnownAdjustments},
        {"a picture is complete or missing", HasWholePictures},
        {"the outputs are described", DescribesItsOutputs},
        {"outputs play, refuse invalid frequencies, and stop", PlaysAndRests},
        {"gates are open or crossed", CountsItsGates},
        {"runs over gates start, and can be given up", GivesUpRunsOverGates},
        {"the spirometer finds the same turbine twice", LooksForATurbine},
        {"the spirometer's steps are flow times time", MeasuresAFlow},
        {"the radio table is consistent", KeepsATableOfPods},
    };
}

} // namespace orvane
