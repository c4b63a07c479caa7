// Adapters: what is plugged into the connectors.

#include "console/laboratory/scenario/scenario_tables.h"

namespace orvane::laboratory {

namespace {

constexpr uint32_t turbineReference = 482109;

/// Reads a list of texts, none of which holds what separates them in the console's record.
void ReadStates(Reading& reading, const Value& value, const KeyText& key, Adjustment& adjustment) {
    const List* list = ListOf(reading, value, key, 0, longestList);
    size_t length = 0;
    for (size_t i = 0; list != nullptr && i < list->size(); ++i) {
        std::string& state = adjustment.States.emplace_back();
        ReadInto(reading, (*list)[i], {key.Name, "list of texts", {}}, state);
        length += state.size() + 1;
        if (state.find('|') != std::string::npos) {
            Report(reading, (*list)[i].At, "the text of a state has no \"|\"");
        }
    }
    if (length > longestText + 1) {
        Report(reading, value.At,
               "the texts of \"states\" have at most " + std::to_string(longestText) +
                   " bytes together, with one between two");
    }
}

void ReadPictures(Reading& reading, const Value& value, const KeyText& key,
                  Adjustment& adjustment) {
    const List* list = ListOf(reading, value, key, 0, longestList);
    for (size_t i = 0; list != nullptr && i < list->size(); ++i) {
        ReadInto(reading, (*list)[i], {key.Name, "list of file names", {}},
                 adjustment.Pictures.emplace_back());
    }
}

constexpr std::array adjustmentRows{
    Plain<&Adjustment::Mode>("mode", {.Min = 1, .Max = 5}, "1"),
    Plain<&Adjustment::Label>("label"),
    Plain<&Adjustment::Limits>("range"),
    Plain<&Adjustment::Initial>("initial", {}, "0, or the limit nearest to it"),
    Plain<&Adjustment::Adds>("adds"),
    Key<Adjustment>{{"states", "list of texts", "[]"}, ReadStates},
    Key<Adjustment>{{"pictures", R"(list of file names, "" for a drawn one)", "[]"}, ReadPictures},
    Plain<&Adjustment::PresetTime>("preset_time", AnyTime),
};
constexpr KeyTable<Adjustment> adjustmentKeys{"adjustment", adjustmentRows};

/// What only some modes have.
struct ModeKey {
    std::string_view Key;
    uint8_t First;
    uint8_t Last;
};
constexpr std::array modeKeys{ModeKey{"states", 2, 4}, ModeKey{"pictures", 4, 4},
                              ModeKey{"preset_time", 2, 2}};

void CheckModeKeys(Reading& reading, const Table& table, const Adjustment& adjustment) {
    for (const ModeKey& only : modeKeys) {
        const Member* member = Find(table, only.Key);
        if (member != nullptr && (adjustment.Mode < only.First || adjustment.Mode > only.Last)) {
            const std::string first = std::to_string(only.First);
            Report(
                reading, member->At,
                Quoted(only.Key) + " belongs to mode " +
                    (only.First == only.Last ? first : first + " to " + std::to_string(only.Last)));
        }
    }
    const size_t states = adjustment.States.size();
    const size_t pictures = adjustment.Pictures.size();
    if (states != 0 && pictures != 0 && states != pictures) {
        Report(reading, Find(table, "pictures")->At,
               std::to_string(pictures) + " pictures for " + std::to_string(states) +
                   " states; each state has one");
    }
}

void ReadAdjustment(Reading& reading, const Value& value, const KeyText& /*key*/,
                    Adapter& adapter) {
    Adjustment& adjustment = adapter.Adjusted;
    adjustment.Mode = 1;
    ReadTable(reading, value, adjustmentKeys, adjustment);
    const auto* table = std::get_if<Table>(&value.Content);
    if (table == nullptr) {
        return;
    }
    CheckModeKeys(reading, *table, adjustment);
    const Member* initial = Find(*table, "initial");
    const double within =
        std::clamp(adjustment.Initial, adjustment.Limits.Min, adjustment.Limits.Max);
    if (initial != nullptr && within != adjustment.Initial) {
        Report(reading, initial->Held.At,
               NumberText(adjustment.Initial) + " lies outside the range of the adjustment");
    }
    adjustment.Initial = within;
}

void ReadForks(Reading& reading, const Value& value, const KeyText& key, Adapter& adapter) {
    const List* list = ListOf(reading, value, key, 0, 2);
    for (size_t i = 0; list != nullptr && i < list->size(); ++i) {
        const KeyText fork{key.Name, "list of pairs [first, second], rising and 0 or more (m)", {}};
        Range pair;
        ReadInto(reading, (*list)[i], fork, pair);
        if (pair.Min < 0.0) {
            ReportMismatch(reading, (*list)[i], fork);
        }
        adapter.Forks.push_back({pair.Min, pair.Max});
    }
}

constexpr std::array adapterRows{
    Plain<&Adapter::Name>("name", {}, "its key in the file"),
    Plain<&Adapter::Connector>("connector", {.Min = 1, .Max = connectors}, "the first free one"),
    Plain<&Adapter::Reference>("reference", {.Min = 0, .Max = 2147483647.0},
                               "required; 482109 for a turbine, 0 for gates"),
    Choice<&Adapter::Kind>("kind", R"(word: "measuring", "gates" or "turbine")"),
    Plain<&Adapter::Serial>("serial"),
    Plain<&Adapter::Image>("picture", {}, "a small drawn one"),
    Plain<&Adapter::Plugged>("plugged"),
    Plain<&Adapter::Door>("door", {.Min = 0.0, .Max = 1000.0, .Unit = "m"},
                          "0 for the first of the gates"),
    Key<Adapter>{{"forks", "list of at most 2 pairs of positions [first, second] (m)", "[]"},
                 ReadForks},
    Key<Adapter>{
        {"adjustment", "table", "none"}, ReadAdjustment, nullptr, DescribeKeys<adjustmentKeys>},
    Key<Adapter>{{"channel", "list of tables", "[]; a turbine has its flow"},
                 ReadChannels,
                 nullptr,
                 DescribeChannels},
};
constexpr KeyTable<Adapter> adapterKeys{"adapter", adapterRows};

/// What goes only with some kinds of adapters.
void CheckKind(Reading& reading, const Table& table, Place at, Adapter& adapter) {
    const auto refuse = [&](std::string_view key, const char* sentence) {
        if (const Member* member = Find(table, key); member != nullptr) {
            Report(reading, member->At, Quoted(key) + sentence);
        }
    };
    if (adapter.Kind == AdapterKind::Gates) {
        refuse("channel", " isn't said of gates; they have their own channels");
        refuse("adjustment", " isn't said of gates");
    } else {
        refuse("door", R"( belongs to kind = "gates")");
        refuse("forks", R"( belongs to kind = "gates")");
    }
    if (adapter.Kind == AdapterKind::Measuring && Find(table, "reference") == nullptr) {
        Report(reading, at, R"("adapter" needs "reference", a number such as 482201)");
    }
    if (adapter.Kind == AdapterKind::Turbine && adapter.Channels.size() > 1) {
        Report(reading, at, "a turbine has one channel, its flow");
    }
}

Channel FlowChannel() {
    Function flow{"", "Débit", "Q", "L/s", {{"-16 … 16 L/s", {-16.0, 16.0}}}, {}, {}, {}, {}, 0};
    return {"Débit", {}, 1e-3, 1e-2, {std::move(flow)}};
}

/// What the file leaves to the defaults.
void Complete(Adapter& adapter) {
    adapter.Name = adapter.Name.empty() ? adapter.Id : adapter.Name;
    if (adapter.Kind == AdapterKind::Turbine) {
        adapter.Reference = adapter.Reference == 0 ? turbineReference : adapter.Reference;
        if (adapter.Channels.empty()) {
            adapter.Channels.push_back(FlowChannel());
        }
    }
    for (Channel& channel : adapter.Channels) {
        channel.Name = channel.Name.empty() ? adapter.Name : channel.Name;
        for (Function& function : channel.Functions) {
            const std::string& name =
                function.QuantityName.empty() ? channel.Name : function.QuantityName;
            function.Name = function.Name.empty() ? name : function.Name;
            function.Image = function.Image.Bytes.empty() ? adapter.Image : function.Image;
        }
    }
}

void ReadAdapter(Reading& reading, const Member& member, Scenario& scenario) {
    Adapter& adapter = scenario.Adapters.emplace_back();
    reading.AdapterPlaces.push_back(member.At);
    ReadInto(reading, {member.At, member.Key}, {"adapter", "name of an adapter", {}}, adapter.Id);
    adapter.Connector = 0;
    ReadTable(reading, member.Held, adapterKeys, adapter);
    if (const auto* table = std::get_if<Table>(&member.Held.Content); table != nullptr) {
        CheckKind(reading, *table, member.At, adapter);
    }
    Complete(adapter);
}

} // namespace

void ReadAdapters(Reading& reading, const Value& value, const KeyText& key, Scenario& scenario) {
    if (const Table* table = TableOf(reading, value, key); table != nullptr) {
        for (const Member& member : *table) {
            ReadAdapter(reading, member, scenario);
        }
        CheckConnectors(reading);
    }
}

void DescribeAdapters(Descriptions& all) {
    Describe(all, adapterKeys);
}

} // namespace orvane::laboratory
