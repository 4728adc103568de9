#pragma once

#include "cli/Terrain.h"
#include "cli/options/Options.h"
#include "terrain/ElevationModule.h"

namespace vardel::cli {

// What the command needs of the outside.
struct CoverageWorld {
    Elevations* elevations;  // of the options' files; nullptr where there are none
    std::function<const ElevationModule&()> module;  // asked only where a file is wanted
};

// Writes the raster, the picture and the lines that are asked for, each whole or not at all, then a
// row for each model: how much of the area is covered. Throws UsageError, ElevationError and
// std::system_error.
void WriteCoverage(const Options& options, const CoverageWorld& world, const Sink& output,
                   const NoteSink& notes);

}  // namespace vardel::cli
