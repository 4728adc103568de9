#pragma once

#include <functional>
#include <vector>

#include "terrain/Elevations.h"

namespace vardel {

// The ground around a site as a picture shows it: a square of cells whose distance and azimuth from
// the middle are true, north at its top.
struct Relief {
    std::size_t size = 0;       // cells each way
    double radiusKm = 0.0;      // from the middle to the middle of each edge
    std::vector<float> metres;  // row after row from the north; NaN where nothing is known

    bool IsEmpty() const { return metres.empty(); }
    // Of the cell so far east and north of the middle; NaN beyond the square.
    double MetresAt(double eastKm, double northKm) const;
};

// Of a valid site. goOn is asked before each row with the number of those that are done; where it
// says no, what is left stays unknown. Throws ElevationError where elevations cannot be read.
Relief ReliefAround(Elevations& elevations, const Place& site, double radiusKm, std::size_t size,
                    const std::function<bool(std::size_t done)>& goOn);

// How bright the ground is in each cell, 0 to 1, with the sun in the north-west at 45 degrees as
// maps have it, heights drawn out so that the steepest is well seen. NaN where nothing is known.
std::vector<float> ShadeOf(const Relief& relief);

}  // namespace vardel
