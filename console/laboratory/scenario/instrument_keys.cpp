// What falls through the gates, who breathes into the turbine, and the pods of the radio.

#include "console/laboratory/scenario/scenario_tables.h"

namespace orvane::laboratory {

namespace {

constexpr std::array cardRows{
    Plain<&Card::Length>("length", {.Min = 0.0, .Max = 1000.0, .Unit = "m", .Open = true}),
    Plain<&Card::Gravity>("gravity", {.Min = 0.0, .Max = 1000.0, .Unit = "m/s²", .Open = true}),
    Plain<&Card::AfterArming>("after_arming", AnyTime),
    Plain<&Card::TerminalSpeed>(
        "terminal_speed", {.Min = 0.0, .Max = 1e4, .Unit = "m/s", .Open = true}, "none: no drag"),
};
constexpr KeyTable<Card> cardKeys{"card", cardRows};

constexpr std::array bodyRows{Subtable<&Scenario::Falling, cardKeys>("card")};
constexpr KeyTable<Scenario> bodyKeys{"body", bodyRows};

constexpr Bounds Volume{.Min = 0.0, .Max = 100.0, .Unit = "L", .Open = true};

constexpr std::array forcedRows{
    Plain<&ForcedBreath::Every>("every", {.Min = 2.0, .Max = longestTime, .Unit = "s"}),
    Plain<&ForcedBreath::Fvc>("fvc", Volume),
    Plain<&ForcedBreath::Fev1>("fev1", Volume),
    Plain<&ForcedBreath::Pef>("pef", {.Min = 0.0, .Max = 100.0, .Unit = "L/s", .Open = true}),
};
constexpr KeyTable<ForcedBreath> forcedKeys{"forced", forcedRows};

constexpr std::array breathRows{
    Plain<&Breath::Tidal>("tidal", {.Min = 0.0, .Max = 100.0, .Unit = "L"}),
    Plain<&Breath::Rate>("rate", {.Min = 0.0, .Max = 1000.0, .Unit = "1/min", .Open = true}),
    Subtable<&Breath::Forced, forcedKeys>("forced"),
};
constexpr KeyTable<Breath> breathKeys{"breath", breathRows};

/// FEV1 is more than the rise to the peak gives and less than a second of the peak. What is left of
/// FVC after it has to fit into the time that the expiration has.
void CheckForced(Reading& reading, const ForcedBreath& forced, Place at) {
    constexpr double halfRise = ForcedBreath::RiseTime / 2.0;
    const double least = forced.Pef * halfRise;
    const double most = std::min(forced.Fvc, forced.Pef);
    if (!(least < forced.Fev1 && forced.Fev1 < most)) {
        Report(reading, at,
               "no forced breath has fev1 = " + NumberText(forced.Fev1) +
                   "; it lies above 0.04 s of pef, " + NumberText(least) +
                   ", and below fvc and 1 s of pef, " + NumberText(most));
        return;
    }
    const double rest = LongestExpiration(forced) - 1.0 - halfRise;
    const double mostInAll = forced.Fev1 + forced.Pef / 2.0 * rest;
    if (forced.Fvc > mostInAll) {
        Report(reading, at,
               "no forced breath has fvc = " + NumberText(forced.Fvc) +
                   "; with these fev1, pef and every it is at most " + NumberText(mostInAll));
    }
}

constexpr std::array podRows{
    Plain<&Pod::Id>("id", {.Min = 0, .Max = 49}, required),
    Plain<&Pod::Joins>("joins", AnyTime),
    Plain<&Pod::Leaves>("leaves", AnyTime),
    Plain<&Pod::Pings>("pings"),
};
constexpr KeyTable<Pod> podKeys{"pods", podRows};

void ReadPods(Reading& reading, const Value& value, const KeyText& key, Radio& radio) {
    ReadTables(reading, value, key, podKeys, radio.Pods);
    for (size_t i = 1; i < radio.Pods.size(); ++i) {
        const auto before = std::span(radio.Pods).first(i);
        if (std::ranges::find(before, radio.Pods[i].Id, &Pod::Id) != before.end()) {
            Report(reading, std::get<List>(value.Content)[i].At,
                   "there is a pod " + std::to_string(radio.Pods[i].Id) +
                       " before; each has an id of its own");
        }
    }
}

constexpr std::array radioRows{
    Plain<&Radio::Channel>("channel", {.Min = 11, .Max = 26}),
    Plain<&Radio::Level>("level", {.Min = -4, .Max = 17}),
    Key<Radio>{{"pods", "list of tables", "[]"}, ReadPods, nullptr, DescribeKeys<podKeys>},
};
constexpr KeyTable<Radio> radioKeys{"radio", radioRows};

} // namespace

void ReadBodies(Reading& reading, const Value& value, const KeyText& /*key*/, Scenario& scenario) {
    ReadTable(reading, value, bodyKeys, scenario);
}

void DescribeBodies(Descriptions& all) {
    Describe(all, bodyKeys);
}

void ReadBreath(Reading& reading, const Value& value, const KeyText& /*key*/, Scenario& scenario) {
    ReadTable(reading, value, breathKeys, scenario.Breathing);
    if (scenario.Breathing.Forced) {
        CheckForced(reading, *scenario.Breathing.Forced, value.At);
    }
}

void DescribeBreath(Descriptions& all) {
    Describe(all, breathKeys);
}

void ReadRadio(Reading& reading, const Value& value, const KeyText& /*key*/, Scenario& scenario) {
    ReadTable(reading, value, radioKeys, scenario.Network);
}

void DescribeRadio(Descriptions& all) {
    Describe(all, radioKeys);
}

} // namespace orvane::laboratory
