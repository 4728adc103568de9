#pragma once

#include "ModelInputs.h"

// A fourth-power law of distance with the product of the antenna heights, as over plane earth, and
// a loss that rises by 30 dB a decade of frequency. The city size has no influence.
//
// Sources: K. Bullington, "Radio Propagation at Frequencies above 30 Megacycles", Proceedings of
// the IRE 35 (1947), for the plane earth law; the area terms are Hata's (see Primitives.h).

namespace vardel {

// Path loss in dB. Computes for any positive inputs, see ModelInRange.
double UsLoss(const ModelInputs& in) noexcept;

// Field strength in dB(µV/m) for the power that GetPowerWatts gives.
double UsFieldStrength(const ModelInputs& in) noexcept;

}  // namespace vardel
