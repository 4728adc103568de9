#pragma once

#include <cmath>

#include "models/ModelTerms.h"
#include "models/paths/PathTerms.h"

namespace vardel {

// What does not change with the distance, and the corrections, in dB, that do. The published form
// is in miles and feet, hence 0.62137 and 121.92.
struct DavidsonPath {
    static constexpr const char* Tsb88 = "TSB-88-A";

    // The logarithms of corrections that begin at some distance are left out where none beyond it
    // comes.
    DavidsonPath(const ModelInputs& in, double& antennaTerm, double farthest) noexcept
        : area(ReadArea(in, statistics)),
          antennaForm(HataAntennaForm(area, in.city)),
          f(in.f),
          hb(in.hb),
          logF(Log10(in.f)),
          logHb(Log10(in.hb)),
          slope(DistanceSlope(logHb)),
          heightFactor(farthest > 20.0 ? HeightFactor(Log10(in.hb / DavidsonHeightUnit)) : 0.0),
          frequencyFactor(farthest > 40.238 ? -0.112 * Log10(1500.0 / in.f) : 0.0) {
        AssignHataAntennaTerm(antennaTerm, antennaForm, logF, in.f, in.hm);
        antenna = antennaTerm;
        head = HeadOf(LossFormula{}, *this);
        areaTerm = AreaCorrection(area, in.f, logF);
    }

    // For any distance, with no term kept from an earlier call.
    static DavidsonPath ForCurve(const ModelInputs& in) noexcept {
        constexpr double Farthest = 1e300;  // km
        double antenna = 0.0;
        return {in, antenna, Farthest};
    }

    void Raise(const AreaBlock::Point& at) noexcept {
        hb = at.Hb();
        logHb = at.LogHb();
        slope = DistanceSlope(logHb);
        heightFactor = HeightFactor(at.LogHbInUnits());
        head = HeadOf(LossFormula{}, *this);
    }

    static double HeightFactor(double logHbInUnits) noexcept { return 0.5 + 0.15 * logHbInUnits; }
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

    template <class Sum>
    void AddLossHead(Sum& sum) const {
        sum.Add({"Constant", "69.55", source::Hata}, 69.55);
        sum.Add({"Frequency", "26.16 log f", source::Hata}, 26.16 * logF);
        sum.Subtract({"Base antenna", "13.82 log hb", source::Hata}, 13.82 * logHb);
    }
    template <class Sum, class Distance>
    void AddLossTail(Sum& sum, const Distance& at) const {
        sum.Add({"Distance", "(44.9 − 6.55 log hb) log d", source::Hata}, slope * at.Log());
        sum.Add(DistanceCorrectionText(at.Km()), DistanceCorrection(at.Km()));
        sum.Subtract(HataAntennaText(antennaForm, f), antenna);
        sum.Subtract(AreaCorrectionText(area), areaTerm);
        sum.Add(HeightCorrectionText(), HeightCorrection(at));
        sum.Add(statistics.TimeText(), statistics.Time(at));
        sum.Subtract(PathStatistics::LocationText, statistics.location);
        sum.Add(FrequencyDistanceCorrectionText(at.Km()), FrequencyDistanceCorrection(at.Km()));
    }

    template <class Sum>
    void AddFieldStrengthHead(Sum& sum, double powerWatts) const {
        sum.Add({"Constant", "109.36", "ITU-R P.525"}, 109.36);
        sum.Add(PowerText, 10.0 * Log10(powerWatts));
        sum.Add({"Frequency", "20 log f", "ITU-R P.525"}, 20.0 * logF);
    }
    template <class Sum, class Distance>
    void AddFieldStrengthTail(Sum& sum, const Distance& at) const {
        sum.Subtract({"Path loss", "L, the sum of its own terms", Tsb88},
                     ValueFrom(head, LossFormula{}, *this, at));
    }

    constexpr TermText DistanceCorrectionText(double d) const noexcept {
        constexpr const char* Name = "Distance correction";
        if (d <= 20.0) return {Name, "0 up to 20 km", Tsb88};
        if (d <= 64.38) return {Name, "0.62137 (d − 20) (0.5 + 0.15 log(hb / 121.92))", Tsb88};
        return {Name, "0.62137 (d − 20) (0.5 + 0.15 log(hb / 121.92)) − 0.174 (d − 64.38)", Tsb88};
    }
    constexpr TermText HeightCorrectionText() const noexcept {
        constexpr const char* Name = "Base height correction";
        if (hb <= 300.0) return {Name, "0 up to 300 m", Tsb88};
        return {Name, "−0.00784 |log(9.98 / d)| (hb − 300)", Tsb88};
    }
    static constexpr TermText FrequencyDistanceCorrectionText(double d) noexcept {
        constexpr const char* Name = "Frequency and distance correction";
        if (d <= 40.238) return {Name, "0 up to 40.238 km", Tsb88};
        return {Name, "−0.112 log(1500 / f) (d − 40.238)", Tsb88};
    }

    void Note(ListedSum&, double) const {}

    // The distance of a call, which needs the logarithm for the term that it keeps and for its sum.
    struct CallDistance : SingleDistance {
        explicit CallDistance(const ModelInputs& in) noexcept
            : SingleDistance{in.d}, logOfInverse(in.hb <= 300.0 ? 0.0 : Log10(9.98 / in.d)) {}

        double LogOfInverse() const noexcept { return logOfInverse; }

        double logOfInverse;  // 0 where no height correction is
    };

    void KeepTerms(const CallDistance& at, ModelTermsRecord& terms) const noexcept {
        terms.DavAreaTerm = areaTerm;
        terms.DavDistanceTerm = DistanceCorrection(at.Km());
        terms.DavHeightTerm = HeightCorrection(at);
        terms.DavFreqDistTerm = FrequencyDistanceCorrection(at.Km());
    }

    static double Loss(const ModelInputs& in, ModelTermsRecord& terms) noexcept {
        const CallDistance at(in);
        const DavidsonPath path(in, terms.DavAntennaTerm, in.d);
        path.KeepTerms(at, terms);
        return ValueFrom(path.head, LossFormula{}, path, at);
    }
    static double FieldStrength(const ModelInputs& in, double powerWatts,
                                ModelTermsRecord& terms) noexcept {
        const CallDistance at(in);
        const DavidsonPath path(in, terms.DavAntennaTerm, in.d);
        path.KeepTerms(at, terms);
        return ValueOf(FieldStrengthFormula{powerWatts}, path, at);
    }

    static constexpr bool TakesPowersOfDistance = false;

    PathStatistics statistics;
    Area area;
    AntennaForm antennaForm;
    double f;   // MHz
    double hb;  // m
    double logF;
    double logHb;
    double slope;
    double heightFactor;
    double frequencyFactor;
    double antenna = 0.0;   // dB
    double head = 0.0;      // of the loss, dB
    double areaTerm = 0.0;  // dB
};

}  // namespace vardel
