#include "models/Itu529.h"

#include "models/PathTerms.h"

namespace vardel {

namespace {

// What does not change with the distance. A median loss L is the head, then the distance term; a
// field strength likewise, with the signs turned.
struct Path {
    Path(const ModelInputs& in, double& antennaTerm, bool beyond20) noexcept
        : area(ReadArea(in, statistics)),
          logF(Log10(in.f)),
          logHb(Log10(in.hb)),
          distanceTerm(in, logHb, beyond20) {
        AssignHataAntennaTerm(antennaTerm, area, in.city, logF, in.f, in.hm);
        antenna = antennaTerm;
        areaTerm = AreaCorrection(area, in.f, logF);
    }

    double LossHead() const noexcept {
        return 69.55 + 26.16 * logF - 13.82 * logHb - antenna - areaTerm;
    }
    double FieldStrengthHead(double powerWatts) const noexcept {
        return 39.82 + 10.0 * Log10(powerWatts) - 6.16 * logF + 13.82 * logHb + antenna + areaTerm;
    }

    template <class Distance>
    double Loss(double head, const Distance& at) const noexcept {
        return head + distanceTerm.At(at) + at.Time() * statistics.timeLevel - statistics.location;
    }
    template <class Distance>
    double FieldStrength(double head, const Distance& at) const noexcept {
        return head - distanceTerm.At(at) - at.Time() * statistics.timeLevel + statistics.location;
    }

    PathStatistics statistics;
    Area area;
    double logF;
    double logHb;
    double antenna = 0.0;   // dB
    double areaTerm = 0.0;  // dB
    P529DistanceTerm distanceTerm;
};

// With no term kept from an earlier call.
Path CurvePath(const ModelInputs& in) noexcept {
    double antenna = 0.0;
    return Path(in, antenna, true);
}

}  // namespace

double Itu529LossWith(const ModelInputs& in, ModelTermsRecord& terms) noexcept {
    const SingleDistance at{in.d};
    const Path path(in, terms.ItuLossAntennaTerm, in.d > 20.0);
    terms.ItuLossAreaTerm = path.areaTerm;
    terms.ItuLossExponent = path.distanceTerm.Exponent(at);
    if (in.d > 20.0) terms.ItuLossEffectiveHb = path.distanceTerm.EffectiveHb();
    return path.Loss(path.LossHead(), at);
}

double Itu529FieldStrengthWith(const ModelInputs& in, double powerWatts,
                               ModelTermsRecord& terms) noexcept {
    const SingleDistance at{in.d};
    const Path path(in, terms.ItuFsAntennaTerm, in.d > 20.0);
    terms.ItuFsAreaTerm = path.areaTerm;
    terms.ItuFsExponent = path.distanceTerm.Exponent(at);
    if (in.d > 20.0) terms.ItuFsEffectiveHb = path.distanceTerm.EffectiveHb();
    return path.FieldStrength(path.FieldStrengthHead(powerWatts), at);
}

void Itu529LossCurve(const ModelInputs& in, const DistanceGrid::Point* points, std::size_t count,
                     double* values) noexcept {
    FillLosses(CurvePath(in), points, count, values);
}

void Itu529LossCurve(const ModelInputs& in, const double* km, std::size_t count,
                     double* values) noexcept {
    const Path path = CurvePath(in);
    FillByBlocks(km, count, values,
                 [&path](const FreshPoint* points, std::size_t size, double* block) {
                     FillLosses(path, points, size, block);
                 });
}

void Itu529FieldStrengthCurve(const ModelInputs& in, double powerWatts,
                              const DistanceGrid::Point* points, std::size_t count,
                              double* values) noexcept {
    FillFieldStrengths(CurvePath(in), powerWatts, points, count, values);
}

void Itu529FieldStrengthCurve(const ModelInputs& in, double powerWatts, const double* km,
                              std::size_t count, double* values) noexcept {
    const Path path = CurvePath(in);
    FillByBlocks(km, count, values,
                 [&path, powerWatts](const FreshPoint* points, std::size_t size, double* block) {
                     FillFieldStrengths(path, powerWatts, points, size, block);
                 });
}

double Itu529Loss(const ModelInputs& in) noexcept { return Itu529LossWith(in, ModelTerms); }

double Itu529FieldStrength(const ModelInputs& in) noexcept {
    return Itu529FieldStrengthWith(in, GetPowerWatts(), ModelTerms);
}

}  // namespace vardel
