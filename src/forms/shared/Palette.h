#pragma once

#include "services/Color.h"

// The colours of the forms. Those of curves belong to the models and the plots.

namespace vardel {

constexpr Color Teal{0, 128, 128};
constexpr Color DeepTeal{0, 64, 64};
constexpr Color PaleTeal{226, 240, 240};
constexpr Color Turquoise{0, 192, 192};
constexpr Color MutedGray{110, 110, 110};

constexpr Color StaleColor{50, 50, 50};         // results that the inputs have left behind
constexpr Color OutOfRangePink{255, 150, 150};  // results that their model does not cover
constexpr Color OutOfRangeHidden{40, 40, 40};   // near enough to the black of the text to hide it

}  // namespace vardel
