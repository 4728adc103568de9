#pragma once

#include <cstdint>
#include <vector>

#include "map/Coordinates.h"

namespace vardel {

// A position in 1e-7 degrees, a centimetre, in which maps' files are written.
struct Position {
    std::int64_t longitude;
    std::int64_t latitude;

    friend bool operator==(const Position&, const Position&) = default;
};

constexpr double PositionsPerDegree = 1e7;

// Its last position is its first. What it encloses lies to the left.
using PolygonRing = std::vector<Position>;

// The circle of a radius in km on the WGS 84 ellipsoid, a point each degree of azimuth, as polygons
// that do not cross the antimeridian: one, two where the circle crosses it. One round a pole has
// two sides along the antimeridian and one along the pole. place is valid, the radius from
// SmallestRing to LargestRing.
std::vector<PolygonRing> GeodesicCircle(const Place& place, double km);

}  // namespace vardel
