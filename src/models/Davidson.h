#pragma once

#include <cstddef>

#include "AreaBlock.h"
#include "Distances.h"
#include "FormulaTerms.h"
#include "ModelInputs.h"
#include "ModelTerms.h"

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

// The same with terms of the caller's own and a power in watts e.r.p.: safe on any thread.
double DavidsonLossWith(const ModelInputs& in, ModelTermsRecord& terms) noexcept;
double DavidsonFieldStrengthWith(const ModelInputs& in, double powerWatts,
                                 ModelTermsRecord& terms) noexcept;

// The same at count points of a grid, whatever in.d is, into values, which has room for as many. In
// an urban area a city size that is not known gives an antenna term of 0.
void DavidsonLossCurve(const ModelInputs& in, const DistanceGrid::Point* points, std::size_t count,
                       double* values) noexcept;
void DavidsonFieldStrengthCurve(const ModelInputs& in, double powerWatts,
                                const DistanceGrid::Point* points, std::size_t count,
                                double* values) noexcept;

// The same at count distances in km that no other curve has: then a grid of them does not pay.
void DavidsonLossCurve(const ModelInputs& in, const double* km, std::size_t count,
                       double* values) noexcept;
void DavidsonFieldStrengthCurve(const ModelInputs& in, double powerWatts, const double* km,
                                std::size_t count, double* values) noexcept;

// The same over a block of an area's points, whatever in.d and in.hb are.
void DavidsonAreaLosses(const ModelInputs& in, const AreaBlock& block, double* values) noexcept;
void DavidsonAreaFieldStrengths(const ModelInputs& in, double powerWatts, const AreaBlock& block,
                                double* values) noexcept;

// What they consist of at in.d; an unknown city size as in curves. The field strength has the path
// loss as one term.
FormulaTerms DavidsonLossTerms(const ModelInputs& in);
FormulaTerms DavidsonFieldStrengthTerms(const ModelInputs& in, double powerWatts);

}  // namespace vardel
