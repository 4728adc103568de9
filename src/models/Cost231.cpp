#include "models/Cost231.h"

#include "models/PathTerms.h"

namespace vardel {

namespace {

// What does not change with the distance. The sums go in the order in which the formulas are
// written.
struct Path {
    Path(const ModelInputs& in, bool beyond20) noexcept
        : area(ReadArea(in, statistics)),
          logF(Log10(in.f)),
          logHb(Log10(in.hb)),
          distanceTerm(in, logHb, beyond20) {
        antenna = SmallCityAntennaTermOfLog(logF, in.hm);
        // The step of a metropolitan centre, C_m = 3 dB, is part of the antenna term here.
        if (area == Area::Urban && CityOf(in.city) == City::Large) antenna = antenna - 3.0;
        areaTerm = AreaCorrection(area, in.f, logF);
    }

    double LossHead() const noexcept { return 46.3 + 33.9 * logF - 13.82 * logHb; }
    double FieldStrengthHead(double powerWatts) const noexcept {
        return 63.06 + 10.0 * Log10(powerWatts) - 13.9 * logF + 13.82 * logHb;
    }

    template <class Distance>
    double Loss(double head, const Distance& at) const noexcept {
        return head + distanceTerm.At(at) - areaTerm - antenna + at.Time() * statistics.timeLevel -
               statistics.location;
    }
    template <class Distance>
    double FieldStrength(double head, const Distance& at) const noexcept {
        return head - distanceTerm.At(at) + areaTerm + antenna - at.Time() * statistics.timeLevel +
               statistics.location;
    }

    PathStatistics statistics;
    Area area;
    double logF;
    double logHb;
    double antenna = 0.0;   // dB
    double areaTerm = 0.0;  // dB
    P529DistanceTerm distanceTerm;
};

}  // namespace

double Cost231LossWith(const ModelInputs& in, ModelTermsRecord& terms) noexcept {
    const SingleDistance at{in.d};
    const Path path(in, in.d > 20.0);
    terms.CostLossAntennaTerm = path.antenna;
    terms.CostLossAreaTerm = path.areaTerm;
    terms.CostLossExponent = path.distanceTerm.Exponent(at);
    if (in.d > 20.0) terms.CostLossEffectiveHb = path.distanceTerm.EffectiveHb();
    return path.Loss(path.LossHead(), at);
}

double Cost231FieldStrengthWith(const ModelInputs& in, double powerWatts,
                                ModelTermsRecord& terms) noexcept {
    const SingleDistance at{in.d};
    const Path path(in, in.d > 20.0);
    terms.CostFsAntennaTerm = path.antenna;
    terms.CostFsAreaTerm = path.areaTerm;
    terms.CostFsExponent = path.distanceTerm.Exponent(at);
    if (in.d > 20.0) terms.CostFsEffectiveHb = path.distanceTerm.EffectiveHb();
    return path.FieldStrength(path.FieldStrengthHead(powerWatts), at);
}

void Cost231LossCurve(const ModelInputs& in, const DistanceGrid::Point* points, std::size_t count,
                      double* values) noexcept {
    FillLosses(Path(in, true), points, count, values);
}

void Cost231LossCurve(const ModelInputs& in, const double* km, std::size_t count,
                      double* values) noexcept {
    const Path path(in, true);
    FillByBlocks(km, count, values,
                 [&path](const FreshPoint* points, std::size_t size, double* block) {
                     FillLosses(path, points, size, block);
                 });
}

void Cost231FieldStrengthCurve(const ModelInputs& in, double powerWatts,
                               const DistanceGrid::Point* points, std::size_t count,
                               double* values) noexcept {
    FillFieldStrengths(Path(in, true), powerWatts, points, count, values);
}

void Cost231FieldStrengthCurve(const ModelInputs& in, double powerWatts, const double* km,
                               std::size_t count, double* values) noexcept {
    const Path path(in, true);
    FillByBlocks(km, count, values,
                 [&path, powerWatts](const FreshPoint* points, std::size_t size, double* block) {
                     FillFieldStrengths(path, powerWatts, points, size, block);
                 });
}

double Cost231Loss(const ModelInputs& in) noexcept { return Cost231LossWith(in, ModelTerms); }

double Cost231FieldStrength(const ModelInputs& in) noexcept {
    return Cost231FieldStrengthWith(in, GetPowerWatts(), ModelTerms);
}

}  // namespace vardel
