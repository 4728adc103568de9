#pragma once

#include <string>

#include "models/Model.h"

namespace vardel {

// How a model's loss and field strength for the inputs come about, in a fixed-width layout: each
// quantity and each term with its formula, value, unit and source, the sums, and which limits of
// the model the inputs break. in: metric; the power is in watts e.r.p.
std::string ExplanationText(const Model& model, const ModelInputs& in, double powerWatts);

}  // namespace vardel
