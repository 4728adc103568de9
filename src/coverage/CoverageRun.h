#pragma once

#include <functional>
#include <optional>

#include "coverage/CoverageValues.h"

// A whole grid, strip by strip, so that it may be larger than the memory.

namespace vardel {

// What a model's pixels add up to, each by its area on the earth, in km².
struct CoveredArea {
    double calculated = 0.0;  // of the pixels that have a value
    double covered = 0.0;     // of those that meet the goal
    double inRange = 0.0;     // of those that the model covers
};

// Whether a value is as good as the goal: a loss is where it is not above.
inline bool Meets(ServiceQuantity quantity, double value, double goal) {
    return quantity == ServiceQuantity::PathLoss ? value <= goal : value >= goal;
}

// Takes whole rows of the grid, the heights, values and marks of each cell. Says whether to go on.
using StripSink = std::function<bool(int row, int rows, const CoverageBuffers& strip)>;

// By the order of the station's models. The strips come one after the other from north to south;
// none is larger than StripBytes unless it is a single row. Nothing where the sink says no before
// the last. Throws what the sink throws, and std::bad_alloc.
constexpr std::size_t StripBytes = std::size_t{32} << 20U;
std::optional<std::vector<CoveredArea>> RunCoverage(const CoverageStation& station,
                                                    const CoverageGrid& grid,
                                                    std::optional<double> goal, unsigned threads,
                                                    const StripSink& sink);

}  // namespace vardel
