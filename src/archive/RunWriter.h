#pragma once

#include <string>

#include "engine/curves/Curves.h"
#include "text/CalendarTime.h"

namespace vardel {

class dbOperations;

// One run of the compared models, as an archive keeps it.
struct ArchivedRun {
    std::string parameters;  // the inputs in words
    std::string comment;
    CalendarTime time;
    Quantity quantity;
    ModelInputs inputs;  // but for the distance
    double powerWatts;   // e.r.p.
    double farthest;     // km, to where the curves go
};

// Writes the run, a curve for each of the compared models, and closes the archive, which must have
// been opened. What fails is reported and seen by HasFailed of the archive.
void WriteRun(dbOperations& archive, const ArchivedRun& run);

}  // namespace vardel
