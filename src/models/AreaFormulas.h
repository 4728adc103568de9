#pragma once

#include <array>

#include "AreaBlock.h"
#include "Cost231.h"
#include "Davidson.h"
#include "Itu529.h"
#include "Model.h"

namespace vardel {

// A compared model over a block of an area's points: in dB, and in dB(µV/m) for a power in watts
// e.r.p.
struct AreaFormula {
    void (*losses)(const ModelInputs& in, const AreaBlock& block, double* values) noexcept;
    void (*fieldStrengths)(const ModelInputs& in, double powerWatts, const AreaBlock& block,
                           double* values) noexcept;
};

// By the order of ComparedModels, which is that of the first numbers.
inline constexpr std::array<AreaFormula, ComparedModels.size()> AreaFormulas = {{
    {Itu529AreaLosses, Itu529AreaFieldStrengths},
    {DavidsonAreaLosses, DavidsonAreaFieldStrengths},
    {Cost231AreaLosses, Cost231AreaFieldStrengths},
}};

}  // namespace vardel
