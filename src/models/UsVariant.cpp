#include "models/UsVariant.h"

#include "models/PathTerms.h"

namespace vardel {

namespace {

// What does not change with the distance.
struct Path {
    explicit Path(const ModelInputs& in) noexcept
        : area(ReadArea(in, statistics)),
          logF(Log10(in.f)),
          logHeights(Log10(in.hb * in.hm)),
          areaTerm(AreaCorrection(area, in.f, logF)) {}

    double LossHead() const noexcept { return 69.36 + 30.0 * logF; }
    double FieldStrengthHead(double powerWatts) const noexcept {
        return 40.0 + 10.0 * Log10(powerWatts) - 10.0 * logF;
    }

    template <class Distance>
    double Loss(double head, const Distance& at) const noexcept {
        return head + 40.0 * at.Log() - 20.0 * logHeights + at.Time() * statistics.timeLevel -
               areaTerm - statistics.location;
    }
    template <class Distance>
    double FieldStrength(double head, const Distance& at) const noexcept {
        return head - 40.0 * at.Log() + 20.0 * logHeights - at.Time() * statistics.timeLevel +
               areaTerm + statistics.location;
    }

    PathStatistics statistics;
    Area area;
    double logF;
    double logHeights;
    double areaTerm;  // dB
};

}  // namespace

double UsLossWith(const ModelInputs& in, ModelTermsRecord& terms) noexcept {
    const Path path(in);
    terms.UsLossAreaTerm = path.areaTerm;
    return path.Loss(path.LossHead(), SingleDistance{in.d});
}

double UsFieldStrengthWith(const ModelInputs& in, double powerWatts,
                           ModelTermsRecord& terms) noexcept {
    const Path path(in);
    terms.UsFsAreaTerm = path.areaTerm;
    return path.FieldStrength(path.FieldStrengthHead(powerWatts), SingleDistance{in.d});
}

void UsLossCurve(const ModelInputs& in, const DistanceGrid::Point* points, std::size_t count,
                 double* values) noexcept {
    FillLosses(Path(in), points, count, values);
}

void UsLossCurve(const ModelInputs& in, const double* km, std::size_t count,
                 double* values) noexcept {
    FillLosses(Path(in), km, count, values);
}

void UsFieldStrengthCurve(const ModelInputs& in, double powerWatts,
                          const DistanceGrid::Point* points, std::size_t count,
                          double* values) noexcept {
    FillFieldStrengths(Path(in), powerWatts, points, count, values);
}

void UsFieldStrengthCurve(const ModelInputs& in, double powerWatts, const double* km,
                          std::size_t count, double* values) noexcept {
    FillFieldStrengths(Path(in), powerWatts, km, count, values);
}

double UsLoss(const ModelInputs& in) noexcept { return UsLossWith(in, ModelTerms); }

double UsFieldStrength(const ModelInputs& in) noexcept {
    return UsFieldStrengthWith(in, GetPowerWatts(), ModelTerms);
}

}  // namespace vardel
