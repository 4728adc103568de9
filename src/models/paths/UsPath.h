#pragma once

#include "models/ModelTerms.h"
#include "models/paths/PathTerms.h"

namespace vardel {

// What does not change with the distance.
struct UsPath {
    explicit UsPath(const ModelInputs& in) noexcept
        : area(ReadArea(in, statistics)),
          logF(Log10(in.f)),
          hm(in.hm),
          logHeights(Log10(in.hb * in.hm)),
          areaTerm(AreaCorrection(area, in.f, logF)) {}

    static UsPath ForCurve(const ModelInputs& in) noexcept { return UsPath(in); }

    void Raise(const AreaBlock::Point& at) noexcept { logHeights = Log10(at.Hb() * hm); }

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
        OppositeSum opposite(sum);
        AddLossTail(opposite, at);
    }

    void Note(ListedSum&, double) const {}

    static double Loss(const ModelInputs& in, ModelTermsRecord& terms) noexcept {
        const UsPath path(in);
        terms.UsLossAreaTerm = path.areaTerm;
        return ValueOf(LossFormula{}, path, SingleDistance{in.d});
    }
    static double FieldStrength(const ModelInputs& in, double powerWatts,
                                ModelTermsRecord& terms) noexcept {
        const UsPath path(in);
        terms.UsFsAreaTerm = path.areaTerm;
        return ValueOf(FieldStrengthFormula{powerWatts}, path, SingleDistance{in.d});
    }

    static constexpr bool TakesPowersOfDistance = false;

    static constexpr TermText DistanceText{"Distance", "40 log d", "Bullington 1947"};
    static constexpr TermText HeightsText{"Antenna heights", "20 log(hb hm)", "Bullington 1947"};

    PathStatistics statistics;
    Area area;
    double logF;
    double hm;  // m
    double logHeights;
    double areaTerm;  // dB
};

}  // namespace vardel
