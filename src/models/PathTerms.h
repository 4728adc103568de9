#pragma once

#include <algorithm>
#include <array>
#include <cstddef>

#include "Distances.h"
#include "ModelInputs.h"
#include "Primitives.h"
#include "Variability.h"

// What the formulas have in common of a path, apart from its distance: computed once for a call, or
// once for a whole curve.

namespace vardel {

struct PathStatistics {
    double timeLevel;  // see TimeLevel
    double location;   // dB, see LocationVariability
};

// The area as the models read it, and the statistics of the path. These are stricter about the
// text.
inline Area ReadArea(const ModelInputs& in, PathStatistics& statistics) noexcept {
    const Area untrimmed = AreaOfUntrimmed(in.area);
    statistics = {TimeLevel(in.pctTime), LocationVariability(in.f, in.pctLoc, untrimmed)};
    return untrimmed != Area::Unknown ? untrimmed : AreaOf(in.area);
}

// The distance term of ITU-R P.529 and of COST 231, whose exponent grows beyond 20 km.
class P529DistanceTerm {
public:
    // logHb: the decimal logarithm of in.hb. beyond20: whether a distance of more than 20 km comes.
    P529DistanceTerm(const ModelInputs& in, double logHb, bool beyond20) noexcept
        : slope_(44.9 - 6.55 * logHb),
          effectiveHb_(beyond20 ? EffectiveBaseHeight(in.hb) : 0.0),
          exponentSlope_(beyond20 ? ExponentSlope(in.f, effectiveHb_) : 0.0) {}

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

private:
    double slope_;
    double effectiveHb_;
    double exponentSlope_;
};

// Curves of a model's path, which has the head of its formula, that the distance does not change,
// and the whole at a distance. The points are distances in km or those of a grid.
template <class Path, class Point>
void FillLosses(const Path& path, const Point* points, std::size_t count, double* values) noexcept {
    std::transform(points, points + count, values,
                   [&path, head = path.LossHead()](const Point& at) {
                       return path.Loss(head, DistanceAt(at));
                   });
}

template <class Path, class Point>
void FillFieldStrengths(const Path& path, double powerWatts, const Point* points, std::size_t count,
                        double* values) noexcept {
    std::transform(points, points + count, values,
                   [&path, head = path.FieldStrengthHead(powerWatts)](const Point& at) {
                       return path.FieldStrength(head, DistanceAt(at));
                   });
}

// A curve over distances in km that no other curve has, by blocks of points: fill(points, count,
// values) for each.
template <class Fill>
void FillByBlocks(const double* km, std::size_t count, double* values, Fill fill) noexcept {
    std::array<FreshPoint, FreshPoint::Block> points;
    for (std::size_t done = 0; done < count; done += points.size()) {
        const std::size_t size = std::min(points.size(), count - done);
        FreshPoint::Compute(km + done, size, points.data());
        fill(points.data(), size, values + done);
    }
}

}  // namespace vardel
