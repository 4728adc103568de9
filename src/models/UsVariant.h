#pragma once

#include <cstddef>

#include "Distances.h"
#include "FormulaTerms.h"
#include "ModelInputs.h"
#include "ModelTerms.h"

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

// The same with terms of the caller's own and a power in watts e.r.p.: safe on any thread.
double UsLossWith(const ModelInputs& in, ModelTermsRecord& terms) noexcept;
double UsFieldStrengthWith(const ModelInputs& in, double powerWatts,
                           ModelTermsRecord& terms) noexcept;

// The same at count points of a grid, whatever in.d is, into values, which has room for as many.
void UsLossCurve(const ModelInputs& in, const DistanceGrid::Point* points, std::size_t count,
                 double* values) noexcept;
void UsFieldStrengthCurve(const ModelInputs& in, double powerWatts,
                          const DistanceGrid::Point* points, std::size_t count,
                          double* values) noexcept;

// The same at count distances in km that no other curve has: then a grid of them does not pay.
void UsLossCurve(const ModelInputs& in, const double* km, std::size_t count,
                 double* values) noexcept;
void UsFieldStrengthCurve(const ModelInputs& in, double powerWatts, const double* km,
                          std::size_t count, double* values) noexcept;

// What they consist of at in.d.
FormulaTerms UsLossTerms(const ModelInputs& in);
FormulaTerms UsFieldStrengthTerms(const ModelInputs& in, double powerWatts);

}  // namespace vardel
