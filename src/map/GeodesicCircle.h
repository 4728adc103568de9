#pragma once

#include <cstdint>
#include <vector>

#include "map/Coordinates.h"

namespace vardel {

// The shortest way from one place to another on the WGS 84 ellipsoid.
struct GeodesicWay {
    double km;
    double azimuth;  // where it sets out, 0 to 360 degrees from north over east
};
GeodesicWay WayBetween(const Place& from, const Place& to);

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

// The same with a reach in km of its own on each azimuth: these are as many as the reaches, equally
// spaced from north over east. Where a reach is below SmallestRing the outline passes the place;
// what lies between two such azimuths is a polygon of its own, and none where it has no width. The
// other reaches are not above LargestRing, and at least three.
std::vector<PolygonRing> GeodesicOutline(const Place& place, const std::vector<double>& km);

// Of a reach in km. Rounding to a centimetre leaves nothing of the smallest circles.
constexpr double SmallestRing = 0.001;
constexpr double LargestRing = 1000.0;

}  // namespace vardel
