#include "models/Davidson.h"

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

    double LossHead() const noexcept { return head; }
    double FieldStrengthHead(double powerWatts) const noexcept {
        return 109.36 + 10.0 * Log10(powerWatts) + 20.0 * logF;
    }

    template <class Distance>
    double Loss(double lossHead, const Distance& at) const noexcept {
        const double median = lossHead + slope * at.Log();
        return median + DistanceCorrection(at.Km()) - antenna - areaTerm + HeightCorrection(at) +
               at.Time() * statistics.timeLevel - statistics.location +
               FrequencyDistanceCorrection(at.Km());
    }
    template <class Distance>
    double FieldStrength(double fieldStrengthHead, const Distance& at) const noexcept {
        return fieldStrengthHead - Loss(head, at);
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

void KeepTerms(const Path& path, const SingleDistance& at, ModelTermsRecord& terms) noexcept {
    terms.DavAreaTerm = path.areaTerm;
    terms.DavDistanceTerm = path.DistanceCorrection(at.Km());
    terms.DavHeightTerm = path.HeightCorrection(at);
    terms.DavFreqDistTerm = path.FrequencyDistanceCorrection(at.Km());
}

// For any distance, with no term kept from an earlier call.
Path CurvePath(const ModelInputs& in) noexcept {
    constexpr double Farthest = 1e300;  // km
    double antenna = 0.0;
    return Path(in, antenna, Farthest);
}

}  // namespace

double DavidsonLossWith(const ModelInputs& in, ModelTermsRecord& terms) noexcept {
    const SingleDistance at{in.d};
    const Path path(in, terms.DavAntennaTerm, in.d);
    KeepTerms(path, at, terms);
    return path.Loss(path.LossHead(), at);
}

double DavidsonFieldStrengthWith(const ModelInputs& in, double powerWatts,
                                 ModelTermsRecord& terms) noexcept {
    const SingleDistance at{in.d};
    const Path path(in, terms.DavAntennaTerm, in.d);
    KeepTerms(path, at, terms);
    return path.FieldStrength(path.FieldStrengthHead(powerWatts), at);
}

void DavidsonLossCurve(const ModelInputs& in, const DistanceGrid::Point* points, std::size_t count,
                       double* values) noexcept {
    FillLosses(CurvePath(in), points, count, values);
}

void DavidsonLossCurve(const ModelInputs& in, const double* km, std::size_t count,
                       double* values) noexcept {
    FillLosses(CurvePath(in), km, count, values);
}

void DavidsonFieldStrengthCurve(const ModelInputs& in, double powerWatts,
                                const DistanceGrid::Point* points, std::size_t count,
                                double* values) noexcept {
    FillFieldStrengths(CurvePath(in), powerWatts, points, count, values);
}

void DavidsonFieldStrengthCurve(const ModelInputs& in, double powerWatts, const double* km,
                                std::size_t count, double* values) noexcept {
    FillFieldStrengths(CurvePath(in), powerWatts, km, count, values);
}

double DavidsonLoss(const ModelInputs& in) noexcept { return DavidsonLossWith(in, ModelTerms); }

double DavidsonFieldStrength(const ModelInputs& in) noexcept {
    return DavidsonFieldStrengthWith(in, GetPowerWatts(), ModelTerms);
}

}  // namespace vardel
