#include "hosts/session/spirometer.h"

#include "hosts/session/host_error.h"
#include "hosts/session/translation.h"

namespace orvane {

bool IsTurbine(const ChannelInfo& channel) {
    constexpr int reference = 482109;
    return channel.Reference == reference;
}

int FindTurbine(const DriverExports& driver) {
    int32_t channel = -1;
    if (driver.DetecteTurbineSpiro(&channel) == 0) {
        throw HostError("This console has no spirometer turbine.");
    }
    return channel;
}

std::string VolumeUnit(const std::string& flowUnit) {
    const bool perSecond = flowUnit.ends_with("/s");
    return perSecond ? flowUnit.substr(0, flowUnit.size() - 2) : flowUnit + "·s";
}

Spirometer::Spirometer(const DriverExports& exports, wxCriticalSection& section)
    : Driver(exports), Section(section) {
    Driver.DoMesureSpiro(true);
    if (!Driver.StartThreadSpiro(&Mutex, &Condition, 0, 0.0, &Section)) {
        throw HostError(Translated("The driver does not start its spirometer."));
    }
}

Spirometer::~Spirometer() {
    Driver.StopThreadSpiro();
    Driver.DoMesureSpiro(false);
}

std::optional<FlowReading> NextReading(Spirometer& spirometer, unsigned long milliseconds) {
    {
        const wxCriticalSectionLocker section(spirometer.Section);
        CheckAdapters(spirometer.Driver);
    }
    tSpiroData data{};
    if (spirometer.Condition.WaitTimeout(milliseconds) != wxCOND_NO_ERROR ||
        !spirometer.Driver.LectureDonneesSpiro(&data) || data.NbEchantillons != 1) {
        return std::nullopt;
    }
    const tSpiroSample& sample = data.Echantillons[0];
    constexpr double secondsPerUs = 1e-6;
    FlowReading& last = spirometer.Last;
    last = {.TimeSec = last.TimeSec + sample.DureeUs * secondsPerUs,
            .Flow = sample.Sens * sample.Debit,
            .VolumeOut = last.VolumeOut + sample.VolumePositif,
            .VolumeIn = last.VolumeIn + sample.VolumeNegatif};
    return last;
}

void FollowFlow(Spirometer& spirometer, double seconds, const GoesOn& goesOn,
                const std::function<bool(const FlowReading&)>& take) {
    constexpr unsigned long patienceMs = 50;
    const double begin = DriverSeconds(spirometer.Driver);
    bool wanted = true;
    while (wanted && goesOn() && DriverSeconds(spirometer.Driver) - begin < seconds) {
        if (const auto reading = NextReading(spirometer, patienceMs)) {
            wanted = take(*reading);
        }
    }
}

} // namespace orvane
