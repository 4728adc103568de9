#pragma once

#include "models/ModelTerms.h"
#include "models/paths/PathTerms.h"

namespace vardel {

// What does not change with the distance. A median loss L is the head, then the distance term; a
// field strength likewise, with the signs turned.
struct Itu529Path {
    Itu529Path(const ModelInputs& in, double& antennaTerm, bool beyond20) noexcept
        : area(ReadArea(in, statistics)),
          antennaForm(HataAntennaForm(area, in.city)),
          f(in.f),
          logF(Log10(in.f)),
          logHb(Log10(in.hb)),
          distanceTerm(in, logHb, beyond20) {
        AssignHataAntennaTerm(antennaTerm, antennaForm, logF, in.f, in.hm);
        antenna = antennaTerm;
        areaTerm = AreaCorrection(area, in.f, logF);
    }

    // With no term kept from an earlier call.
    static Itu529Path ForCurve(const ModelInputs& in) noexcept {
        double antenna = 0.0;
        return {in, antenna, true};
    }

    void Raise(const AreaBlock::Point& at) noexcept {
        logHb = at.LogHb();
        distanceTerm.Raise(at, f);
    }

    template <class Sum>
    void AddLossHead(Sum& sum) const {
        sum.Add({"Constant", "69.55", source::Hata}, 69.55);
        sum.Add({"Frequency", "26.16 log f", source::Hata}, 26.16 * logF);
        sum.Subtract({"Base antenna", "13.82 log hb", source::Hata}, 13.82 * logHb);
        sum.Subtract(HataAntennaText(antennaForm, f), antenna);
        sum.Subtract(AreaCorrectionText(area), areaTerm);
    }
    template <class Sum>
    void AddFieldStrengthHead(Sum& sum, double powerWatts) const {
        sum.Add({"Constant", "39.82", source::P529}, 39.82);
        sum.Add(PowerText, 10.0 * Log10(powerWatts));
        sum.Subtract({"Frequency", "6.16 log f", source::P529}, 6.16 * logF);
        sum.Add({"Base antenna", "13.82 log hb", source::P529}, 13.82 * logHb);
        sum.Add(HataAntennaText(antennaForm, f), antenna);
        sum.Add(AreaCorrectionText(area), areaTerm);
    }

    template <class Sum, class Distance>
    void AddLossTail(Sum& sum, const Distance& at) const {
        sum.Add(P529DistanceTerm::Text, distanceTerm.At(at));
        sum.Add(statistics.TimeText(), statistics.Time(at));
        sum.Subtract(PathStatistics::LocationText, statistics.location);
    }
    template <class Sum, class Distance>
    void AddFieldStrengthTail(Sum& sum, const Distance& at) const {
        OppositeSum opposite(sum);
        AddLossTail(opposite, at);
    }

    void Note(ListedSum& sum, double d) const { distanceTerm.Note(sum, d); }

    static double Loss(const ModelInputs& in, ModelTermsRecord& terms) noexcept {
        const SingleDistance at{in.d};
        const Itu529Path path(in, terms.ItuLossAntennaTerm, in.d > 20.0);
        terms.ItuLossAreaTerm = path.areaTerm;
        terms.ItuLossExponent = path.distanceTerm.Exponent(at);
        if (in.d > 20.0) terms.ItuLossEffectiveHb = path.distanceTerm.EffectiveHb();
        return ValueOf(LossFormula{}, path, at);
    }
    static double FieldStrength(const ModelInputs& in, double powerWatts,
                                ModelTermsRecord& terms) noexcept {
        const SingleDistance at{in.d};
        const Itu529Path path(in, terms.ItuFsAntennaTerm, in.d > 20.0);
        terms.ItuFsAreaTerm = path.areaTerm;
        terms.ItuFsExponent = path.distanceTerm.Exponent(at);
        if (in.d > 20.0) terms.ItuFsEffectiveHb = path.distanceTerm.EffectiveHb();
        return ValueOf(FieldStrengthFormula{powerWatts}, path, at);
    }

    static constexpr bool TakesPowersOfDistance = true;

    PathStatistics statistics;
    Area area;
    AntennaForm antennaForm;
    double f;  // MHz
    double logF;
    double logHb;
    double antenna = 0.0;   // dB
    double areaTerm = 0.0;  // dB
    P529DistanceTerm distanceTerm;
};

}  // namespace vardel
