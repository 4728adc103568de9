#pragma once

#include "models/Model.h"
#include "models/paths/PathTerms.h"

// A model is its path, its name and its colour; its bounds are in ModelRanges.h. A path holds what
// the distance does not change. It has the terms of both formulas (AddLossHead, AddLossTail,
// AddFieldStrengthHead, AddFieldStrengthTail, Note), ForCurve for a path without kept terms, Raise
// to another base height, single calls that keep their terms (Loss, FieldStrength), and says
// whether its formula TakesPowersOfDistance, which then are computed block by block.

namespace vardel {

template <class Path>
struct ModelFunctions {
    static void LossCurve(const ModelInputs& in, const DistanceGrid::Point* points,
                          std::size_t count, double* values) noexcept {
        FillLosses(Path::ForCurve(in), points, count, values);
    }
    static void FieldStrengthCurve(const ModelInputs& in, double powerWatts,
                                   const DistanceGrid::Point* points, std::size_t count,
                                   double* values) noexcept {
        FillFieldStrengths(Path::ForCurve(in), powerWatts, points, count, values);
    }
    static void LossOverKm(const ModelInputs& in, const double* km, std::size_t count,
                           double* values) noexcept {
        if constexpr (Path::TakesPowersOfDistance)
            FillNewLosses(Path::ForCurve(in), km, count, values);
        else
            FillLosses(Path::ForCurve(in), km, count, values);
    }
    static void FieldStrengthOverKm(const ModelInputs& in, double powerWatts, const double* km,
                                    std::size_t count, double* values) noexcept {
        if constexpr (Path::TakesPowersOfDistance)
            FillNewFieldStrengths(Path::ForCurve(in), powerWatts, km, count, values);
        else
            FillFieldStrengths(Path::ForCurve(in), powerWatts, km, count, values);
    }
    static void AreaLosses(const ModelInputs& in, const AreaBlock& block, double* values) noexcept {
        FillAreaLosses(Path::ForCurve(in), block, values);
    }
    static void AreaFieldStrengths(const ModelInputs& in, double powerWatts, const AreaBlock& block,
                                   double* values) noexcept {
        FillAreaFieldStrengths(Path::ForCurve(in), powerWatts, block, values);
    }
    static FormulaTerms TermsOfLoss(const ModelInputs& in) {
        return LossTerms(Path::ForCurve(in), in);
    }
    static FormulaTerms TermsOfFieldStrength(const ModelInputs& in, double powerWatts) {
        return FieldStrengthTerms(Path::ForCurve(in), in, powerWatts);
    }
};

template <class Path>
constexpr Model MakeModel(ModelNumber number, const char* name, ModelColor color) {
    using Functions = ModelFunctions<Path>;
    return {number,
            name,
            Path::Loss,
            Path::FieldStrength,
            Functions::LossCurve,
            Functions::FieldStrengthCurve,
            Functions::LossOverKm,
            Functions::FieldStrengthOverKm,
            Functions::AreaLosses,
            Functions::AreaFieldStrengths,
            Functions::TermsOfLoss,
            Functions::TermsOfFieldStrength,
            color};
}

}  // namespace vardel
