#pragma once

#include <array>
#include <optional>
#include <string>

#include "models/Model.h"

namespace vardel {

// What one model says of a path.
struct ModelResult {
    double loss = 0.0;           // dB
    double fieldStrength = 0.0;  // dB(µV/m)
    bool inRange = false;        // whether the model covers the inputs
};

// The results of one path by the three models that are compared.
class Calculation {
public:
    // The inputs must be above zero, as the models want them; the power is in watts e.r.p.
    Calculation(const ModelInputs& inputs, double powerWatts);

    // Of ITU-R P.529, Davidson or COST 231; throws std::out_of_range for another.
    const ModelResult& Of(ModelNumber model) const { return results_.at(IndexOf(model)); }

private:
    std::array<ModelResult, 3> results_;  // by ModelNumber
};

// Why a calculation for these inputs is refused, in words for the user; nothing: it is not. The
// limits are wider than the words say in places.
std::optional<std::string> RefusalOf(const ModelInputs& inputs);

}  // namespace vardel
