#pragma once

#include <algorithm>
#include <array>
#include <cstddef>

#include "models/AreaBlock.h"
#include "models/Distances.h"
#include "models/FormulaTerms.h"
#include "models/ModelInputs.h"
#include "models/Primitives.h"
#include "models/Variability.h"

// What the formulas have in common of a path, apart from its distance: computed once for a call, or
// once for a whole curve.

namespace vardel {

// How far the percentages move a path's median.
struct PathStatistics {
    double timeLevel;  // see TimeLevel
    double location;   // dB, see LocationVariability

    // dB
    template <class Distance>
    double Time(const Distance& at) const noexcept {
        return at.Time() * timeLevel;
    }
    constexpr TermText TimeText() const noexcept {
        return {"Percent of time",
                timeLevel > 0.0 ? "10 (1 − e^(−0.01 d))² (−log(0.02 (100 − pt)))"
                                : "10 (1 − e^(−0.01 d))² log(0.02 pt)",
                source::None};
    }
    static constexpr TermText LocationText{"Percent of locations", "σ z", source::Okumura};
};

// The area as the models read it, and the statistics of the path. These are stricter about the
// text.
inline Area ReadArea(const ModelInputs& in, PathStatistics& statistics) noexcept {
    const Area untrimmed = AreaOfUntrimmed(in.area);
    statistics = {TimeLevel(in.pctTime), LocationVariability(in.f, in.pctLoc, untrimmed)};
    return untrimmed != Area::Unknown ? untrimmed : AreaOf(in.area);
}

// dB a decade of distance, from the decimal logarithm of the base height in m.
inline double DistanceSlope(double logHb) noexcept { return 44.9 - 6.55 * logHb; }

// The distance term of ITU-R P.529 and of COST 231, whose exponent grows beyond 20 km.
class P529DistanceTerm {
public:
    // logHb: the decimal logarithm of in.hb. beyond20: whether a distance of more than 20 km comes.
    P529DistanceTerm(const ModelInputs& in, double logHb, bool beyond20) noexcept
        : slope_(DistanceSlope(logHb)),
          effectiveHb_(beyond20 ? EffectiveBaseHeight(in.hb) : 0.0),
          exponentSlope_(beyond20 ? ExponentSlope(in.f, effectiveHb_) : 0.0) {}

    // To the base height of a point of an area, for any distance. f in MHz.
    template <class Point>
    void Raise(const Point& at, double f) noexcept {
        slope_ = DistanceSlope(at.LogHb());
        effectiveHb_ = at.EffectiveHb();
        exponentSlope_ = ExponentSlope(f, effectiveHb_);
    }

    // m
    double EffectiveHb() const noexcept { return effectiveHb_; }

    // b of log d.
    template <class Distance>
    double Exponent(const Distance& at) const noexcept {
        return at.Km() <= 20.0 ? 1.0 : 1.0 + exponentSlope_ * at.Exponent();
    }

    // In dB.
    template <class Distance>
    double At(const Distance& at) const noexcept {
        const double exponent = Exponent(at);
        return exponent == 1.0 ? slope_ * at.Log() : slope_ * at.LogTo(exponent);
    }
    static constexpr TermText Text{"Distance", "(44.9 − 6.55 log hb) (log d)^b", source::P529};

    void Note(ListedSum& sum, double d) const {
        const SingleDistance at{d};
        if (d > 20.0)
            sum.Note({"Effective base height hb'", "hb / √(1 + 7·10⁻⁶ hb²)", source::P529},
                     effectiveHb_, "m");
        sum.Note({"Distance exponent b",
                  d > 20.0 ? "1 + (0.14 + 1.87·10⁻⁴ f + 1.07·10⁻³ hb') (log(d / 20))^0.8" : "1",
                  source::P529},
                 Exponent(at), "");
    }

private:
    double slope_;
    double effectiveHb_;
    double exponentSlope_;
};

// What a loss gains a field strength loses.
template <class Sum>
class OppositeSum {
public:
    explicit OppositeSum(Sum& sum) noexcept : sum_(sum) {}

