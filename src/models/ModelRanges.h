#pragma once

#include <string_view>
#include <vector>

#include "ModelInputs.h"

// Where each model's publication, and the practice of its users, lets its result be trusted.

namespace vardel {

// The models, in the order of all tables of them.
enum class ModelNumber : int { Itu529 = 0, Davidson = 1, Cost231 = 2, Us = 3 };

// Whether the model covers the inputs; bounds count as inside. f in MHz, hb and hm in m, d in km.
// A number that is no model's gives false. The area has no influence on the answer.
bool ModelInRange(int model, double f, double hb, double hm, double d,
                  std::string_view area) noexcept;

// A limit of a model that an input breaks. A bound that there is not is infinite.
struct BrokenLimit {
    const char* quantity;     // in words, in UTF-8
    const char* unit;         // of the three numbers: "MHz", "m", "m²" or "km"
    double value, low, high;  // bounds count as inside
};

// None: the model covers the inputs.
std::vector<BrokenLimit> BrokenLimits(ModelNumber model, const ModelInputs& in);

}  // namespace vardel
