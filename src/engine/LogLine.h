#pragma once

#include <string>
#include <vector>

#include "engine/Calculation.h"
#include "engine/PathInputs.h"
#include "text/CalendarTime.h"

namespace vardel {

// A stretch of a line of the report log, in one style.
struct LogPiece {
    std::string text;
    bool underlined = false;
};

// One line of the report log: a calculation in fixed columns, with its line end. A result that its
// model does not cover is underlined, with the blank behind it. Inputs stand in the units in which
// they were entered.
std::vector<LogPiece> LogLine(const PathInputs& path, const Calculation& calculation,
                              const CalendarTime& time);

// The heads of those columns.
extern const char* const LogColumnHeader;

}  // namespace vardel
