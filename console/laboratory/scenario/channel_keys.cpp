// Channels, their functions and calibres.

#include "console/laboratory/scenario/scenario_tables.h"

namespace orvane::laboratory {

namespace {

void ReadQuantity(Reading& reading, const Value& value, const KeyText& key, Function& function) {
    const List* list = ListOf(reading, value, key, 2, 3);
    const std::array texts{&function.Symbol, &function.Unit, &function.QuantityName};
    for (size_t i = 0; list != nullptr && i < list->size(); ++i) {
        ReadInto(reading, (*list)[i], {key.Name, "list of texts", {}}, *texts[i]);
    }
}

constexpr std::array calibreRows{
    Plain<&Calibre::Name>("name", {}, R"(its range and the unit, "-12 … 12 V")"),
    Plain<&Calibre::Limits>("range", {}, required),
};
constexpr KeyTable<Calibre> calibreKeys{"calibres", calibreRows};

void ReadCalibres(Reading& reading, const Value& value, const KeyText& key, Function& function) {
    const List* list = ListOf(reading, value, key, 1, longestList);
    for (size_t i = 0; list != nullptr && i < list->size(); ++i) {
        Calibre& calibre = function.Calibres.emplace_back();
        const Value& element = (*list)[i];
        if (std::holds_alternative<Table>(element.Content)) {
            ReadTable(reading, element, calibreKeys, calibre);
        } else {
            ReadInto(reading, element, {key.Name, "list of ranges [min, max]", {}}, calibre.Limits);
        }
        if (calibre.Name.empty()) {
            calibre.Name = NumberText(calibre.Limits.Min) + " … " + NumberText(calibre.Limits.Max) +
                           (function.Unit.empty() ? "" : " " + function.Unit);
            calibre.Name.resize(std::min(calibre.Name.size(), longestText));
        }
    }
}

constexpr std::array driftRows{
    Plain<&Noise::DriftRms>("rms", NotNegative),
    Plain<&Noise::DriftTime>("time", {.Min = 1e-6, .Max = longestTime, .Unit = "s"}),
};
constexpr KeyTable<Noise> driftKeys{"drift", driftRows};

/// Its numbers stand in the noise itself.
void ReadDrift(Reading& reading, const Value& value, const KeyText& /*key*/, Noise& noise) {
    ReadTable(reading, value, driftKeys, noise);
}

constexpr std::array noiseRows{
    Plain<&Noise::White>("white", NotNegative),
    Plain<&Noise::Flicker>("flicker", NotNegative),
    Key<Noise>{{"drift", "table", "none"}, ReadDrift, nullptr, DescribeKeys<driftKeys>},
    Plain<&Noise::Bits>("bits", {.Min = 0, .Max = 24}),
};
constexpr KeyTable<Noise> noiseKeys{"noise", noiseRows};

constexpr std::array functionRows{
    Plain<&Function::Name>("name", {}, "the name of its quantity, or else of its channel"),
    Key<Function>{{"quantity", "list [symbol, unit] or [symbol, unit, name]", R"(["", "", ""])"},
                  ReadQuantity},
    Key<Function>{{"calibres", "list of ranges [min, max] or of tables", required},
                  ReadCalibres,
                  nullptr,
                  DescribeKeys<calibreKeys>},
    Key<Function>{{"signal", "list of terms", "[]: 0"}, ReadSignal, nullptr, DescribeSignal},
    Subtable<&Function::Added, noiseKeys>("noise"),
    Plain<&Function::Image>("picture", {}, "the adapter's"),
    Plain<&Function::OwnAdjustment>("own_adjustment", {.Min = 0, .Max = 3}),
};
constexpr KeyTable<Function> functionKeys{"function", functionRows};
/// What a channel says of its only function; `name` is the channel's.
constexpr KeyTable<Function> onlyFunctionKeys{"channel", std::span(functionRows).subspan(1)};

void ReadFunctions(Reading& reading, const Value& value, const KeyText& key, Channel& channel) {
    if (ListOf(reading, value, key, 1, longestList) != nullptr) {
        ReadTables(reading, value, key, functionKeys, channel.Functions);
    }
}

/// Concerns all functions, so it is read behind them.
void ReadAlign(Reading& reading, const Value& value, const KeyText& key, Channel& channel) {
    Align align = Align::Clock;
    ReadInto(reading, value, key, align);
    for (Function& function : channel.Functions) {
        function.Zero = align;
    }
}

constexpr Bounds ChannelPeriod{.Min = shortestPeriod, .Max = 4.0, .Unit = "s"};

constexpr std::array channelRows{
    Plain<&Channel::Name>("name", {}, "the adapter's"),
    Plain<&Channel::Label>("label", {.Min = -2147483648.0, .Max = 2147483647.0}, "none"),
    Plain<&Channel::ShortestPeriod>("shortest_period", ChannelPeriod),
    Plain<&Channel::DefaultPeriod>("default_period", ChannelPeriod,
                                   "0.001, or the shortest if that is longer"),
    Key<Channel>{{"function", "list of at least 1 table", "none: the channel's own keys"},
                 ReadFunctions,
                 nullptr,
                 DescribeKeys<functionKeys>},
    Key<Channel>{{"align", R"(word: "clock" or "run")", R"("clock")"}, ReadAlign},
};
constexpr KeyTable<Channel> channelKeys{"channel", channelRows};

void CheckPeriods(Reading& reading, const Table& table, Channel& channel) {
    const Member* period = Find(table, "default_period");
    if (channel.DefaultPeriod >= channel.ShortestPeriod) {
        return;
    }
    if (period != nullptr) {
        Report(reading, period->Held.At,
               "the default period is shorter than the shortest one, " +
                   NumberText(channel.ShortestPeriod) + " s");
    }
    channel.DefaultPeriod = channel.ShortestPeriod;
}

void ReadChannel(Reading& reading, const Value& value, Channel& channel) {
    const Table* table = TableOf(reading, value, {"channel", "list of tables", {}});
    if (table == nullptr) {
        return;
    }
    std::vector<std::string_view> known = NamesOf(onlyFunctionKeys.Keys);
    if (Find(*table, "function") == nullptr) {
        ReadKeys(reading, *table, value.At, onlyFunctionKeys, channel.Functions.emplace_back());
    } else {
        for (const std::string_view name : known) {
            if (const Member* beside = Find(*table, name); beside != nullptr) {
                Report(reading, beside->At,
                       Quoted(name) + " belongs into the tables of \"function\", not beside them");
            }
        }
    }
    ReadKeys(reading, *table, value.At, channelKeys, channel);
    std::ranges::copy(NamesOf(channelKeys.Keys), std::back_inserter(known));
    ReportUnknown(reading, "channel", *table, known);
    CheckPeriods(reading, *table, channel);
}

} // namespace

void ReadChannels(Reading& reading, const Value& value, const KeyText& key, Adapter& adapter) {
    // An adjustment needs up to three channels of its own beside these.
    const List* list = ListOf(reading, value, key, 0, longestList - 3);
    for (size_t i = 0; list != nullptr && i < list->size(); ++i) {
        ReadChannel(reading, (*list)[i], adapter.Channels.emplace_back());
    }
}

void DescribeChannels(Descriptions& all) {
    Describe(all, channelKeys); // Those of its only function are the function's.
}

} // namespace orvane::laboratory
