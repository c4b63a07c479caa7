#pragma once

/// \file
/// What the top of a scenario file reads, a room of keys each.

#include "console/laboratory/scenario/key_table.h"

namespace orvane::laboratory {

void ReadConsole(Reading& reading, const Value& value, const KeyText& key, Scenario& scenario);
void DescribeConsole(Descriptions& all);
void ReadClock(Reading& reading, const Value& value, const KeyText& key, Scenario& scenario);
void DescribeClock(Descriptions& all);
void ReadBus(Reading& reading, const Value& value, const KeyText& key, Scenario& scenario);
void DescribeBus(Descriptions& all);
void ReadOutputs(Reading& reading, const Value& value, const KeyText& key, Scenario& scenario);
void DescribeOutputs(Descriptions& all);

/// The outputs have to be read before: signals name them.
void ReadAdapters(Reading& reading, const Value& value, const KeyText& key, Scenario& scenario);
void DescribeAdapters(Descriptions& all);
/// Gives connectors to adapters that name none, and looks for connectors taken twice and gates that
/// don't fit into their row.
void CheckConnectors(Reading& reading);

void ReadChannels(Reading& reading, const Value& value, const KeyText& key, Adapter& adapter);
void DescribeChannels(Descriptions& all);

void ReadSignal(Reading& reading, const Value& value, const KeyText& key, Function& function);
void DescribeSignal(Descriptions& all);

void ReadBodies(Reading& reading, const Value& value, const KeyText& key, Scenario& scenario);
void DescribeBodies(Descriptions& all);
void ReadBreath(Reading& reading, const Value& value, const KeyText& key, Scenario& scenario);
void DescribeBreath(Descriptions& all);
void ReadRadio(Reading& reading, const Value& value, const KeyText& key, Scenario& scenario);
void DescribeRadio(Descriptions& all);

/// The adapters have to be read before, and their connectors checked.
void ReadTimeline(Reading& reading, const Value& value, const KeyText& key, Scenario& scenario);
void DescribeTimeline(Descriptions& all);

} // namespace orvane::laboratory
