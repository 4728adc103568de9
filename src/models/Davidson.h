#pragma once

#include "ModelInputs.h"

// The Okumura-Hata median loss with the Davidson corrections for long paths and tall base antennas.
//
// Sources: M. Hata, "Empirical Formula for Propagation Loss in Land Mobile Radio Services", IEEE
// Transactions on Vehicular Technology VT-29 (1980); the Davidson corrections as published in
// TIA/EIA Telecommunications Systems Bulletin TSB-88-A (1999).

namespace vardel {

// Path loss in dB. Computes for any positive inputs, see ModelInRange.
double DavidsonLoss(const ModelInputs& in) noexcept;

// Field strength in dB(µV/m) for the power that GetPowerWatts gives.
double DavidsonFieldStrength(const ModelInputs& in) noexcept;

}  // namespace vardel
