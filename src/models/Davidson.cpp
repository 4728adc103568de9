#include "models/Davidson.h"

#include <algorithm>
#include <cmath>

#include "models/PathTerms.h"

namespace vardel {

namespace {

// What does not change with the distance, and the corrections, in dB, that do. The published form
// is in miles and feet, hence 0.62137 and 121.92.
struct Path {
    // The logarithms of corrections that begin at some distance are left out where none beyond it
    // comes.
    Path(const ModelInputs& in, double& antennaTerm, double farthest) noexcept
        : area(ReadArea(in, statistics)),
          hb(in.hb),
          logF(Log10(in.f)),
          slope(44.9 - 6.55 * Log10(in.hb)),
          heightFactor(farthest > 20.0 ? 0.5 + 0.15 * Log10(in.hb / 121.92) : 0.0),
          frequencyFactor(farthest > 40.238 ? -0.112 * Log10(1500.0 / in.f) : 0.0) {
        AssignHataAntennaTerm(antennaTerm, area, in.city, logF, in.f, in.hm);
        antenna = antennaTerm;
        head = 69.55 + 26.16 * logF - 13.82 * Log10(in.hb);
        areaTerm = AreaCorrection(area, in.f, logF);
    }

    double DistanceCorrection(double d) const noexcept {
        double term = 0.0;
        if (d > 64.38) term = -0.174 * (d - 64.38);
        if (d > 20.0) term = term + 0.62137 * (d - 20.0) * heightFactor;
        return term;
    }
    template <class Distance>
    double HeightCorrection(const Distance& at) const noexcept {
        return hb <= 300.0 ? 0.0 : -0.00784 * std::fabs(at.LogOfInverse()) * (hb - 300.0);
    }
    double FrequencyDistanceCorrection(double d) const noexcept {
        return d <= 40.238 ? 0.0 : frequencyFactor * (d - 40.238);
    }

    template <class Distance>
    double Loss(const Distance& at, double distance, double height,
                double frequency) const noexcept {
        const double median = head + slope * at.Log();
        return median + distance - antenna - areaTerm + height + at.Time() * statistics.timeLevel -
               statistics.location + frequency;
    }

    PathStatistics statistics;
    Area area;
    double hb;  // m
    double logF;
    double slope;
    double heightFactor;
    double frequencyFactor;
    double antenna = 0.0;   // dB
    double head = 0.0;      // dB
    double areaTerm = 0.0;  // dB
};

double FieldStrengthHead(double powerWatts, double logF) noexcept {
    return 109.36 + 10.0 * Log10(powerWatts) + 20.0 * logF;
}

double LossOf(const Path& path, double d, ModelTermsRecord& terms) noexcept {
    const SingleDistance at{d};
    const double distance = path.DistanceCorrection(d);
    const double height = path.HeightCorrection(at);
    const double frequency = path.FrequencyDistanceCorrection(d);
    terms.DavAreaTerm = path.areaTerm;
    terms.DavDistanceTerm = distance;
    terms.DavHeightTerm = height;
    terms.DavFreqDistTerm = frequency;
    return path.Loss(at, distance, height, frequency);
}

template <class Distance>
double LossAt(const Path& path, const Distance& at) noexcept {
    return path.Loss(at, path.DistanceCorrection(at.Km()), path.HeightCorrection(at),
                     path.FrequencyDistanceCorrection(at.Km()));
}

constexpr double AnyDistance = 1e300;  // km

template <class Point>
void FillLosses(const ModelInputs& in, const Point* points, std::size_t count,
                double* values) noexcept {
    double antenna = 0.0;
    const Path path(in, antenna, AnyDistance);
    std::transform(points, points + count, values,
                   [&](const Point& point) { return LossAt(path, DistanceAt(point)); });
}

template <class Point>
void FillFieldStrengths(const ModelInputs& in, double powerWatts, const Point* points,
                        std::size_t count, double* values) noexcept {
    double antenna = 0.0;
    const Path path(in, antenna, AnyDistance);
    const double head = FieldStrengthHead(powerWatts, path.logF);
    std::transform(points, points + count, values,
                   [&](const Point& point) { return head - LossAt(path, DistanceAt(point)); });
}

}  // namespace

double DavidsonLossWith(const ModelInputs& in, ModelTermsRecord& terms) noexcept {
    return LossOf(Path(in, terms.DavAntennaTerm, in.d), in.d, terms);
}

double DavidsonFieldStrengthWith(const ModelInputs& in, double powerWatts,
                                 ModelTermsRecord& terms) noexcept {
    const Path path(in, terms.DavAntennaTerm, in.d);
    return FieldStrengthHead(powerWatts, path.logF) - LossOf(path, in.d, terms);
}

void DavidsonLossCurve(const ModelInputs& in, const DistanceGrid::Point* points, std::size_t count,
                       double* values) noexcept {
    FillLosses(in, points, count, values);
}

void DavidsonLossCurve(const ModelInputs& in, const double* km, std::size_t count,
                       double* values) noexcept {
    FillLosses(in, km, count, values);
}

void DavidsonFieldStrengthCurve(const ModelInputs& in, double powerWatts,
                                const DistanceGrid::Point* points, std::size_t count,
                                double* values) noexcept {
    FillFieldStrengths(in, powerWatts, points, count, values);
}

void DavidsonFieldStrengthCurve(const ModelInputs& in, double powerWatts, const double* km,
                                std::size_t count, double* values) noexcept {
    FillFieldStrengths(in, powerWatts, km, count, values);
}

double DavidsonLoss(const ModelInputs& in) noexcept { return DavidsonLossWith(in, ModelTerms); }

double DavidsonFieldStrength(const ModelInputs& in) noexcept {
    return DavidsonFieldStrengthWith(in, GetPowerWatts(), ModelTerms);
}

}  // namespace vardel
