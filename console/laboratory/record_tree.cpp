#include "console/laboratory/record_tree.h"

#include "console/laboratory/drawn_pictures.h"
#include "console/laboratory/scenario/gate_row.h"
#include "console/text_fields.h"

#include <cmath>
#include <numeric>

namespace orvane::laboratory {

namespace {

constexpr uint32_t gateAdapter = 21;
constexpr uint8_t input = 1;
constexpr uint8_t output = 0;

/// What `Genre` says of a channel.
enum Genre : uint8_t { measurement = 0, adjustment = 1, adjustmentValue = 2 };

uint32_t Nanoseconds(double seconds) {
    return static_cast<uint32_t>(std::llround(seconds * 1e9));
}

void TakePicture(FunctionNode& function, Picture picture) {
    function.Desc.Image.TailleImage = static_cast<uint32_t>(picture.Bytes.size());
    SetText(function.Desc.Image.TypeImage, picture.Format);
    function.Image = std::move(picture);
}

/// As many decimals as a thousandth of the range needs.
std::string ValueFormat(const Range& limits) {
    const double digits = std::ceil(3.0 - std::log10(limits.Max - limits.Min));
    return "%+." + std::to_string(static_cast<int>(std::clamp(digits, 0.0, 9.0))) + "f";
}

tCalibreDesc MakeCalibre(const Calibre& calibre) {
    tCalibreDesc desc{};
    SetText(desc.Nom, calibre.Name);
    SetText(desc.Format, ValueFormat(calibre.Limits));
    desc.Min = static_cast<float>(calibre.Limits.Min);
    desc.Max = static_cast<float>(calibre.Limits.Max);
    return desc;
}

FunctionNode MakeFunction(const Function& function) {
    FunctionNode node;
    SetText(node.Desc.Nom, function.Name);
    SetText(node.Desc.NomGrandeur, function.QuantityName);
    SetText(node.Desc.Grandeur, function.Symbol);
    SetText(node.Desc.Unite, function.Unit);
    TakePicture(node, function.Image.Bytes.empty() ? DrawFunction() : function.Image);
    node.Desc.TypeReglage = function.OwnAdjustment;
    node.Desc.NbCalibres = static_cast<uint8_t>(function.Calibres.size());
    for (const Calibre& calibre : function.Calibres) {
        node.Calibres.push_back(MakeCalibre(calibre));
    }
    node.Source = &function;
    return node;
}

/// A function that has nothing but its range: of outputs and adjustments.
FunctionNode MakePlainFunction(const Range& limits) {
    FunctionNode node;
    node.Desc.NbCalibres = 1;
    node.Calibres.push_back(MakeCalibre({"", limits}));
    return node;
}

void TakeFunctions(ChannelNode& channel, std::vector<FunctionNode> functions) {
    channel.Functions = std::move(functions);
    channel.Desc.NbFonctions = static_cast<uint8_t>(channel.Functions.size());
}

void TakeText(ChannelNode& channel, const std::string& text) {
    channel.Text = text;
    channel.Desc.TailleTexte = static_cast<uint32_t>(text.size());
}

ChannelNode MakeChannel(const Channel& channel) {
    ChannelNode node;
    SetText(node.Desc.Nom, channel.Name);
    node.Desc.Genre = measurement;
    node.Desc.Sens = input;
    node.Desc.TempsMinNs = Nanoseconds(channel.ShortestPeriod);
    node.Desc.PeriodeDefautNs = Nanoseconds(channel.DefaultPeriod);
    if (channel.Label) {
        TakeText(node, "Etiquette = " + std::to_string(*channel.Label) + "\r\n");
    }
    std::vector<FunctionNode> functions;
    for (const Function& function : channel.Functions) {
        functions.push_back(MakeFunction(function));
    }
    TakeFunctions(node, std::move(functions));
    return node;
}

ChannelNode MakeOutput(const Output& source) {
    ChannelNode node;
    node.Role = ChannelRole::Output;
    SetText(node.Desc.Nom, source.Name);
    node.Desc.Genre = measurement;
    node.Desc.Sens = output;
    node.Desc.TempsMinNs = Nanoseconds(source.Period);
    TakeFunctions(node, {MakePlainFunction(source.Limits)});
    return node;
}

/// \param valueChannel the channel that gives the value back, if there is one
ChannelNode MakeAdjustment(const Adjustment& source, std::optional<uint8_t> valueChannel) {
    ChannelNode node;
    node.Role = ChannelRole::Adjustment;
    SetText(node.Desc.Description, source.Label);
    node.Desc.Genre = adjustment;
    node.Desc.Sens = output;
    TakeText(node, "Reglage = " + std::to_string(source.Mode) + "\r\n");
    FunctionNode function = MakePlainFunction(source.Limits);
    if (valueChannel) {
        function.Desc.NbVoiesLiees = 1;
        function.Desc.VoieLiee = *valueChannel;
    }
    TakeFunctions(node, {function});
    return node;
}

/// A channel of an adapter of gates. Hosts find none of them among the inputs.
ChannelNode MakeGate(uint8_t number) {
    ChannelNode node;
    node.Role = std::ranges::find(gateChannels, number) != gateChannels.end() ? ChannelRole::Gate
                                                                              : ChannelRole::None;
    node.Desc.Genre = measurement;
    node.Desc.Sens = output;
    TakeFunctions(node, {MakePlainFunction({0.0, 1.0})});
    return node;
}

std::string Joined(const std::vector<std::string>& states) {
    std::string text;
    for (const std::string& state : states) {
        text += (&state == &states.front() ? "" : "|") + state;
    }
    return text;
}

ChannelNode MakeAdjustmentState(const Adjustment& source) {
    ChannelNode node;
    node.Role = ChannelRole::AdjustmentState;
    SetText(node.Desc.Description, Joined(source.States));
    node.Desc.Genre = adjustment;
    node.Desc.Sens = input;
    TakeText(node, "Reglage = " + std::to_string(source.Mode) + "\r\n");
    std::vector<FunctionNode> functions;
    for (const Picture& picture : source.Pictures) {
        functions.push_back(MakePlainFunction({0.0, 255.0}));
        const auto number = functions.size() - 1;
        TakePicture(functions.back(), picture.Bytes.empty() ? DrawState(number) : picture);
    }
    if (functions.empty()) {
        functions.push_back(MakePlainFunction({0.0, 255.0}));
    }
    TakeFunctions(node, std::move(functions));
    return node;
}

ChannelNode MakeAdjustmentValue(const Adjustment& source, uint8_t channel) {
    ChannelNode node;
    node.Role = ChannelRole::AdjustmentValue;
    node.Desc.Genre = adjustmentValue;
    node.Desc.Sens = input;
    FunctionNode function = MakePlainFunction(source.Limits);
    function.Desc.NbVoiesLiees = 1;
    function.Desc.VoieLiee = channel;
    TakeFunctions(node, {function});
    return node;
}

void AddAdjustment(std::vector<ChannelNode>& channels, const Adjustment& source) {
    constexpr uint8_t valueOnly = 1;
    constexpr uint8_t stateWithImage = 4;
    constexpr uint8_t stateNumber = 5;
    const bool hasState = source.Mode != valueOnly;
    const bool hasValue =
        source.Mode == valueOnly || source.Mode == stateWithImage || source.Mode == stateNumber;
    const auto valueChannel = static_cast<uint8_t>(channels.size() + (hasState ? 2 : 1));
    channels.push_back(
        MakeAdjustment(source, hasValue ? std::optional(valueChannel) : std::nullopt));
    if (hasState) {
        channels.push_back(MakeAdjustmentState(source));
    }
    if (hasValue) {
        channels.push_back(MakeAdjustmentValue(source, valueChannel));
    }
}

void NumberChannels(const Scenario& scenario, uint8_t connector, ConnectorNode& node) {
    node.Desc.NbVoies = static_cast<uint8_t>(node.Channels.size());
    for (size_t i = 0; i < node.Channels.size(); ++i) {
        node.Channels[i].Key = (uint32_t{connector} << 16U) | (static_cast<uint32_t>(i) << 8U);
        PrepareSelection(scenario, node.Channels[i]);
    }
}

/// The records of one adapter.
ConnectorNode BuildAdapter(const Scenario& scenario, const Adapter& adapter) {
    ConnectorNode node;
    node.Source = &adapter;
    SetText(node.Desc.Nom, adapter.Name);
    SetText(node.Desc.Reference, std::to_string(adapter.Reference));
    SetText(node.Desc.NumSerie, adapter.Serial);
    node.Desc.ValeurAdaptateur = adapter.Kind == AdapterKind::Gates ? gateAdapter : 0;
    for (const Channel& channel : adapter.Channels) {
        node.Channels.push_back(MakeChannel(channel));
    }
    if (adapter.Kind == AdapterKind::Gates) {
        for (uint8_t number = 0; number <= gateChannels.back(); ++number) {
            node.Channels.push_back(MakeGate(number));
        }
    }
    if (adapter.Kind == AdapterKind::Turbine) {
        node.Channels.front().Breathed = true;
    }
    if (adapter.Adjusted.Mode != 0) {
        AddAdjustment(node.Channels, adapter.Adjusted);
        node.Adjusted.Value = adapter.Adjusted.Initial;
    }
    NumberChannels(scenario, adapter.Connector, node);
    return node;
}

ConnectorNode BuildConsole(const Scenario& scenario) {
    ConnectorNode console;
    SetText(console.Desc.NumSerie, scenario.Console.Serial);
    for (const Output& source : scenario.Outputs) {
        console.Channels.push_back(MakeOutput(source));
    }
    NumberChannels(scenario, 0, console);
    return console;
}

} // namespace

std::vector<ConnectorNode> BuildConnectors(const Scenario& scenario) {
    std::vector<ConnectorNode> connectors;
    connectors.reserve(1 + scenario.Adapters.size());
    connectors.push_back(BuildConsole(scenario));
    for (const Adapter& adapter : scenario.Adapters) {
        connectors.push_back(BuildAdapter(scenario, adapter));
    }
    return connectors;
}

void PrepareSelection(const Scenario& scenario, ChannelNode& channel) {
    FunctionNode& function = SelectedFunction(channel);
    if (function.Source != nullptr) {
        const uint8_t number = channel.Desc.FonctionCourante;
        function.Signal =
            PrepareSignal(*function.Source, function.Source->Calibres[function.Desc.CalibreCourant],
                          scenario.Seed, channel.Key | number);
        if (channel.Breathed) {
            function.Signal.Breathed = PrepareBreath(scenario.Breathing);
        }
    }
}

} // namespace orvane::laboratory
