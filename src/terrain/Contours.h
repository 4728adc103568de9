#pragma once

#include <optional>
#include <string>
#include <vector>

#include "engine/reach/Reach.h"
#include "terrain/EffectiveHeights.h"

// How far a station reaches in each direction, with the effective height that it has there.

namespace vardel {

// One model's reaches on the azimuths of the table.
struct Contour {
    ModelNumber model;
    std::vector<Reach> reaches;  // Invalid where nothing of a radial was seen
};

struct ContourTable {
    EffectiveHeightTable heights;
    ModelInputs path;  // d and hb do not count; texts in UTF-8
    Goal goal;
    std::vector<Contour> contours;  // by the order of ComparedModels
};

// Each reach is ReachOf of that height. Safe on any thread.
ContourTable ContoursOf(EffectiveHeightTable heights, const ModelInputs& path, const Goal& goal);

// A polygon for each model, or several, with the inputs and what is known of them as properties: a
// GeoJSON FeatureCollection and a KML document as CoverageRings writes them. A corner lies at the
// reach on each azimuth; where a goal is not met, or nothing was seen, the outline passes the site.
// Nothing where the site is not valid or a number of the inputs is not finite.
std::optional<std::string> ContourGeoJson(const ContourTable& table);
std::optional<std::string> ContourKml(const ContourTable& table);

// What a user should know about the heights and the contours, a sentence each.
std::vector<std::string> NotesOn(const EffectiveHeightTable& heights);
std::vector<std::string> NotesOn(const ContourTable& table);

}  // namespace vardel
