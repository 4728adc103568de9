#include "models/Itu529.h"

#include "models/ModelTerms.h"
#include "models/P529Terms.h"

namespace vardel {

double Itu529Loss(const ModelInputs& in) noexcept {
    double& antenna = ModelTerms.ItuLossAntennaTerm;
    const P529Fields terms{ModelTerms.ItuLossAreaTerm, ModelTerms.ItuLossExponent,
                           ModelTerms.ItuLossEffectiveHb};
    const Area area = AreaOf(in.area);
    AssignHataAntennaTerm(antenna, area, in.city, in.f, in.hm);
    const auto [time, location] = AssignP529Terms(terms, area, in);
    return 69.55 + 26.16 * Log10(in.f) - 13.82 * Log10(in.hb) - antenna - terms.areaTerm +
           DistanceTerm(in.d, in.hb, terms.exponent) + time - location;
}

double Itu529FieldStrength(const ModelInputs& in) noexcept {
    double& antenna = ModelTerms.ItuFsAntennaTerm;
    const P529Fields terms{ModelTerms.ItuFsAreaTerm, ModelTerms.ItuFsExponent,
                           ModelTerms.ItuFsEffectiveHb};
    const Area area = AreaOf(in.area);
    AssignHataAntennaTerm(antenna, area, in.city, in.f, in.hm);
    const auto [time, location] = AssignP529Terms(terms, area, in);
    return 39.82 + 10.0 * Log10(GetPowerWatts()) - 6.16 * Log10(in.f) + 13.82 * Log10(in.hb) +
           antenna + terms.areaTerm - DistanceTerm(in.d, in.hb, terms.exponent) - time + location;
}

}  // namespace vardel
