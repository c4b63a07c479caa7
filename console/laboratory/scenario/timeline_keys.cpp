// What happens at the console, and when.

#include "console/laboratory/scenario/scenario_tables.h"
#include "console/port_operation_names.h"

#include <charconv>
#include <numeric>

namespace orvane::laboratory {

namespace {

/// How many characters have to be changed, added or left out to get from one text to the other.
size_t Distance(std::string_view from, std::string_view to) {
    std::vector<size_t> row(to.size() + 1);
    std::iota(row.begin(), row.end(), size_t{0});
    for (const char character : from) {
        size_t diagonal = std::exchange(row[0], row[0] + 1);
        for (size_t i = 0; i < to.size(); ++i) {
            const size_t changed = diagonal + (character == to[i] ? 0 : 1);
            diagonal = row[i + 1];
            row[i + 1] = std::min({changed, diagonal + 1, row[i] + 1});
        }
    }
    return row.back();
}

/// Asks for the operation with the most similar name.
std::string DidYouMean(std::string_view name) {
    const auto nearest = std::ranges::min(
        PortOperationNames, {}, [&](std::string_view known) { return Distance(name, known); });
    return "; did you mean " + Quoted(nearest) + "?";
}

void ReadOperation(Reading& reading, const Value& value, const KeyText& key, Fault& fault) {
    const size_t before = reading.Problems.size();
    ReadInto(reading, value, key, fault.Operation);
    if (reading.Problems.size() != before) {
        return;
    }
    const auto operation = OperationNamed(fault.Operation);
    if (!operation) {
        ReportMismatch(reading, value, key);
        reading.Problems.back().Text += DidYouMean(fault.Operation);
    } else if (BeginsOrEnds(*operation)) {
        Report(reading, value.At,
               fault.Operation + " has no faults, as a connection begins or ends with it");
    }
}

constexpr std::array faultRows{
    Key<Fault>{
        {"operation", R"(name of an operation of the port, such as "OVAutoStart")", required},
        ReadOperation},
    Plain<&Fault::From>("from", {.Min = 1}),
    Plain<&Fault::Refuse>("refuse", {.Min = 1}, "none: all from there on"),
    Plain<&Fault::Probability>("probability", {.Min = 0.0, .Max = 1.0}, "none: always"),
    Plain<&Fault::Latency>("latency", {.Min = 0.0, .Max = 3600.0, .Unit = "s"},
                           "none: the call is refused"),
    Plain<&Fault::Size>("size", {.Min = 0, .Max = 4294967295.0}, "none: the right one"),
    Plain<&Fault::Unterminated>("unterminated"),
};
constexpr KeyTable<Fault> faultKeys{"fault", faultRows};

using Event = std::variant<std::monostate, Plug, Fault>;

/// The adapter that a value names.
void ReadPlug(Reading& reading, const Value& value, const KeyText& key, Event& event,
              bool plugged) {
    const std::vector<Adapter>& adapters = reading.Result.Adapters;
    const auto* id = std::get_if<std::string>(&value.Content);
    const auto found =
        id == nullptr ? adapters.end() : std::ranges::find(adapters, *id, &Adapter::Id);
    if (found == adapters.end()) {
        ReportMismatch(reading, value, key);
        return;
    }
    event = Plug{static_cast<size_t>(found - adapters.begin()), plugged};
}

void ReadUnplug(Reading& reading, const Value& value, const KeyText& key, Event& event) {
    ReadPlug(reading, value, key, event, false);
}

void ReadPlugIn(Reading& reading, const Value& value, const KeyText& key, Event& event) {
    ReadPlug(reading, value, key, event, true);
}

/// Keys that don't go with the operation or with each other.
void CheckFault(Reading& reading, const Table& table, const Fault& fault) {
    const auto report = [&](const char* key, bool fits, const char* text) {
        if (const Member* member = Find(table, key); member != nullptr && !fits) {
            Report(reading, member->At, text);
        }
    };
    const std::string_view operation = fault.Operation;
    report("latency", !fault.Refuse && !fault.Probability,
           R"(a call with "latency" isn't refused; make a second fault of "refuse" or )"
           R"("probability")");
    report("size", operation == "OVGetMemorySize", R"("size" is for OVGetMemorySize)");
    report(
        "unterminated", operation == "OVReadChannelText" || operation.ends_with("Desc"),
        R"("unterminated" is for operations that give texts: OVReadChannelText and OVGet...Desc)");
}

void ReadFault(Reading& reading, const Value& value, const KeyText& /*key*/, Event& event) {
    Fault fault;
    ReadTable(reading, value, faultKeys, fault);
    if (const auto* table = std::get_if<Table>(&value.Content); table != nullptr) {
        CheckFault(reading, *table, fault);
    }
    event = std::move(fault);
}

constexpr std::array eventRows{
    Key<Event>{{"unplug", "name of an [adapter.NAME] above", "none"}, ReadUnplug},
    Key<Event>{{"plug", "name of an [adapter.NAME] above", "none"}, ReadPlugIn},
    Key<Event>{{"fault", "table", "none"}, ReadFault, nullptr, DescribeKeys<faultKeys>},
};
constexpr KeyTable<Event> eventKeys{"timeline", eventRows};

/// An entry and where it stands.
struct Entry {
    TimelineEntry What;
    Place At;
};

std::optional<double> TimeOf(Reading& reading, const Member& member) {
    double time = 0.0;
    const std::string& text = member.Key;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), time);
    if (error != std::errc() || end != text.data() + text.size() ||
        !(time >= 0.0 && time <= longestTime)) {
        Report(reading, member.At,
               "a key of \"timeline\" is a time from 0 to " + NumberText(longestTime) +
                   " (s) in quotes, not " + Quoted(text));
        return std::nullopt;
    }
    return time;
}

