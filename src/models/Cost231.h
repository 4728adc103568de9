#pragma once

#include <cstddef>

#include "AreaBlock.h"
#include "Distances.h"
#include "FormulaTerms.h"
#include "ModelInputs.h"
#include "ModelTerms.h"

// The extension of Hata's formula to 1500 to 2000 MHz, with the distance exponent of ITU-R P.529.
//
// Source: COST Action 231, "Digital Mobile Radio towards Future Generation Systems", Final Report,
// EUR 18957 (1999), chapter 4.

namespace vardel {

// Path loss in dB. Computes for any positive inputs, see ModelInRange.
double Cost231Loss(const ModelInputs& in) noexcept;

// Field strength in dB(µV/m) for the power that GetPowerWatts gives.
double Cost231FieldStrength(const ModelInputs& in) noexcept;

// The same with terms of the caller's own and a power in watts e.r.p.: safe on any thread.
double Cost231LossWith(const ModelInputs& in, ModelTermsRecord& terms) noexcept;
double Cost231FieldStrengthWith(const ModelInputs& in, double powerWatts,
                                ModelTermsRecord& terms) noexcept;

// The same at count points of a grid, whatever in.d is, into values, which has room for as many.
void Cost231LossCurve(const ModelInputs& in, const DistanceGrid::Point* points, std::size_t count,
                      double* values) noexcept;
void Cost231FieldStrengthCurve(const ModelInputs& in, double powerWatts,
                               const DistanceGrid::Point* points, std::size_t count,
                               double* values) noexcept;

// The same at count distances in km that no other curve has: then a grid of them does not pay.
void Cost231LossCurve(const ModelInputs& in, const double* km, std::size_t count,
                      double* values) noexcept;
void Cost231FieldStrengthCurve(const ModelInputs& in, double powerWatts, const double* km,
                               std::size_t count, double* values) noexcept;

// The same over a block of an area's points, whatever in.d and in.hb are.
void Cost231AreaLosses(const ModelInputs& in, const AreaBlock& block, double* values) noexcept;
void Cost231AreaFieldStrengths(const ModelInputs& in, double powerWatts, const AreaBlock& block,
                               double* values) noexcept;

// What they consist of at in.d. A city size that is not known counts as a small or medium one.
FormulaTerms Cost231LossTerms(const ModelInputs& in);
FormulaTerms Cost231FieldStrengthTerms(const ModelInputs& in, double powerWatts);

}  // namespace vardel
