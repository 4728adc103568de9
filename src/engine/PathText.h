#pragma once

#include <string>

#include "engine/PathInputs.h"

// A path in words, for people, in its own units.

namespace vardel {

// Such as "10 km".
std::string DistanceText(const PathInputs& path);
// Such as "50 %"; the percentage is 50 for that.
std::string PercentText(double percentage);
// All but the distance and the percentage of locations.
std::string PathText(const PathInputs& path);
// Likewise, of a station whose base height differs by azimuth.
std::string StationText(const PathInputs& path);

}  // namespace vardel
