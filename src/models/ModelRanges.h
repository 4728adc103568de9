#pragma once

#include <string_view>

// Where each model's publication, and the practice of its users, lets its result be trusted.

namespace vardel {

enum ModelNumber : int { ModelItu529 = 0, ModelDavidson = 1, ModelCost231 = 2, ModelUs = 3 };

// Whether the model covers the inputs; bounds count as inside. f in MHz, hb and hm in m, d in km.
// A number that is no model's gives false. The area has no influence on the answer.
bool ModelInRange(int model, double f, double hb, double hm, double d,
                  std::string_view area) noexcept;

}  // namespace vardel
