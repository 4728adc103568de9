#pragma once

#include <string>

#include "archive/ArchiveReader.h"

namespace vardel {

// A run as RFC 4180 behind comments that say what it is: a column for each curve where all have
// the same distances, as the program's own have, else a row for each point of each curve.
std::string RunCsv(const RunRow& run, const std::vector<CurveRow>& curves);

}  // namespace vardel
