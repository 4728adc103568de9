#pragma once

#include <cmath>
#include <cstddef>
#include <vector>

#include "FastPower.h"
#include "Primitives.h"

// What the formulas need of a distance: computed for a single call, kept for a grid of distances
// that many curves share. Both give the same bits.

namespace vardel {

// (1 - e^(-0.01 d))^2 · 10, the part of TimeVariability that the distance makes. d in km.
inline double TimeGrowth(double d) noexcept {
    const double approach = 1.0 - std::exp(-0.01 * d);
    return approach * approach * 10.0;
}

// One distance in km.
struct SingleDistance {
    double d;

    double Km() const noexcept { return d; }
    double Log() const noexcept { return Log10(d); }
    // Log() to the power of y.
    double LogTo(double y) const noexcept { return std::pow(Log(), y); }
    double Time() const noexcept { return TimeGrowth(d); }
    double Exponent() const noexcept { return ExponentGrowth(d); }
    double LogOfInverse() const noexcept { return Log10(9.98 / d); }  // for the Davidson terms
};

// Distances in km, each above zero, in any order, with what the formulas need of them.
class DistanceGrid {
public:
    DistanceGrid() = default;
    DistanceGrid(const double* km, std::size_t count);

    std::size_t Size() const noexcept { return points_.size(); }
    double Km(std::size_t i) const noexcept { return points_[i].Km(); }  // i below Size()

    // What SingleDistance computes, kept.
    class Point {
    public:
        explicit Point(double km);

        double Km() const noexcept { return km_; }
        double Log() const noexcept { return log_; }
        double LogTo(double y) const noexcept { return FastPower(log_, logOfLog_, y); }
        double Time() const noexcept { return time_; }
        double Exponent() const noexcept { return exponent_; }
        double LogOfInverse() const noexcept { return logOfInverse_; }

    private:
        double km_;
        double log_;
        LongLog logOfLog_;
        double time_;
        double exponent_;  // 0 up to 20 km, where it is not needed
        double logOfInverse_;
    };

    const Point* begin() const noexcept { return points_.data(); }
    const Point* end() const noexcept { return points_.data() + points_.size(); }

private:
    std::vector<Point> points_;
};

// A distance of a block of those that no other curve has. Computed column by column, so that calls
// of one function follow each other: the processor overlaps them.
class FreshPoint {
public:
    static constexpr std::size_t Block = 64;

    // Of count distances in km, each above zero and not more than a block, into points. Without
    // time, which the median does not need, Time() is 0.
    static void Compute(const double* km, std::size_t count, bool time,
                        FreshPoint* points) noexcept;

    double Km() const noexcept { return km_; }
    double Log() const noexcept { return log_; }
    double LogTo(double y) const noexcept { return std::pow(log_, y); }
    double Time() const noexcept { return time_; }
    double Exponent() const noexcept { return exponent_; }

private:
    double km_ = 0.0;
    double log_ = 0.0;
    double time_ = 0.0;
    double exponent_ = 0.0;  // 0 up to 20 km, where it is not needed
};

// The points of a curve, either as they are or in a grid.
inline SingleDistance DistanceAt(double km) noexcept { return {km}; }
inline const FreshPoint& DistanceAt(const FreshPoint& point) noexcept { return point; }
inline const DistanceGrid::Point& DistanceAt(const DistanceGrid::Point& point) noexcept {
    return point;
}

}  // namespace vardel