void ReadEvents(Reading& reading, const Member& member, std::vector<Entry>& entries) {
    const KeyText key{"timeline", "list of tables at each time", {}};
    const auto time = TimeOf(reading, member);
    const List* list = ListOf(reading, member.Held, key, 0, std::numeric_limits<size_t>::max());
    for (size_t i = 0; list != nullptr && i < list->size(); ++i) {
        const Value& value = (*list)[i];
        Event event;
        ReadTable(reading, value, eventKeys, event);
        const auto* table = std::get_if<Table>(&value.Content);
        if (table != nullptr && table->size() != 1) {
            Report(reading, value.At,
                   "each table of \"timeline\" is one event: unplug, plug or fault");
        }
        if (const auto* plug = std::get_if<Plug>(&event); plug != nullptr && time) {
            entries.push_back({{*time, *plug}, value.At});
        } else if (auto* fault = std::get_if<Fault>(&event); fault != nullptr && time) {
            entries.push_back({{*time, std::move(*fault)}, value.At});
        }
    }
}

/// Two adapters never sit at one connector.
void CheckPlugs(Reading& reading, const std::vector<Entry>& entries) {
    const std::vector<Adapter>& adapters = reading.Result.Adapters;
    constexpr size_t nobody = std::numeric_limits<size_t>::max();
    std::array<size_t, connectors + 1> sitting{};
    sitting.fill(nobody);
    for (size_t i = 0; i < adapters.size(); ++i) {
        if (adapters[i].Plugged) {
            sitting.at(adapters[i].Connector) = i;
        }
    }
    for (const Entry& entry : entries) {
        const auto* plug = std::get_if<Plug>(&entry.What.Event);
        if (plug == nullptr) {
            continue;
        }
        size_t& here = sitting.at(adapters[plug->Adapter].Connector);
        if (plug->Plugged && here != nobody && here != plug->Adapter) {
            Report(reading, entry.At,
                   "connector " + std::to_string(adapters[plug->Adapter].Connector) +
                       " is taken by " + Quoted(adapters[here].Id) +
                       " at that time; unplug it first");
        } else if (plug->Plugged || here == plug->Adapter) {
            here = plug->Plugged ? plug->Adapter : nobody;
        }
    }
}

} // namespace

void ReadTimeline(Reading& reading, const Value& value, const KeyText& key, Scenario& scenario) {
    const Table* table = TableOf(reading, value, key);
    if (table == nullptr) {
        return;
    }
    std::vector<Entry> entries;
    for (const Member& member : *table) {
        ReadEvents(reading, member, entries);
    }
    std::ranges::stable_sort(entries, {}, [](const Entry& entry) { return entry.What.Time; });
    CheckPlugs(reading, entries);
    scenario.Timeline.reserve(entries.size());
    for (Entry& entry : entries) {
        scenario.Timeline.push_back(std::move(entry.What));
    }
}

void DescribeTimeline(Descriptions& all) {
    all.push_back({"timeline", "a time in quotes", "list of tables at each time", "none"});
    Describe(all, eventKeys);
}

} // namespace orvane::laboratory
