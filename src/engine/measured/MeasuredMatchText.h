#pragma once

#include <string>

#include "engine/PathInputs.h"
#include "engine/measured/MeasuredData.h"

namespace vardel {

// Which column of the measured tables is that of a path, in words; where none is, the nearest
// ones, and in what each differs.
std::string MatchText(const PathInputs& path, const MeasuredTable& table,
                      const MeasuredMatch& match);

}  // namespace vardel
