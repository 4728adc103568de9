#pragma once

#include "ModelInputs.h"

// The Okumura-Hata model with a distance exponent that grows beyond 20 km.
//
// Source: ITU-R Recommendation P.529-3 (1999), "Prediction methods for the terrestrial land mobile
// service in the VHF and UHF bands".

namespace vardel {

// Path loss in dB. Computes for any positive inputs, see ModelInRange.
double Itu529Loss(const ModelInputs& in) noexcept;

// Field strength in dB(µV/m) for the power that GetPowerWatts gives. The Recommendation's own
// constant makes it 0.01 dB more than the loss would give.
double Itu529FieldStrength(const ModelInputs& in) noexcept;

}  // namespace vardel
