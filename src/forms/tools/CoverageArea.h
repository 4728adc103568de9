#pragma once

#include <string>
#include <vector>

#include "coverage/CoverageColors.h"
#include "coverage/CoverageStation.h"
#include "engine/reach/ReachTable.h"
#include "terrain/Contours.h"

// The area of a station with the contours of a table: as a picture under them, and in words at a
// place.

namespace vardel {

// What is wanted everywhere, which is the break of the colours.
struct AreaGoal {
    Wanted wanted;
    double stepDb = 10.0;  // from colour to colour

    CoverageColors Colors() const { return {wanted.quantity, wanted.value, stepDb}; }
};

// A station of the table's heights and inputs, for the models that are named.
CoverageStation StationOf(const ContourTable& table, const AreaGoal& goal,
                          std::vector<ModelNumber> models);

// A square of pixels whose distance and azimuth from the middle are true, north at its top.
struct AreaPicture {
    std::size_t size = 0;  // pixels each way
    double radiusKm = 0.0;
    std::vector<PixelColor> pixels;  // row after row from the north
    std::string title;               // of its legend
    std::vector<CoverageColors::Step> steps;

    bool IsEmpty() const { return pixels.empty(); }
};
AreaPicture PictureOf(const ContourTable& table, const AreaGoal& goal, ModelNumber model,
                      double radiusKm, std::size_t size);

// A place in the surroundings of a site.
struct PlaceAround {
    double km;
    double azimuth;  // degrees, 0 to 360

    friend bool operator==(const PlaceAround&, const PlaceAround&) = default;
};

// In one line: the place, its distance and azimuth, the effective height in its direction and what
// each model gives there. metres: of the ground there above sea level, NaN where it is not
// known.
std::string TextAt(const ContourTable& table, const AreaGoal& goal, const PlaceAround& place,
                   double metres, Units units);

}  // namespace vardel
