#pragma once

#include "models/ModelTerms.h"
#include "models/paths/PathTerms.h"

namespace vardel {

// What does not change with the distance. The sums go in the order in which the formulas are
// written.
struct Cost231Path {
    static constexpr const char* Cost231Report = "COST 231 1999";

    Cost231Path(const ModelInputs& in, bool beyond20) noexcept
        : area(ReadArea(in, statistics)),
          metropolitan(area == Area::Urban && CityOf(in.city) == City::Large),
          f(in.f),
          logF(Log10(in.f)),
          logHb(Log10(in.hb)),
          distanceTerm(in, logHb, beyond20) {
        antenna = SmallCityAntennaTermOfLog(logF, in.hm);
        // The step of a metropolitan centre, C_m = 3 dB, is part of the antenna term here.
        if (metropolitan) antenna = antenna - 3.0;
        areaTerm = AreaCorrection(area, in.f, logF);
    }

    static Cost231Path ForCurve(const ModelInputs& in) noexcept { return {in, true}; }

    void Raise(const AreaBlock::Point& at) noexcept {
        logHb = at.LogHb();
        distanceTerm.Raise(at, f);
    }

    template <class Sum>
    void AddLossHead(Sum& sum) const {
        sum.Add({"Constant", "46.3", Cost231Report}, 46.3);
        sum.Add({"Frequency", "33.9 log f", Cost231Report}, 33.9 * logF);
        sum.Subtract({"Base antenna", "13.82 log hb", Cost231Report}, 13.82 * logHb);
    }
    template <class Sum>
    void AddFieldStrengthHead(Sum& sum, double powerWatts) const {
        sum.Add({"Constant", "63.06", "from the loss"}, 63.06);
        sum.Add(PowerText, 10.0 * Log10(powerWatts));
        sum.Subtract({"Frequency", "13.9 log f", "from the loss"}, 13.9 * logF);
        sum.Add({"Base antenna", "13.82 log hb", Cost231Report}, 13.82 * logHb);
    }

    template <class Sum, class Distance>
    void AddLossTail(Sum& sum, const Distance& at) const {
        sum.Add(P529DistanceTerm::Text, distanceTerm.At(at));
        sum.Subtract(AreaCorrectionText(area), areaTerm);
        sum.Subtract(AntennaText(), antenna);
        sum.Add(statistics.TimeText(), statistics.Time(at));
        sum.Subtract(PathStatistics::LocationText, statistics.location);
    }
    template <class Sum, class Distance>
    void AddFieldStrengthTail(Sum& sum, const Distance& at) const {
        OppositeSum opposite(sum);
        AddLossTail(opposite, at);
    }

    constexpr TermText AntennaText() const noexcept {
        if (metropolitan)
            return {"Mobile antenna a(hm), metropolitan centre",
                    "(1.1 log f − 0.7) hm − (1.56 log f − 0.8) − 3", Cost231Report};
        return {"Mobile antenna a(hm)", "(1.1 log f − 0.7) hm − (1.56 log f − 0.8)", Cost231Report};
    }

    void Note(ListedSum& sum, double d) const { distanceTerm.Note(sum, d); }

    static double Loss(const ModelInputs& in, ModelTermsRecord& terms) noexcept {
        const SingleDistance at{in.d};
        const Cost231Path path(in, in.d > 20.0);
        terms.CostLossAntennaTerm = path.antenna;
        terms.CostLossAreaTerm = path.areaTerm;
        terms.CostLossExponent = path.distanceTerm.Exponent(at);
        if (in.d > 20.0) terms.CostLossEffectiveHb = path.distanceTerm.EffectiveHb();
        return ValueOf(LossFormula{}, path, at);
    }
    static double FieldStrength(const ModelInputs& in, double powerWatts,
                                ModelTermsRecord& terms) noexcept {
        const SingleDistance at{in.d};
        const Cost231Path path(in, in.d > 20.0);
        terms.CostFsAntennaTerm = path.antenna;
        terms.CostFsAreaTerm = path.areaTerm;
        terms.CostFsExponent = path.distanceTerm.Exponent(at);
        if (in.d > 20.0) terms.CostFsEffectiveHb = path.distanceTerm.EffectiveHb();
        return ValueOf(FieldStrengthFormula{powerWatts}, path, at);
    }

    static constexpr bool TakesPowersOfDistance = true;

    PathStatistics statistics;
    Area area;
    bool metropolitan;
    double f;  // MHz
    double logF;
    double logHb;
    double antenna = 0.0;   // dB
    double areaTerm = 0.0;  // dB
    P529DistanceTerm distanceTerm;
};

}  // namespace vardel
