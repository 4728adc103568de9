#pragma once

#include <optional>
#include <string>

#include "coverage/CoverageGrid.h"
#include "coverage/CoverageStation.h"
#include "terrain/RasterFiles.h"

namespace vardel::cli {

enum class CoverageSystem { Site, Utm, Elevation };

// What a command line says of an area.
struct CoverageOptions {
    CoverageExtent extent;             // one of both is there
    std::optional<double> resolution;  // m
    CoverageSystem grid = CoverageSystem::Site;
    std::optional<ModelNumber> model;  // none: all
    double interval = 10.0;            // dB
    CellType type = CellType::Float;
    std::string output, picture, lines;  // files; empty: not wanted
};

constexpr double UsualResolution = 100.0;  // m

// "S W N E" in degrees. What is wrong goes into wrong.
std::optional<CoverageBounds> BoundsOf(const std::string& text, std::optional<std::string>& wrong);

}  // namespace vardel::cli
