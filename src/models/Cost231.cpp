#include "models/Cost231.h"

#include "models/ModelTerms.h"
#include "models/P529Terms.h"

namespace vardel {

namespace {

// The step of a metropolitan centre, C_m = 3 dB, is part of the antenna term here. In dB.
double AntennaTerm(const ModelInputs& in, Area area) noexcept {
    const double term = SmallCityAntennaTerm(in.f, in.hm);
    return area == Area::Urban && CityOf(in.city) == City::Large ? term - 3.0 : term;
}

}  // namespace

double Cost231Loss(const ModelInputs& in) noexcept {
    double& antenna = ModelTerms.CostLossAntennaTerm;
    const P529Fields terms{ModelTerms.CostLossAreaTerm, ModelTerms.CostLossExponent,
                           ModelTerms.CostLossEffectiveHb};
    const Area area = AreaOf(in.area);
    antenna = AntennaTerm(in, area);
    const auto [time, location] = AssignP529Terms(terms, area, in);
    return 46.3 + 33.9 * Log10(in.f) - 13.82 * Log10(in.hb) +
           DistanceTerm(in.d, in.hb, terms.exponent) - terms.areaTerm - antenna + time - location;
}

double Cost231FieldStrength(const ModelInputs& in) noexcept {
    double& antenna = ModelTerms.CostFsAntennaTerm;
    const P529Fields terms{ModelTerms.CostFsAreaTerm, ModelTerms.CostFsExponent,
                           ModelTerms.CostFsEffectiveHb};
    const Area area = AreaOf(in.area);
    antenna = AntennaTerm(in, area);
    const auto [time, location] = AssignP529Terms(terms, area, in);
    return 63.06 + 10.0 * Log10(GetPowerWatts()) - 13.9 * Log10(in.f) + 13.82 * Log10(in.hb) -
           DistanceTerm(in.d, in.hb, terms.exponent) + terms.areaTerm + antenna - time + location;
}

}  // namespace vardel
