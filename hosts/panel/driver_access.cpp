#include "hosts/panel/driver_access.h"

#include "hosts/session/host_error.h"

#include <chrono>

namespace orvane {

namespace {

/// Later settings over earlier ones.
void Merge(ChannelSetup& into, const ChannelSetup& setup) {
    const auto take = [](auto& old, const auto& given) {
        if (given) {
            old = given;
        }
    };
    take(into.Function, setup.Function);
    take(into.Calibre, setup.Calibre);
    take(into.Ampli, setup.Ampli);
    take(into.Offset, setup.Offset);
    take(into.Quantity, setup.Quantity);
    take(into.Unit, setup.Unit);
}

} // namespace

ChannelKey KeyOf(const ChannelInfo& channel) {
    return {channel.Reference, channel.Connector, channel.Channel};
}

DriverAccess::DriverAccess(DriverMessages& messages, DriverOptions options)
    : Options(std::move(options)) {
    try {
        Session = OpenDriver(Options);
    } catch (const HostError& error) {
        std::string sentence = error.what();
        for (const wxString& text : messages.Texts) {
            sentence += " (" + text.utf8_string() + ")";
        }
        throw HostError(sentence, error.Kind);
    }
}

DriverAccess::~DriverAccess() {
    if (Call.valid()) {
        Call.wait();
    }
}

bool DriverAccess::IsBusy() const {
    return Call.valid() || PageIsBusy();
}

void DriverAccess::CallInBackground(std::function<void(const DriverExports&)> call,
                                    std::function<void()> done) {
    Done = std::move(done);
    Call = std::async(std::launch::async, [this, call = std::move(call)] {
        const wxCriticalSectionLocker lock(Section);
        call(Session->Driver.Exports);
    });
}

void DriverAccess::Tick() {
    if (Call.valid() && Call.wait_for(std::chrono::seconds(0)) == std::future_status::ready) {
        Call.get();
        std::exchange(Done, nullptr)();
    }
}

void DriverAccess::Enumerate() {
    const DriverTurn turn(*this);
    Channels = EnumerateChannels(turn.Driver);
    Delivered = Channels;
    Values.clear();
    GiveChoices();
}

void DriverAccess::GiveChoices() {
    for (const ChannelInfo& channel : std::vector(Channels)) {
        const auto choice = Choices.find(KeyOf(channel));
        if (choice == Choices.end()) {
            continue;
        }
        try {
            Apply(channel.Index, choice->second.Setup);
        } catch (const HostError&) { // Another adapter of the same kind may have other calibres.
            choice->second.Setup = {};
            Apply(channel.Index, {});
        }
    }
}

bool DriverAccess::AreAdaptersSame() {
    const DriverTurn turn(*this);
    turn->GetNombreDeFourcheMaxPortimetre(); // Counts the gates only if it notes the change.
    const bool same = turn->VerifCanaux();
    const int changes = turn->GetEtatVerifCanaux();
    return std::exchange(Changes, changes) == changes && same;
}

void DriverAccess::SetUp(int channel, const ChannelSetup& setup) {
    const auto index = static_cast<size_t>(channel);
    ChannelSetup chosen = setup.Function ? ChannelSetup{} : ChoiceOf(Channels.at(index)).Setup;
    Merge(chosen, setup);
    Choose(channel, chosen);
}

void DriverAccess::SetScale(int channel, const ChannelSetup& setup) {
    ChannelSetup chosen = setup;
    const ChannelSetup& before = ChoiceOf(Channels.at(static_cast<size_t>(channel))).Setup;
    chosen.Function = before.Function;
    chosen.Calibre = before.Calibre;
    Choose(channel, chosen);
}

void DriverAccess::Choose(int channel, const ChannelSetup& setup) {
    CheckScale(setup);
    ChannelSetup& kept = ChoiceOf(Channels.at(static_cast<size_t>(channel))).Setup;
    try {
        Apply(channel, setup);
    } catch (const HostError&) {
        Apply(channel, kept);
        throw;
    }
    kept = setup;
    ChannelSetUp(channel);
}

/// Function and calibre first: the limits as delivered are those without a scale.
void DriverAccess::Apply(int channel, const ChannelSetup& setup) {
    const DriverTurn turn(*this);
    const auto index = static_cast<size_t>(channel);
    ChannelSetup scale = setup;
    scale.Function.reset();
    scale.Calibre.reset();
    ResetScale(turn.Driver, channel);
    SetUpChannel(turn.Driver, channel, {.Function = setup.Function, .Calibre = setup.Calibre});
    Delivered[index] = DescribeChannel(turn.Driver, channel);
    SetUpChannel(turn.Driver, channel, scale);
    Channels[index] = DescribeChannel(turn.Driver, channel);
}

void DriverAccess::Measure() {
    const DriverTurn turn(*this);
    Values.clear();
    for (const ChannelInfo& channel : Channels) {
        Values.push_back(turn->QuelValeurPour(channel.Index));
    }
}

ChannelChoice& DriverAccess::ChoiceOf(const ChannelInfo& channel) {
    return Choices[KeyOf(channel)];
}

DriverTurn::DriverTurn(DriverAccess& access)
    : Driver(access.Session->Driver.Exports), Section(access.Section) {
    Section.Enter();
}

DriverTurn::~DriverTurn() {
    Section.Leave();
}

} // namespace orvane
