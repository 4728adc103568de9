#pragma once

#include <string>
#include <vector>

#include "engine/reach/Reach.h"
#include "map/Coordinates.h"
#include "map/MapFeatures.h"

// What the polygons of rings and of contours both say about their inputs.

namespace vardel {

// Adds the goal, the path but for its distance, and the station's place. Without a base height the
// path has none of its own.
enum class BaseHeight { Told, Left };
void AddInputs(std::vector<FeatureProperty>& properties, const Goal& goal, const ModelInputs& path,
               BaseHeight baseHeight, const Place& station);
// Adds the power, for a goal that has one.
void AddPower(std::vector<FeatureProperty>& properties, const Goal& goal);

// For people, such as "ITU 529, 95 % of locations".
std::string FeatureName(ModelNumber model, double pctLoc);

}  // namespace vardel
