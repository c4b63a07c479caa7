#include "tests/support/scripted_console.h"

#include <limits>
#include <utility>

tCalibreDesc Calibre(std::string_view name, float min, float max) {
    tCalibreDesc calibre{};
    SetText(calibre.Nom, name);
    SetText(calibre.Format, "%+6.2f");
    calibre.Min = min;
    calibre.Max = max;
    return calibre;
}

ScriptedFunction Function(std::string_view name, std::string_view quantity, std::string_view unit,
                          std::vector<tCalibreDesc> calibres) {
    ScriptedFunction function;
    SetText(function.Desc.Nom, name);
    SetText(function.Desc.Grandeur, quantity);
    SetText(function.Desc.Unite, unit);
    function.Calibres = std::move(calibres);
    return function;
}

ScriptedChannel PlainChannel(std::string_view name, uint8_t genre, uint8_t sens) {
    ScriptedChannel channel;
    SetText(channel.Desc.Nom, name);
    channel.Desc.Genre = genre;
    channel.Desc.Sens = sens;
    channel.Desc.PeriodeDefautNs = 1'000'000;
    return channel;
}

ScriptedChannel InputChannel(std::string_view name, float min, float max) {
    ScriptedChannel channel = PlainChannel(name, 0, 1);
    channel.Functions.push_back(Function("Voltage", "u", "V", {Calibre("Range", min, max)}));
    return channel;
}

ScriptedChannel OutputChannel(std::string_view name, float min, float max) {
    ScriptedChannel channel = InputChannel(name, min, max);
    channel.Desc.Sens = 0;
    return channel;
}

ScriptedChannel AdjustmentChannel(std::string_view text, std::string_view label) {
    ScriptedChannel channel = PlainChannel("Adjustment", 1, 0);
    channel.Functions.push_back(Function("Adjustment", "", "", {}));
    channel.Text = text;
    SetText(channel.Desc.Description, label);
    return channel;
}

ScriptedChannel StateChannel(std::string_view text, std::string_view states) {
    ScriptedChannel channel = AdjustmentChannel(text, states);
    channel.Desc.Sens = 1;
    return channel;
}

ScriptedAdapter Adapter(std::string_view reference, std::vector<ScriptedChannel> channels,
                        uint32_t kind) {
    ScriptedAdapter adapter;
    SetText(adapter.Desc.Reference, reference);
    adapter.Desc.ValeurAdaptateur = kind;
    adapter.Channels = std::move(channels);
    return adapter;
}

std::unique_lock<std::recursive_mutex> ScriptedConsole::Lock() {
    // Shared by the test and by every thread that is on the port.
    static std::recursive_mutex mutex;
    return std::unique_lock(mutex);
}

void ScriptedConsole::SetValue(uint8_t connector, uint8_t channel, double value) {
    const auto lock = Lock();
    Connectors.at(connector).Channels.at(channel).Value = value;
}

std::vector<std::string> ScriptedConsole::TakeCalls() {
    const auto lock = Lock();
    return std::exchange(Calls, {});
}

std::vector<std::string> ScriptedConsole::CallsOf(std::string_view prefix) const {
    const auto lock = Lock();
    std::vector<std::string> found;
    std::copy_if(Calls.begin(), Calls.end(), std::back_inserter(found),
                 [&](const std::string& call) { return call.starts_with(prefix); });
    return found;
}

void ScriptedConsole::Fail(const std::string& operation, int times) {
    const auto lock = Lock();
    Failing[operation] = times;
}

void ScriptedConsole::FailCall(std::size_t n) {
    const auto lock = Lock();
    FirstFailing = LastFailing = Count + n;
}

void ScriptedConsole::FailFrom(std::size_t n) {
    const auto lock = Lock();
    FirstFailing = Count + n;
    LastFailing = std::numeric_limits<std::size_t>::max();
}

void ScriptedConsole::FailNothing() {
    const auto lock = Lock();
    Failing.clear();
    LastFailing = 0;
}

// The driver may hold a lock of its own around a port call and take the same one in a callback, so
// the console holds none while it calls back.
template <typename Callback, typename... Args>
static void Tell(const Callback& registered, Args... args) {
    auto lock = ScriptedConsole::Lock();
    const Callback callback = registered;
    lock.unlock();
    if (callback) {
        callback(args...);
    }
}

void ScriptedConsole::Plug(uint8_t connector, ScriptedAdapter adapter) {
    auto lock = Lock();
    Connectors[connector] = std::move(adapter);
    lock.unlock();
    Plug(connector);
}

void ScriptedConsole::Plug(uint8_t connector) {
    Tell(PlugCallback, connector, true);
}

void ScriptedConsole::Unplug(uint8_t connector) {
    auto lock = Lock();
    Connectors.erase(connector);
    lock.unlock();
    Tell(PlugCallback, connector, false);
}

void ScriptedConsole::RadioEvent(uint8_t id, tRadioDeviceType type, bool connected) {
    Tell(RadioCallback, id, type, connected);
}

bool ScriptedConsole::Enter(const char* operation, std::string text) {
    auto lock = Lock();
    const std::size_t number = ++Count;
    if (Recording) {
        Calls.push_back(std::move(text));
    }
    lock.unlock();
    Tell(OnCall, operation);
    lock.lock();
    const auto named = Failing.find(std::string_view(operation));
    const bool byName = named != Failing.end() && named->second != 0;
    if (byName && named->second > 0) {
        --named->second;
    }
    return !byName && (number < FirstFailing || number > LastFailing);
}
