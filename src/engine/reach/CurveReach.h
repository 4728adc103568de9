#pragma once

#include <string>
#include <vector>

#include "engine/curves/CurvePlot.h"
#include "engine/reach/Reach.h"

// Where the curves of a graph cross a threshold.

namespace vardel {

// How far a curve of a graph meets the threshold.
struct CurveReach {
    std::string curve;
    Color color;
    Reach reach;
};

// For a loss of at most, or a field strength of at least, the threshold in dB or dB(µV/m): by the
// formulas themselves, not by the points that are drawn.
std::vector<CurveReach> ReachesOf(const GraphCurves& graph, double threshold);

// For people, such as "ITU 529: 5.196 km".
std::string CurveReachText(const CurveReach& curve);

}  // namespace vardel
