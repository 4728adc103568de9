#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "terrain/Elevations.h"
#include "terrain/HeightDefinitions.h"

// The effective heights of a base antenna from the ground around it.

namespace vardel {

// A mast with its antenna.
struct Mast {
    Place site;
    double antenna;                // m above the ground, above zero
    std::optional<double> ground;  // m above sea level, typed; nothing: the data's
};

// What the data say of one direction. Of a radial of which nothing was seen, the heights are NaN.
struct RadialHeight {
    double azimuth;          // degrees from north over east
    double averageTerrain;   // m above sea level, of the points that were seen
    double aboveAverage;     // m, the antenna above that
    double effectiveHeight;  // m, the same but for the definition's floor
    double seen;             // 0 to 1, the share of the points whose elevation is known

    bool Floored() const { return effectiveHeight > aboveAverage; }
};

struct EffectiveHeightTable {
    Mast mast;
    HeightDefinition definition;
    double ground;                      // m above sea level, at the mast
    std::vector<RadialHeight> radials;  // on equally spaced azimuths from north on, by these
};

constexpr std::size_t FewestAzimuths = 8;
constexpr std::size_t MostAzimuths = 3600;

// The ground at a mast, in m above sea level. Throws ElevationError where it is not typed and the
// data do not have it.
double GroundAt(Elevations& elevations, const Mast& mast);

// One direction of a mast whose ground is known, averaged within bounds of the definition's or of
// its short paths. Throws ElevationError where elevations cannot be read.
RadialHeight EffectiveHeightToward(Elevations& elevations, const Mast& mast, double ground,
                                   const HeightDefinition& definition, const AverageBounds& bounds,
                                   double azimuth);

// All directions. The site is valid, the azimuths are FewestAzimuths to MostAzimuths. Throws
// ElevationError where elevations cannot be read, and where the site's ground or all of the radials
// are unknown. goOn is asked before each direction with the number of those that are done; where it
// says no, the table has these.
EffectiveHeightTable EffectiveHeights(
    Elevations& elevations, const Mast& mast, const HeightDefinition& definition,
    std::size_t azimuths,
    const std::function<bool(std::size_t done)>& goOn = [](std::size_t) { return true; });

}  // namespace vardel
