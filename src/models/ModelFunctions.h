#pragma once

#include "ModelInputs.h"

// The models by their names. Each computes for any positive inputs (see ModelInRange): a path loss
// in dB, or a field strength in dB(µV/m) for the power that GetPowerWatts gives.

namespace vardel {

// The Okumura-Hata model with a distance exponent that grows beyond 20 km. The Recommendation's own
// constant makes the field strength 0.01 dB more than the loss would give.
//
// Source: ITU-R Recommendation P.529-3 (1999), "Prediction methods for the terrestrial land mobile
// service in the VHF and UHF bands".
double Itu529Loss(const ModelInputs& in) noexcept;
double Itu529FieldStrength(const ModelInputs& in) noexcept;

// The Okumura-Hata median loss with the Davidson corrections for long paths and tall base antennas.
//
// Sources: M. Hata, "Empirical Formula for Propagation Loss in Land Mobile Radio Services", IEEE
// Transactions on Vehicular Technology VT-29 (1980); the Davidson corrections as published in
// TIA/EIA Telecommunications Systems Bulletin TSB-88-A (1999).
double DavidsonLoss(const ModelInputs& in) noexcept;
double DavidsonFieldStrength(const ModelInputs& in) noexcept;

// The extension of Hata's formula to 1500 to 2000 MHz, with the distance exponent of ITU-R P.529.
//
// Source: COST Action 231, "Digital Mobile Radio towards Future Generation Systems", Final Report,
// EUR 18957 (1999), chapter 4.
double Cost231Loss(const ModelInputs& in) noexcept;
double Cost231FieldStrength(const ModelInputs& in) noexcept;

// A fourth-power law of distance with the product of the antenna heights, as over plane earth, and
// a loss that rises by 30 dB a decade of frequency. The city size has no influence.
//
// Sources: K. Bullington, "Radio Propagation at Frequencies above 30 Megacycles", Proceedings of
// the IRE 35 (1947), for the plane earth law; the area terms are Hata's (see Primitives.h).
double UsLoss(const ModelInputs& in) noexcept;
double UsFieldStrength(const ModelInputs& in) noexcept;

}  // namespace vardel
