#pragma once

#include "models/ModelInputs.h"
#include "services/Clock.h"

namespace vardel {

class RLogClass;

// What one line of the report log tells.
struct LogLine {
    // As the user entered them, in his own units.
    double distance = 0.0;
    double frequency;
    double hb;
    double hm;
    bool english;

    ModelInputs inputs;
    double powerWatts;
};

// Writes the line with its six results in fixed columns; a result that its model does not cover is
// underlined, with the blank behind it. The clock gives the line's date and time.
void AddLogLine(RLogClass& log, const LogLine& line, Clock& clock);

// The heads of those columns.
extern const char* const LogColumnHeader;

}  // namespace vardel
