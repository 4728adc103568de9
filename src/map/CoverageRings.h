#pragma once

#include <optional>
#include <string>
#include <vector>

#include "engine/reach/ReachTable.h"
#include "map/Coordinates.h"
#include "map/GeodesicCircle.h"

// How far a station reaches, as circles that maps and geographic information systems read.

namespace vardel {

// One model's circle.
struct CoverageRing {
    ModelNumber model;
    double pctLoc;         // percent of locations
    double km;             // the radius
    bool inRange = false;  // the model covers that distance
};

// The circles of one station.
struct Coverage {
    Place station;
    ModelInputs path;  // d and pctLoc do not count; texts in UTF-8
    Goal goal;
    std::vector<CoverageRing> rings;
};

// The rings of all reaches of the table; none for what is met nowhere.
Coverage CoverageOf(const ReachTable& table, const Place& station);

// A polygon for each ring, in the rings' order, with the model and the inputs as properties: a
// GeoJSON FeatureCollection (RFC 7946) and a KML 2.2 document, in UTF-8. The points of a circle
// lie on geodesics of the WGS 84 ellipsoid; where it crosses the antimeridian it is cut there into
// two polygons, and round a pole it goes along it to the pole.
//
// Nothing when the station's place is not valid, another number not finite, or a radius below
// SmallestRing or above LargestRing.
std::optional<std::string> CoverageGeoJson(const Coverage& coverage);
std::optional<std::string> CoverageKml(const Coverage& coverage);

}  // namespace vardel
