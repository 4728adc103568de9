#pragma once

#include <cstddef>

#include "AreaBlock.h"
#include "Distances.h"
#include "FormulaTerms.h"
#include "ModelInputs.h"
#include "ModelTerms.h"

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

// The same with terms of the caller's own and a power in watts e.r.p.: safe on any thread.
double Itu529LossWith(const ModelInputs& in, ModelTermsRecord& terms) noexcept;
double Itu529FieldStrengthWith(const ModelInputs& in, double powerWatts,
                               ModelTermsRecord& terms) noexcept;

// The same at count points of a grid, whatever in.d is, into values, which has room for as many. In
// an urban area a city size that is not known gives an antenna term of 0.
void Itu529LossCurve(const ModelInputs& in, const DistanceGrid::Point* points, std::size_t count,
                     double* values) noexcept;
void Itu529FieldStrengthCurve(const ModelInputs& in, double powerWatts,
                              const DistanceGrid::Point* points, std::size_t count,
                              double* values) noexcept;

// The same at count distances in km that no other curve has: then a grid of them does not pay.
void Itu529LossCurve(const ModelInputs& in, const double* km, std::size_t count,
                     double* values) noexcept;
void Itu529FieldStrengthCurve(const ModelInputs& in, double powerWatts, const double* km,
                              std::size_t count, double* values) noexcept;

// The same over a block of an area's points, whatever in.d and in.hb are.
void Itu529AreaLosses(const ModelInputs& in, const AreaBlock& block, double* values) noexcept;
void Itu529AreaFieldStrengths(const ModelInputs& in, double powerWatts, const AreaBlock& block,
                              double* values) noexcept;

// What they consist of at in.d; an unknown city size as in curves.
FormulaTerms Itu529LossTerms(const ModelInputs& in);
FormulaTerms Itu529FieldStrengthTerms(const ModelInputs& in, double powerWatts);

}  // namespace vardel
