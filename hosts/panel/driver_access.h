#pragma once

#include "hosts/panel/driver_messages.h"
#include "hosts/session/channel_info.h"
#include "hosts/session/channel_setup.h"
#include "hosts/session/driver_session.h"

#include <wx/thread.h>

#include <functional>
#include <future>
#include <map>
#include <memory>

namespace orvane {

/// What the user chose for a channel. It is kept while the adapter is away, and given to the driver
/// again when it starts anew.
struct ChannelChoice {
    bool Checked = false;
    ChannelSetup Setup; ///< What was set; its channel is empty.
};

/// An adapter's channel: it is the same one wherever it stands in the list.
struct ChannelKey {
    int Reference = 0;
    int Connector = 0;
    int Channel = 0;

    auto operator<=>(const ChannelKey&) const = default;
};

ChannelKey KeyOf(const ChannelInfo& channel);

/// The window's one access to the driver, from its opening to its closing. Used on the toolkit's
/// main thread; each use of the driver is a DriverTurn.
class DriverAccess {
public:
    /// Opens the driver. Throws HostError if it does not open.
    /// \param messages those of the driver so far; they outlive the access
    DriverAccess(DriverMessages& messages, DriverOptions options);
    ~DriverAccess();
    DriverAccess(const DriverAccess&) = delete;
    DriverAccess& operator=(const DriverAccess&) = delete;

    /// Whether a call goes on in the background. The driver must not be called meanwhile.
    bool IsBusy() const;
    /// Makes a long call in the background and then calls `done` from a tick. One at a time.
    void CallInBackground(std::function<void(const DriverExports&)> call,
                          std::function<void()> done);
    /// Ends a call that has returned.
    void Tick();

    /// Enumerates the channels and gives them what was chosen for them.
    void Enumerate();
    /// Gives the channels what was chosen for them: another enumeration has taken it from them.
    void GiveChoices();
    /// Whether the adapters are those of the last look, whoever noted a change since.
    bool AreAdaptersSame();
    /// Applies settings to a channel beside those from before, keeps them, and describes the
    /// channel anew. Another function begins without scale. Throws HostError if the console
    /// refuses, and all stays as it was.
    void SetUp(int channel, const ChannelSetup& setup);
    /// Gives a channel this scale and these symbols, and those that it was delivered with where
    /// there are none.
    void SetScale(int channel, const ChannelSetup& setup);
    /// Reads the value of each channel.
    void Measure();
    ChannelChoice& ChoiceOf(const ChannelInfo& channel);

    DriverOptions Options;
    std::vector<ChannelInfo> Channels; ///< Of the last enumeration.
    /// The same without the scale and symbols that were chosen for them.
    std::vector<ChannelInfo> Delivered;
    std::vector<double> Values; ///< One for each channel, or none yet.
    std::map<ChannelKey, ChannelChoice> Choices;
    /// Function, calibre, scale or symbols of a channel are others now.
    std::function<void(int channel)> ChannelSetUp = [](int) {};
    /// Whether a page measures in a way that allows no other use.
    std::function<bool()> IsMeasuring = [] { return false; };
    /// A page's call in the background, beside those of CallInBackground.
    std::function<bool()> PageIsBusy = [] { return false; };

private:
    friend struct DriverTurn;

    void Choose(int channel, const ChannelSetup& setup);
    void Apply(int channel, const ChannelSetup& setup);

    std::unique_ptr<DriverSession> Session;
    wxCriticalSection Section; ///< Also of the spirometer's thread.
    std::future<void> Call;
    std::function<void()> Done;
    int Changes = 0; ///< Of the adapters, at the last look.
};

/// A turn at the driver, as long as it lives: the spirometer's thread waits meanwhile. Turns may be
/// nested.
struct DriverTurn {
    explicit DriverTurn(DriverAccess& access);
    DriverTurn(const DriverTurn&) = delete;
    DriverTurn& operator=(const DriverTurn&) = delete;
    ~DriverTurn();

    const DriverExports* operator->() const {
        return &Driver;
    }

    const DriverExports& Driver;
    wxCriticalSection& Section; ///< For the spirometer's thread.
};

} // namespace orvane
