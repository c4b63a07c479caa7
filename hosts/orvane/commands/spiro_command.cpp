#include "hosts/orvane/commands/commands.h"
#include "hosts/orvane/terminal/interrupt.h"
#include "hosts/orvane/terminal/standard_output.h"
#include "hosts/session/channel_info.h"
#include "hosts/session/durations.h"
#include "hosts/session/host_error.h"
#include "hosts/session/number_text.h"

#include <unistd.h>

#include <chrono>
#include <iostream>
#include <limits>

namespace orvane {

namespace {

struct SpiroOptions {
    std::string Seconds; ///< Empty: until Ctrl-C.
};

/// The driver's spirometer thread at work, with what the host gives it. Its end stops the thread.
class Spirometer {
public:
    explicit Spirometer(const DriverExports& exports) : driver(exports) {
        driver.DoMesureSpiro(true);
        if (!driver.StartThreadSpiro(&mutex, &condition, 0, 0.0, &section)) {
            throw HostError("The driver does not start its spirometer.");
        }
    }
    ~Spirometer() {
        driver.StopThreadSpiro();
        driver.DoMesureSpiro(false);
    }
    Spirometer(const Spirometer&) = delete;
    Spirometer& operator=(const Spirometer&) = delete;

    /// Hands each sample to `take` until it says false, the time is over or an interrupt comes. The
    /// thread waits for the mutex before it tells of the next sample, so `take` may be slow.
    template <class Take> void Follow(double seconds, Take take) {
        using Clock = std::chrono::steady_clock;
        constexpr unsigned long patienceMs = 50;
        const auto begin = Clock::now();
        const wxMutexLocker lock(mutex);
        bool wanted = true;
        while (wanted && !Interrupted() &&
               std::chrono::duration<double>(Clock::now() - begin).count() < seconds) {
            if (!driver.VerifCanaux()) {
                throw HostError("The adapters of the console changed.");
            }
            tSpiroData told{};
            if (condition.WaitTimeout(patienceMs) == wxCOND_NO_ERROR &&
                driver.LectureDonneesSpiro(&told) && told.NbEchantillons == 1) {
                wanted = take(told.Echantillons[0]);
            }
        }
    }

private:
    const DriverExports& driver;
    wxMutex mutex;
    wxCondition condition{mutex};
    wxCriticalSection section;
};

/// The unit of a flow times seconds: litres for litres a second.
std::string VolumeUnit(const std::string& flowUnit) {
    const bool perSecond = flowUnit.ends_with("/s");
    return perSecond ? flowUnit.substr(0, flowUnit.size() - 2) : flowUnit + "·s";
}

void ShowSpirometer(const DriverOptions& driverOptions, const SpiroOptions& options) {
    const double seconds = options.Seconds.empty() ? std::numeric_limits<double>::infinity()
                                                   : ParseWait("time", options.Seconds);
    CatchInterrupts();
    const auto session = OpenDriver(driverOptions);
    const DriverExports& driver = session->Driver.Exports;
    int32_t turbine = -1;
    if (driver.DetecteTurbineSpiro(&turbine) == 0) {
        throw HostError("This console has no spirometer turbine.");
    }
    const std::string flowUnit = TextOf(driver.QuelUnitePour(turbine));
    const std::string volumeUnit = VolumeUnit(flowUnit);
    const bool terminal = CanOverwrite(STDOUT_FILENO);
    double positive = 0.0;
    double negative = 0.0;
    Spirometer(driver).Follow(seconds, [&](const tSpiroSample& sample) {
        positive += sample.VolumePositif;
        negative += sample.VolumeNegatif;
        std::cout << (terminal ? "\r\x1b[K" : "") << "Flow "
                  << NumberText(sample.Sens * sample.Debit) << ' ' << flowUnit << "\tpositive "
                  << NumberText(positive) << ' ' << volumeUnit << "\tnegative "
                  << NumberText(negative) << ' ' << volumeUnit << (terminal ? "" : "\n");
        return FlushOrEnd();
    });
    std::cout << (terminal ? "\n" : "");
}

} // namespace

void AddSpiroCommand(CLI::App& command, const DriverOptions& driver) {
    auto options = std::make_shared<SpiroOptions>();
    command.add_option("--seconds", options->Seconds, "End after this time")->type_name("DURATION");
    command.callback([options, &driver] { ShowSpirometer(driver, *options); });
}

} // namespace orvane
