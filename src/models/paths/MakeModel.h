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
constexpr Model MakeModel(ModelNumber number, const char* name, ModelColor color) {
    using In = const ModelInputs&;
    using Strength = FieldStrengthFormula;
    return {
        .number = number,
        .name = name,
        .loss = Path::Loss,
        .fieldStrength = Path::FieldStrength,
        .lossCurve =
            [](In in, const DistanceGrid::Point* points, std::size_t count,
               double* values) noexcept {
                FillCurve(LossFormula{}, Path::ForCurve(in), points, count, values);
            },
        .fieldStrengthCurve =
            [](In in, double watts, const DistanceGrid::Point* points, std::size_t count,
               double* values) noexcept {
                FillCurve(Strength{watts}, Path::ForCurve(in), points, count, values);
            },
        .lossOverKm =
            [](In in, const double* km, std::size_t count, double* values) noexcept {
                FillNewCurve(LossFormula{}, Path::ForCurve(in), km, count, values);
            },
        .fieldStrengthOverKm =
            [](In in, double watts, const double* km, std::size_t count, double* values) noexcept {
                FillNewCurve(Strength{watts}, Path::ForCurve(in), km, count, values);
            },
        .areaLosses =
            [](In in, const AreaBlock& block, double* values) noexcept {
                FillArea(LossFormula{}, Path::ForCurve(in), block, values);
            },
        .areaFieldStrengths =
            [](In in, double watts, const AreaBlock& block, double* values) noexcept {
                FillArea(Strength{watts}, Path::ForCurve(in), block, values);
            },
        .lossTerms = [](In in) { return TermsOf(LossFormula{}, Path::ForCurve(in), in); },
        .fieldStrengthTerms =
            [](In in, double watts) { return TermsOf(Strength{watts}, Path::ForCurve(in), in); },
        .color = color,
    };
}

}  // namespace vardel
