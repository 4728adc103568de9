#include "models/Davidson.h"

#include <cmath>

#include "models/ModelTerms.h"
#include "models/Primitives.h"
#include "models/Variability.h"

namespace vardel {

namespace {

// In dB, for d in km and hb in m. The published form is in miles and feet, hence 0.62137 and
// 121.92.
double DistanceCorrection(double d, double hb) noexcept {
    double term = 0.0;
    if (d > 64.38) term = -0.174 * (d - 64.38);
    if (d > 20.0) term = term + 0.62137 * (d - 20.0) * (0.5 + 0.15 * Log10(hb / 121.92));
    return term;
}

double HeightCorrection(double d, double hb) noexcept {
    return hb <= 300.0 ? 0.0 : -0.00784 * std::fabs(Log10(9.98 / d)) * (hb - 300.0);
}

double FrequencyDistanceCorrection(double f, double d) noexcept {
    return d <= 40.238 ? 0.0 : -0.112 * Log10(1500.0 / f) * (d - 40.238);
}

}  // namespace

double DavidsonLoss(const ModelInputs& in) noexcept {
    ModelTermsRecord& terms = ModelTerms;
    const Area area = AreaOf(in.area);
    AssignHataAntennaTerm(terms.DavAntennaTerm, area, in.city, in.f, in.hm);
    const double median =
        69.55 + 26.16 * Log10(in.f) - 13.82 * Log10(in.hb) + DistanceTerm(in.d, in.hb, 1.0);
    terms.DavAreaTerm = AreaCorrection(area, in.f);
    terms.DavDistanceTerm = DistanceCorrection(in.d, in.hb);
    terms.DavHeightTerm = HeightCorrection(in.d, in.hb);
    terms.DavFreqDistTerm = FrequencyDistanceCorrection(in.f, in.d);
    const double time = TimeVariability(in.d, in.pctTime);
    const double location = LocationVariability(in.f, in.pctLoc, in.area);
    return median + terms.DavDistanceTerm - terms.DavAntennaTerm - terms.DavAreaTerm +
           terms.DavHeightTerm + time - location + terms.DavFreqDistTerm;
}

double DavidsonFieldStrength(const ModelInputs& in) noexcept {
    const double power = GetPowerWatts();
    const double loss = DavidsonLoss(in);
    return 109.36 + 10.0 * Log10(power) + 20.0 * Log10(in.f) - loss;
}

}  // namespace vardel
