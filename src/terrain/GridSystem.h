#pragma once

#include <cstddef>
#include <string>

#include "map/Coordinates.h"

namespace vardel {

// Plane coordinates of the earth, x to the east and y to the north as a rule. Safe on any thread.
class GridSystem {
public:
    GridSystem() = default;
    GridSystem(const GridSystem&) = delete;
    GridSystem& operator=(const GridSystem&) = delete;
    virtual ~GridSystem() = default;

    // As other programs read it: "EPSG:32632", a text for PROJ, or WKT.
    virtual std::string Definition() const = 0;
    // Whether x and y are longitude and latitude in degrees.
    virtual bool IsGeographic() const { return false; }
    // Whether x and y are those of the way from the site, in m.
    virtual bool IsAroundSite() const { return false; }

    // Not finite, and a place that is not valid, where that cannot be.
    virtual void ToMap(const Place* places, std::size_t count, double* x, double* y) const = 0;
    virtual void ToPlaces(const double* x, const double* y, std::size_t count,
                          Place* places) const = 0;
};

}  // namespace vardel
