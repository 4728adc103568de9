#pragma once

#include "terrain/RasterFiles.h"

namespace vardel::elevation {

// See ElevationModule for what these do.
std::unique_ptr<RasterWriter> CreateRaster(const std::string& file, const RasterLayout& layout);
void ConvertRaster(const std::string& from, const std::string& to, RasterFormat format,
                   unsigned threads);
void WriteLines(const std::string& raster, std::size_t bands, const std::vector<double>& values,
                const std::string& to);

}  // namespace vardel::elevation
