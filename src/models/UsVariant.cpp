#include "models/UsVariant.h"

#include "models/ModelTerms.h"
#include "models/Primitives.h"
#include "models/Variability.h"

namespace vardel {

double UsLoss(const ModelInputs& in) noexcept {
    const double area = ModelTerms.UsLossAreaTerm = AreaCorrection(in.area, in.f);
    const double time = TimeVariability(in.d, in.pctTime);
    const double location = LocationVariability(in.f, in.pctLoc, in.area);
    return 69.36 + 30.0 * Log10(in.f) + 40.0 * Log10(in.d) - 20.0 * Log10(in.hb * in.hm) + time -
           area - location;
}

double UsFieldStrength(const ModelInputs& in) noexcept {
    const double area = ModelTerms.UsFsAreaTerm = AreaCorrection(in.area, in.f);
    const double time = TimeVariability(in.d, in.pctTime);
    const double location = LocationVariability(in.f, in.pctLoc, in.area);
    return 40.0 + 10.0 * Log10(GetPowerWatts()) - 10.0 * Log10(in.f) - 40.0 * Log10(in.d) +
           20.0 * Log10(in.hb * in.hm) - time + area + location;
}

}  // namespace vardel
