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

    template <class Sum>
    void AddLossHead(Sum& sum) const {
        sum.Add({"Constant", "69.36", source::None}, 69.36);
        sum.Add({"Frequency", "30 log f", source::None}, 30.0 * logF);
    }
    template <class Sum>
    void AddFieldStrengthHead(Sum& sum, double powerWatts) const {
        sum.Add({"Constant", "40", "from the loss"}, 40.0);
        sum.Add(PowerText, 10.0 * Log10(powerWatts));
        sum.Subtract({"Frequency", "10 log f", "from the loss"}, 10.0 * logF);
    }

    template <class Sum, class Distance>
    void AddLossTail(Sum& sum, const Distance& at) const {
        sum.Add(DistanceText, 40.0 * at.Log());
        sum.Subtract(HeightsText, 20.0 * logHeights);
        sum.Add(statistics.TimeText(), statistics.Time(at));
        sum.Subtract(AreaCorrectionText(area), areaTerm);
        sum.Subtract(PathStatistics::LocationText, statistics.location);
    }
    template <class Sum, class Distance>
    void AddFieldStrengthTail(Sum& sum, const Distance& at) const {
        sum.Subtract(DistanceText, 40.0 * at.Log());
        sum.Add(HeightsText, 20.0 * logHeights);
        sum.Subtract(statistics.TimeText(), statistics.Time(at));
        sum.Add(AreaCorrectionText(area), areaTerm);
        sum.Add(PathStatistics::LocationText, statistics.location);
    }

    void Note(ListedSum&, double) const {}

    static constexpr TermText DistanceText{"Distance", "40 log d", "Bullington 1947"};
    static constexpr TermText HeightsText{"Antenna heights", "20 log(hb hm)", "Bullington 1947"};

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
    return LossFrom(LossHead(path), path, SingleDistance{in.d});
}

double UsFieldStrengthWith(const ModelInputs& in, double powerWatts,
                           ModelTermsRecord& terms) noexcept {
    const Path path(in);
    terms.UsFsAreaTerm = path.areaTerm;
    return FieldStrengthFrom(FieldStrengthHead(path, powerWatts), path, SingleDistance{in.d});
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

FormulaTerms UsLossTerms(const ModelInputs& in) { return LossTerms(Path(in), in); }

FormulaTerms UsFieldStrengthTerms(const ModelInputs& in, double powerWatts) {
    return FieldStrengthTerms(Path(in), in, powerWatts);
}

double UsLoss(const ModelInputs& in) noexcept { return UsLossWith(in, ModelTerms); }

double UsFieldStrength(const ModelInputs& in) noexcept {
    return UsFieldStrengthWith(in, GetPowerWatts(), ModelTerms);
}

}  // namespace vardel
