#include "hosts/orvane/commands/json_texts.h"

#include "hosts/session/acquisition_request.h"
#include "hosts/session/console_identity.h"
#include "hosts/session/sample_series.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <chrono>

namespace orvane {

namespace {

using Json = nlohmann::ordered_json;

constexpr int indent = 2;
constexpr int onOneLine = -1;

std::string Text(const Json& json, int indentation) {
    return json.dump(indentation, ' ', false, Json::error_handler_t::replace) + "\n";
}

Json ChannelObject(const ChannelInfo& channel) {
    return {
        {"index", channel.Index},
        {"name", channel.Name},
        {"connector", channel.Connector},
        {"channel", channel.Channel},
        {"quantity", channel.Quantity},
        {"unit", channel.Unit},
        {"min", channel.Min},
        {"max", channel.Max},
        {"calibres", channel.Calibres},
        {"calibre", channel.Calibre},
        {"defaultPeriodSec", channel.DefaultPeriodSec},
        {"shortestPeriodSec", channel.ShortestPeriodSec},
        {"reference", channel.Reference},
        {"code", channel.Code},
    };
}

} // namespace

std::string InfoJson(const DriverExports& driver, const std::string& library) {
    const int inputs = driver.CombienDeCanauxEnEntree(); // The other two counts follow from it.
    Json info{{"library", library}};
    for (const IdentityText& text : IdentityTexts(driver)) {
        info[Json::json_pointer(text.Path)] = TextOf(text.Text);
    }
    info.update({
        {"shortestPeriodSec", driver.GetMinPas()},
        {"longestPeriodSec", LongestPeriodSec(driver)},
        {"reportedLongestPeriodSec", driver.GetMaxDtInBuffMode()},
        {"preTriggerPoints", driver.GetNbPointPreSynchro()},
        {"inputResolution", driver.GetInResolution()},
        {"outputResolution", driver.GetOutResolution()},
        {"outputMin", driver.GetOutValMin()},
        {"outputMax", driver.GetOutValMax()},
        {"parameter3", driver.GetParameter(3)},
        {"parameter4", driver.GetParameter(4)},
        {"inputChannels", inputs},
        {"triggerChannels", driver.CombienDeCanauxDeSynchro()},
        {"outputChannels", driver.CombienDeCanauxEnSortie()},
    });
    return Text(info, indent);
}

std::string ChannelsJson(const std::vector<ChannelInfo>& channels) {
    Json list = Json::array();
    for (const ChannelInfo& channel : channels) {
        list.push_back(ChannelObject(channel));
    }
    return Text(list, indent);
}

std::string ValuesJson(const DriverExports& driver, const std::vector<ChannelInfo>& channels) {
    const std::chrono::duration<double> now = std::chrono::system_clock::now().time_since_epoch();
    Json values = Json::array();
    for (const ChannelInfo& channel : channels) {
        values.push_back(Json{{"index", channel.Index},
                              {"name", channel.Name},
                              {"value", driver.QuelValeurPour(channel.Index)},
                              {"unit", channel.Unit}});
    }
    return Text(Json{{"unixTimeSec", now.count()}, {"channels", values}}, onOneLine);
}

std::string RunJson(const std::vector<ChannelInfo>& channels, const AcquisitionRecording& recording,
                    const std::vector<Samples>& samples) {
    constexpr std::array<const char*, 3> ends{"full", "interrupted", "adaptersChanged"};
    const size_t all = samples.front().size();
    const size_t before = std::min(recording.PreTriggerPoints, all);
    Json run{{"periodSec", recording.PeriodSec},
             {"points", all - before},
             {"preTriggerPoints", before},
             {"end", ends.at(static_cast<size_t>(recording.End))},
             {"channels", Json::array()}};
    for (size_t i = 0; i < channels.size(); ++i) {
        Json channel{
            {"index", channels[i].Index}, {"name", channels[i].Name}, {"unit", channels[i].Unit}};
        if (all > 0) {
            const SeriesSummary summary = Summarise(samples[i]);
            channel.update({{"min", summary.Min}, {"mean", summary.Mean}, {"max", summary.Max}});
        } else {
            channel.update({{"min", nullptr}, {"mean", nullptr}, {"max", nullptr}});
        }
        run["channels"].push_back(channel);
    }
    return Text(run, onOneLine);
}

std::string GatesJson(const GateStates& states) {
    return Text(
        Json{{"forks", states.Forks}, {"doorClosed", states.DoorClosed}, {"gates", states.Gates}},
        onOneLine);
}

std::string GateRunJson(int32_t forks, const std::vector<double>& raysSec, bool doorClosed) {
    return Text(Json{{"forks", forks}, {"raysSec", raysSec}, {"doorClosed", doorClosed}},
                onOneLine);
}

std::string RadioJson(const RadioNetwork& network) {
    Json radio{{"channel", network.Channel},
               {"level", nullptr}, // The driver keeps it to itself.
               {"mode", network.Pilot ? "pilot" : "closed"},
               {"pods", Json::array()}};
    for (const Pod& pod : network.Pods) {
        radio["pods"].push_back({{"id", pod.Id}, {"accepted", pod.Accepted}});
    }
    return Text(radio, indent);
}

std::string FlowJson(const FlowReading& reading) {
    return Text(Json{{"timeSec", reading.TimeSec},
                     {"flow", reading.Flow},
                     {"volumeIn", reading.VolumeIn},
                     {"volumeOut", reading.VolumeOut}},
                onOneLine);
}

std::string ForcedBreathJson(const std::optional<ForcedBreath>& best) {
    Json json{{"fvc", nullptr}, {"fev1", nullptr}, {"pef", nullptr}};
    if (best) {
        json.update({{"fvc", best->Fvc}, {"fev1", best->Fev1}, {"pef", best->Pef}});
    }
    return Text(json, onOneLine);
}

} // namespace orvane
