#pragma once

#include <memory>
#include <string>
#include <vector>

#include "terrain/RasterFiles.h"
#include "terrain/RasterMosaic.h"

namespace vardel::elevation {

// The rasters of files and of folders as one ground, read through GDAL. Throws ElevationError for a
// path that is no raster with heights and a place on the earth, and for a folder without any; what
// else of a folder cannot be used is a note.
std::unique_ptr<RasterMosaic> OpenRasters(const std::vector<std::string>& paths);

// Once, before GDAL is asked for anything.
void SetGdalUp();
// What GDAL said last, on one line; the other text where it said nothing.
std::string LastMessage(const char* otherwise = "cannot be read");

// The coordinate system and the cells of the first raster of these paths. Throws ElevationError.
ElevationSystem SystemOf(const std::vector<std::string>& paths);

}  // namespace vardel::elevation
