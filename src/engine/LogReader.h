#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "engine/PathInputs.h"

namespace vardel {

// A calculation as a line of the report log gives it. The views are of that line.
struct LoggedCalculation {
    // As the log rounds them: distance and heights to 0.01, frequency to 0.1 MHz, percentages to
    // whole ones, power to 0.1 W. Only an urban area has its city named.
    PathInputs path;
    std::array<std::string_view, 6> results;  // in the order of their columns, dB and dB(uV/m)
    std::string_view time;                    // "mm/dd/yyyy hh:mm am" or "pm"
    std::string_view rest;                    // what was typed behind it
};

// By its words, since a wide number moves what is behind it. Nothing where the line is none of a
// calculation.
std::optional<LoggedCalculation> ReadLogLine(std::string_view line);

// The inputs that a line's results belong to, as near as the line gives them.
struct LineInputs {
    PathInputs path;
    double off = 0.0;  // dB, by how much the models' results for them differ from the line's
};

// A distance range report writes km under English units, too: the results decide which they are.
LineInputs InputsOfLine(const LoggedCalculation& line);

}  // namespace vardel
