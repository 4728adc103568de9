#pragma once

#include <optional>
#include <string>
#include <vector>

#include "archive/ArchiveReader.h"
#include "engine/PathInputs.h"
#include "engine/curves/Curves.h"

namespace vardel {

// The model that a curve's legend begins with; null: none.
const Model* ModelOfLegend(const std::string& legend);

// What the curves of a run are of, by their legends.
Quantity QuantityOf(const std::vector<CurveRow>& curves);

// The inputs that a run was made with, but for the distance; power stands only in runs of field
// strengths.
struct ArchivedInputs {
    PathInputs path;
    bool hasPower = false;
};

// A run's line of parameters gives heights without their unit and the power rounded, so that the
// curves decide: nothing where the line cannot be read, or no unit gives the curves that are
// stored.
std::optional<ArchivedInputs> InputsOfRun(const std::string& parameters,
                                          const std::vector<CurveRow>& curves);

}  // namespace vardel
