#pragma once

#include <memory>
#include <optional>

#include "map/Coordinates.h"
#include "terrain/GridSystem.h"
#include "terrain/RasterMosaic.h"

// Where the pixels of an area lie.

namespace vardel {

// The azimuthal equidistant coordinates around a place, in m: a pixel's distance and azimuth are
// those of its x and y, exact to nanometres. Source: GeographicLib's AzimuthalEquidistant.
std::shared_ptr<const GridSystem> GridSystemAround(const Place& site);

// That zone of Universal Transverse Mercator which the place lies in, carried on beyond its edges;
// near the poles Universal Polar Stereographic. On WGS 84.
std::shared_ptr<const GridSystem> UtmSystemOf(const Place& site);

// Cells north up, with the place that distances and azimuths are counted from.
struct CoverageGrid {
    Place site;
    std::shared_ptr<const GridSystem> system;
    RasterGrid cells;

    double Cells() const { return static_cast<double>(cells.columns) * cells.rows; }
};

struct CoverageBounds {
    double south, west, north, east;  // degrees; the west may be east of the east: over 180 degrees
};

// What a grid is to cover: all within a radius in km, or bounds.
struct CoverageExtent {
    double radiusKm = 0.0;
    std::optional<CoverageBounds> bounds = {};  // go first
};

// The size of a cell, and a corner of one.
struct CellPattern {
    double width, height;  // in the system's units
    double x = 0.0, y = 0.0;
};
// In m, or degrees of that length at the site.
CellPattern PatternOf(const GridSystem& system, const Place& site, double metres);

constexpr int MostCoverageSide = 100'000;  // cells

// The cells of the pattern over all of the extent. Throws CoverageError where that is more than
// MostCoverageSide each way, or beyond what the system can show.
struct CoverageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};
CoverageGrid MakeCoverageGrid(const Place& site, std::shared_ptr<const GridSystem> system,
                              const CellPattern& pattern, const CoverageExtent& extent);

// Cells of a grid.
struct CellRectangle {
    int column, row;
    int columns, rows;
};

// Fills in the distances in km and the azimuths in degrees, 0 to 360, of the centres of so many
// cells of a row; NaN where the system has no place. Without azimuths for none. Safe on any
// thread.
void WaysToCells(const CoverageGrid& grid, int row, int column, std::size_t count, double* km,
                 double* azimuths);

// Fills in the places of the centres; not valid where there is none. Safe on any thread.
void PlacesOfCells(const CoverageGrid& grid, int row, int column, std::size_t count, Place* places);

// The area of a cell in km² near a cell, from the corners of a square of cells around it.
double CellAreaNear(const CoverageGrid& grid, const CellRectangle& square);

}  // namespace vardel