    void Add(const TermText& text, double term) { sum_.Subtract(text, term); }
    void Subtract(const TermText& text, double term) { sum_.Add(text, term); }

private:
    Sum& sum_;
};

// The two formulas of a path: a head, which the distance does not change, and a tail at a distance.
struct LossFormula {
    template <class Path, class Sum>
    void AddHead(Sum& sum, const Path& path) const {
        path.AddLossHead(sum);
    }
    template <class Path, class Sum, class Distance>
    void AddTail(Sum& sum, const Path& path, const Distance& at) const {
        path.AddLossTail(sum, at);
    }
};

struct FieldStrengthFormula {
    double powerWatts;

    template <class Path, class Sum>
    void AddHead(Sum& sum, const Path& path) const {
        path.AddFieldStrengthHead(sum, powerWatts);
    }
    template <class Path, class Sum, class Distance>
    void AddTail(Sum& sum, const Path& path, const Distance& at) const {
        path.AddFieldStrengthTail(sum, at);
    }
};

template <class Formula, class Path>
double HeadOf(const Formula& formula, const Path& path) noexcept {
    PlainSum sum;
    formula.AddHead(sum, path);
    return sum.Total();
}

template <class Formula, class Path, class Distance>
double ValueFrom(double head, const Formula& formula, const Path& path,
                 const Distance& at) noexcept {
    PlainSum sum(head);
    formula.AddTail(sum, path, at);
    return sum.Total();
}

template <class Formula, class Path, class Distance>
double ValueOf(const Formula& formula, const Path& path, const Distance& at) noexcept {
    return ValueFrom(HeadOf(formula, path), formula, path, at);
}

// A curve. The points are distances in km or those of a grid.
template <class Formula, class Path, class Point>
void FillCurve(const Formula& formula, const Path& path, const Point* points, std::size_t count,
               double* values) noexcept {
    std::transform(points, points + count, values,
                   [&, head = HeadOf(formula, path)](const Point& at) {
                       return ValueFrom(head, formula, path, DistanceAt(at));
                   });
}

// A curve over distances in km that no other curve has. Powers of them are computed by blocks.
template <class Formula, class Path>
void FillNewCurve(const Formula& formula, const Path& path, const double* km, std::size_t count,
                  double* values) noexcept {
    if constexpr (Path::TakesPowersOfDistance) {
        std::array<FreshPoint, FreshPoint::Block> points;
        for (std::size_t done = 0; done < count; done += points.size()) {
            const std::size_t size = std::min(points.size(), count - done);
            FreshPoint::Compute(km + done, size, path.statistics.timeLevel != 0.0, points.data());
            FillCurve(formula, path, points.data(), size, values + done);
        }
    } else {
        FillCurve(formula, path, km, count, values);
    }
}

// Over the points of an area, whose base heights differ, too.
template <class Formula, class Path>
void FillArea(const Formula& formula, Path path, const AreaBlock& block, double* values) noexcept {
    for (std::size_t i = 0; i < block.Count(); ++i) {
        const AreaBlock::Point at = block[i];
        path.Raise(at);
        values[i] = ValueOf(formula, path, at);
    }
}

// What the formula consists of, with the quantities behind its statistics.
template <class Formula, class Path>
FormulaTerms TermsOf(const Formula& formula, const Path& path, const ModelInputs& in) {
    ListedSum sum;
    path.Note(sum, in.d);
    const Area area = AreaOfUntrimmed(in.area);
    if (area != Area::Unknown && !std::isnan(in.pctLoc)) {
        sum.Note({"Standard deviation of locations σ", "by frequency and area", source::Okumura},
                 DeviationSigma(SigmaTableOf(area), in.f), "dB");
        sum.Note({"Normal deviate z", "of pl", source::Okumura}, LocationDeviate(in.pctLoc), "");
    }
    formula.AddHead(sum, path);
    formula.AddTail(sum, path, SingleDistance{in.d});
    return sum.Terms();
}

inline constexpr TermText PowerText{"Power", "10 log P", "by definition"};

}  // namespace vardel
