#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "coverage/CoverageRun.h"
#include "terrain/ElevationModule.h"
#include "terrain/HeightDefinitions.h"

// The files of an area: a raster, a picture of one model and lines of equal value.

namespace vardel {

// Where the heights of a station are from.
struct HeightSource {
    double antenna;  // m above the ground
    HeightDefinition definition;
    std::size_t azimuths;
};

// Which files are wanted, and how.
struct CoverageOutput {
    std::string raster, picture, lines;  // files; empty: not wanted
    CellType type = CellType::Float;     // of the raster
    std::optional<double> wanted;        // the break of picture and lines, which need it
    double interval = 10.0;              // dB, of the steps of picture and lines
    unsigned threads = 1;
    std::optional<HeightSource> ground = {};  // none: the path's base height

    bool Any() const { return !raster.empty() || !picture.empty() || !lines.empty(); }
};

// Calculates the area and writes the files that are wanted, each whole or not at all, with the
// inputs in the raster's metadata. The module is asked for only where a file is wanted. goOn is
// asked before each strip with the share that is done; where it says no, nothing is written and
// there is no answer. Throws ElevationError and std::system_error.
std::optional<std::vector<CoveredArea>> WriteCoverageFiles(
    const CoverageOutput& output, const std::function<const ElevationModule&()>& module,
    const CoverageStation& station, const CoverageGrid& grid,
    const std::function<bool(double done)>& goOn = [](double) { return true; });

}  // namespace vardel
