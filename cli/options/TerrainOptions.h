#pragma once

#include <optional>
#include <string>
#include <vector>

#include "map/Coordinates.h"
#include "terrain/EffectiveHeights.h"

namespace vardel::cli {

enum class ContourFormat { Csv, GeoJson, Kml };

// What a command line says of the ground.
struct TerrainOptions {
    std::vector<std::string> files;  // of elevations, and folders; none: the ground is not asked
    std::optional<Place> site;
    std::optional<double> antenna;  // m above the ground
    std::optional<double> ground;   // m above sea level, typed
    std::optional<std::size_t> azimuths;
    std::optional<HeightDefinition> definition;
    std::optional<ContourFormat> format;
};

// Those of a command that were not given.
constexpr std::size_t UsualHeightAzimuths = 36;
constexpr std::size_t UsualContourAzimuths = 360;
// A path has a length, so the definition that looks at it.
constexpr const char* UsualPathDefinition = "p1546";

// Each takes a text. What is wrong with it goes into wrong, in words behind the option's name.
std::optional<Place> SiteOf(const std::string& text, std::optional<std::string>& wrong);
std::optional<HeightDefinition> DefinitionOf(const std::string& text,
                                             std::optional<std::string>& wrong);
std::optional<std::size_t> AzimuthsOf(const std::string& text, std::optional<std::string>& wrong);

// The keys of the definitions, separated by commas.
std::string DefinitionKeys();

}  // namespace vardel::cli
