#pragma once

#include <array>
#include <cmath>
#include <cstddef>

#include "Primitives.h"

// Paths from one station that differ in distance and in base height, as those to the pixels of an
// area, with what the formulas need of both: computed once for all models, column by column, so
// that the processor overlaps the calls. Gives the bits of a single call.

namespace vardel {

// By what the Davidson correction divides the base height, in m: 400 ft.
inline constexpr double DavidsonHeightUnit = 121.92;

class AreaBlock {
public:
    static constexpr std::size_t Size = 64;

    // Of count distances in km and base heights in m, each above zero, and not more than Size. f in
    // MHz. Without time, which the median does not need, Time() is 0.
    void Compute(double f, bool time, const double* km, const double* hb,
                 std::size_t count) noexcept;

    class Point {
    public:
        double Km() const noexcept { return block_->km_[i_]; }
        double Log() const noexcept { return block_->log_[i_]; }
        double LogTo(double y) const noexcept {
            // The models have one exponent in common.
            return y == block_->exponent_[i_] ? block_->power_[i_] : std::pow(Log(), y);
        }
        double Time() const noexcept { return block_->time_[i_]; }
        double Exponent() const noexcept { return block_->growth_[i_]; }
        double LogOfInverse() const noexcept { return block_->logOfInverse_[i_]; }

        double Hb() const noexcept { return block_->hb_[i_]; }
        double LogHb() const noexcept { return block_->logHb_[i_]; }
        double EffectiveHb() const noexcept { return block_->effectiveHb_[i_]; }
        double LogHbInUnits() const noexcept { return block_->logHbInUnits_[i_]; }

    private:
        friend class AreaBlock;
        Point(const AreaBlock* block, std::size_t i) noexcept : block_(block), i_(i) {}

        const AreaBlock* block_;
        std::size_t i_;
    };

    std::size_t Count() const noexcept { return count_; }
    Point operator[](std::size_t i) const noexcept { return {this, i}; }  // i below Count()

private:
    using Column = std::array<double, Size>;

    void ComputeHeights() noexcept;
    void ComputePowers(double f) noexcept;

    std::size_t count_ = 0;
    Column km_, log_, time_;
    Column growth_, exponent_, power_;  // beyond 20 km; growth is 0 up to there
    Column hb_, logHb_;
    Column effectiveHb_;   // beyond 20 km
    Column logHbInUnits_;  // beyond 20 km
    Column logOfInverse_;  // above 300 m
};

}  // namespace vardel
