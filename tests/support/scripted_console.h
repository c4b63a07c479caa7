#pragma once

/// \file
/// A console for tests: its tree, texts, images, memory, answers and failures are what a test sets,
/// and every call on the port is recorded.
///
/// A test sets the fields of Console, drives the library and looks at the recorded calls. An
/// operation that a test said nothing about succeeds. Fields are set while no other thread is on
/// the port, or under Console.Lock(); the functions of ScriptedConsole lock by themselves.

#include "console/console_port.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// \name The tree
/// A count or size of 0 in a Desc is told as the true one, that of the vector or text beside it.
/// Any other is told as it stands, so a test that wants a lie sets it. The accessors go by what is
/// there.
/// @{
struct ScriptedFunction {
    tFunctionDesc Desc{};
    std::vector<tCalibreDesc> Calibres;
    std::vector<uint8_t> Image;
};

struct ScriptedChannel {
    tChannelDesc Desc{};
    std::vector<ScriptedFunction> Functions;
    std::string Text;   ///< The text block.
    double Value = 0.0; ///< What OVReadValue measures, and OVAutoGetPoint without Console.Sample.
};

struct ScriptedAdapter {
    tAdapterDesc Desc{};
    std::vector<ScriptedChannel> Channels;
};
/// @}

/// \name Building the tree
/// @{

/// Writes a text field. A text as long as the field or longer fills it and leaves no terminator.
template <std::size_t N> void SetText(char (&field)[N], std::string_view text) {
    const std::size_t length = text.substr(0, N).copy(field, N);
    std::fill(field + length, field + N, '\0');
}

tCalibreDesc Calibre(std::string_view name, float min, float max);
ScriptedFunction Function(std::string_view name, std::string_view quantity, std::string_view unit,
                          std::vector<tCalibreDesc> calibres);
/// A channel of any kind, without functions; its default period is 1 ms.
ScriptedChannel PlainChannel(std::string_view name, uint8_t genre, uint8_t sens);
/// A measuring channel with one function, in V, of one calibre.
ScriptedChannel InputChannel(std::string_view name, float min, float max);
/// An analog output with one function, in V, of one calibre; the name decides whether it counts.
ScriptedChannel OutputChannel(std::string_view name, float min, float max);
/// A channel that takes the values of an adjustment; `text` is its text block.
ScriptedChannel AdjustmentChannel(std::string_view text, std::string_view label = {});
/// A channel that gives back the state of an adjustment; `states` has bars between its labels.
ScriptedChannel StateChannel(std::string_view text, std::string_view states = {});
ScriptedAdapter Adapter(std::string_view reference, std::vector<ScriptedChannel> channels,
                        uint32_t kind = 0);
/// @}

struct ScriptedConsole {
    /// \name What the console is and answers
    /// @{
    std::map<uint8_t, ScriptedAdapter> Connectors{{0, {}}}; ///< 0: the console itself.
    bool AcceptBeyond = false; ///< Beyond the tree: true with nothing written, in place of false.
    uint16_t Model = 12304;
    int InterfaceCount = 1;
    uint8_t InterfacesFound = 1;
    tInterfaceDesc InterfaceDesc{}; ///< NbVoiesEnumerees 0 is told as the channels of connector 0.
    std::vector<uint8_t> Memory;
    std::optional<uint32_t> MemorySize; ///< Told in place of the true size.
    /// @}

    /// \name Acquisition, its log, and the radio
    /// @{
    std::optional<uint32_t> Dt;         ///< Applied period, ns; none: the configured one.
    std::optional<uint32_t> PointCount; ///< Samples so far; none: all that were configured.
    std::function<double(uint8_t connector, uint8_t channel, uint32_t index)> Sample;
    std::optional<uint32_t> PointsGot; ///< Told of a block; none: all that were asked for.
    uint8_t SynchroId = 1;
    std::vector<tLogEntry> Log;
    uint8_t PingReply = 0;
    /// @}

    /// Runs inside each call, after its record and before its answer, with no lock held.
    std::function<void(const std::string& operation)> OnCall;
    bool Recording = true; ///< False keeps no texts and no samples; calls are still counted.

    /// \name What the console was told
    /// @{
    uint32_t ConfiguredDt = 0;
    uint32_t ConfiguredPoints = 0;
    std::vector<std::vector<double>> DacLoads; ///< The samples of each OVDacLoad, in order.
    tPlugCallback PlugCallback = nullptr;
    tRadioCallback RadioCallback = nullptr;
    /// @}

    /// Keeps the port's other threads out; may be held around the functions below.
    [[nodiscard]] static std::unique_lock<std::recursive_mutex> Lock();
    /// Sets the value of a channel that exists.
    void SetValue(uint8_t connector, uint8_t channel, double value);

    /// \name Recorded calls, such as "OVSelectFunction(1, 0, 2)"
    /// Out-pointers and sample arrays are left out, texts stand in quotes, a callback is "callback"
    /// or "null", and a double has the fewest digits that read back exactly.
    /// @{
    std::vector<std::string> TakeCalls(); ///< Gives the calls since the last take.
    /// The calls since the last take whose text begins with `prefix`; takes nothing.
    std::vector<std::string> CallsOf(std::string_view prefix) const;
    /// @}

    /// \name Failures: the call gives false (OVCountInterfaces 0) and does nothing
    /// A call without result is counted but cannot fail.
    /// @{
    void Fail(const std::string& operation, int times = -1); ///< The next `times`; -1: for ever.
    void FailCall(std::size_t n); ///< The n-th call from now; 1: the next.
    void FailFrom(std::size_t n); ///< The n-th call from now and all after it.
    void FailNothing();           ///< Ends all failures.
    /// @}

    /// \name Events, told to the registered callback, if there is one, on the caller's thread
    /// @{
    void Plug(uint8_t connector, ScriptedAdapter adapter); ///< Puts the adapter there first.
    void Plug(uint8_t connector);                          ///< The event alone.
    void Unplug(uint8_t connector);                        ///< Takes the adapter out first.
    void RadioEvent(uint8_t id, tRadioDeviceType type, bool connected);
    /// @}

    /// Records a call and tells whether it is to succeed; for the port.
    bool Enter(const char* operation, std::string text);

private:
    std::vector<std::string> Calls;
    std::size_t Count = 0;
    std::map<std::string, int, std::less<>> Failing; ///< Failures left by operation; -1: for ever.
    std::size_t FirstFailing = 1;                    ///< Numbers of the calls that fail.
    std::size_t LastFailing = 0;
};

/// The console behind the port. `Console = {}` makes a new one, as between two rounds of a sweep.
inline ScriptedConsole Console;
