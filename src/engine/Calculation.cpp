#include "engine/Calculation.h"

#include "models/ModCalculations.h"

namespace vardel {

namespace {

struct Functions {
    ModelFunction loss;
    ModelFunction fieldStrength;
};

// By ModelNumber.
constexpr std::array<Functions, 3> ComparedModels = {{
    {Itu529Loss, Itu529FieldStrength},
    {DavidsonLoss, DavidsonFieldStrength},
    {Cost231Loss, Cost231FieldStrength},
}};

}  // namespace

Calculation::Calculation(const ModelInputs& inputs) {
    for (std::size_t i = 0; i < ComparedModels.size(); ++i)
        results_[i] = {ComparedModels[i].loss(inputs), ComparedModels[i].fieldStrength(inputs),
                       ModelInRange(static_cast<int>(i), inputs.f, inputs.hb, inputs.hm, inputs.d,
                                    inputs.area)};
}

std::optional<std::string> RefusalOf(const ModelInputs& inputs) {
    if (!(30.0 <= inputs.f && inputs.f <= 2000.0)) return "Valid Frequency Range 30Mhz to 2000 MHz";
    if (!(20.0 <= inputs.hb && inputs.hb <= 2500.0))
        return "Valid Height of Base Station Antenna is 30m to 200m";
    if (!(1.0 <= inputs.hm && inputs.hm <= 30.0))
        return "Valid Height of Mobile Antenna is 1m to 30m";
    if (!(0.0 < inputs.d && inputs.d <= 300.0)) return "Valid Range is 0 < Distance <= 300 km";
    return std::nullopt;
}

}  // namespace vardel
