#include "models/AreaBlock.h"

#include <algorithm>

#include "models/Distances.h"

namespace vardel {

void AreaBlock::Compute(double f, bool time, const double* km, const double* hb,
                        std::size_t count) noexcept {
    count_ = count;
    std::copy_n(km, count, km_.begin());
    std::copy_n(hb, count, hb_.begin());
    for (std::size_t i = 0; i < count; ++i) log_[i] = Log10(km_[i]);
    for (std::size_t i = 0; i < count; ++i) time_[i] = time ? TimeGrowth(km_[i]) : 0.0;
    ComputeHeights();
    ComputePowers(f);
}

// Over level ground, and where a floor is taken, neighbours have the same height.
void AreaBlock::ComputeHeights() noexcept {
    for (std::size_t i = 0; i < count_; ++i)
        logHb_[i] = i > 0 && hb_[i] == hb_[i - 1] ? logHb_[i - 1] : Log10(hb_[i]);
    for (std::size_t i = 0; i < count_; ++i) effectiveHb_[i] = EffectiveBaseHeight(hb_[i]);
    bool isKnown = false;  // of the point before
    for (std::size_t i = 0; i < count_; ++i) {
        const bool isWanted = km_[i] > 20.0;
        if (isWanted)
            logHbInUnits_[i] = isKnown && hb_[i] == hb_[i - 1] ? logHbInUnits_[i - 1]
                                                               : Log10(hb_[i] / DavidsonHeightUnit);
        else
            logHbInUnits_[i] = 0.0;
        isKnown = isWanted;
    }
    for (std::size_t i = 0; i < count_; ++i)
        logOfInverse_[i] = hb_[i] <= 300.0 ? 0.0 : Log10(9.98 / km_[i]);
}

void AreaBlock::ComputePowers(double f) noexcept {
    for (std::size_t i = 0; i < count_; ++i)
        growth_[i] = km_[i] <= 20.0 ? 0.0 : Log10(km_[i] / 20.0);
    for (std::size_t i = 0; i < count_; ++i)
        if (!(km_[i] <= 20.0)) growth_[i] = std::pow(growth_[i], 0.8);
    for (std::size_t i = 0; i < count_; ++i)
        exponent_[i] = 1.0 + ExponentSlope(f, effectiveHb_[i]) * growth_[i];
    for (std::size_t i = 0; i < count_; ++i)
        power_[i] = exponent_[i] == 1.0 ? log_[i] : std::pow(log_[i], exponent_[i]);
}

}  // namespace vardel
