#pragma once

#include "cli/batch/Batch.h"
#include "cli/options/Options.h"
#include "text/CalendarTime.h"

// The commands that answer for one path. Each writes to the output as it goes.

namespace vardel::cli {

// Six values with their range marks: a table for people, or a line of JSON.
void WritePath(const Options& options, const Sink& output);
// A row for each distance from start to end, the end included where a step meets it. A distance is
// the number that its shortest text is, as if it had been typed.
void WriteCurve(const Options& options, const Sink& output);
// A row for each model: how far it reaches and, where a distance was given, what power and mast
// that one needs; their names give the distance.
void WriteReach(const Options& options, const Sink& output);
// A line of the report log.
void WriteLogLine(const Options& options, const CalendarTime& time, const Sink& output);

}  // namespace vardel::cli
