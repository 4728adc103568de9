#pragma once

#include "ModelInputs.h"

// The extension of Hata's formula to 1500 to 2000 MHz, with the distance exponent of ITU-R P.529.
//
// Source: COST Action 231, "Digital Mobile Radio towards Future Generation Systems", Final Report,
// EUR 18957 (1999), chapter 4.

namespace vardel {

// Path loss in dB. Computes for any positive inputs, see ModelInRange.
double Cost231Loss(const ModelInputs& in) noexcept;

// Field strength in dB(µV/m) for the power that GetPowerWatts gives.
double Cost231FieldStrength(const ModelInputs& in) noexcept;

}  // namespace vardel
