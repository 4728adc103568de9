#include "engine/Calculation.h"

namespace vardel {

Calculation::Calculation(const ModelInputs& inputs, double powerWatts) {
    ModelTermsRecord terms;
    for (const ModelNumber number : ComparedModels) {
        const Model& model = ModelOf(number);
        results_.at(IndexOf(number)) = {model.loss(inputs, terms),
                                        model.fieldStrength(inputs, powerWatts, terms),
                                        InRange(model, inputs)};
    }
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
