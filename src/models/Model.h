#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "AreaBlock.h"
#include "Distances.h"
#include "FormulaTerms.h"
#include "ModelInputs.h"
#include "ModelRanges.h"
#include "ModelTerms.h"

namespace vardel {

// Of a model's curve beside those of the others.
struct ModelColor {
    std::uint8_t red, green, blue;
};

// A propagation model, all that the rest of a program knows of it. Its functions are safe on any
// thread and have the same bits wherever they meet; see MakeModel for how they are made.
struct Model {
    ModelNumber number;
    const char* name;  // short, as in legends
    // Path loss in dB, and field strength in dB(µV/m) for a power in watts e.r.p., with terms of
    // the caller's own. In an urban area a city size that is not known keeps the antenna term of
    // the last call, in curves it gives a term of 0.
    double (*loss)(const ModelInputs& in, ModelTermsRecord& terms) noexcept;
    double (*fieldStrength)(const ModelInputs& in, double powerWatts,
                            ModelTermsRecord& terms) noexcept;
    // The same at count points of a grid, in place of in.d.
    void (*lossCurve)(const ModelInputs& in, const DistanceGrid::Point* points, std::size_t count,
                      double* values) noexcept;
    void (*fieldStrengthCurve)(const ModelInputs& in, double powerWatts,
                               const DistanceGrid::Point* points, std::size_t count,
                               double* values) noexcept;
    // The same at count distances in km that no other curve has.
    void (*lossOverKm)(const ModelInputs& in, const double* km, std::size_t count,
                       double* values) noexcept;
    void (*fieldStrengthOverKm)(const ModelInputs& in, double powerWatts, const double* km,
                                std::size_t count, double* values) noexcept;
    // The same over a block of an area's points, in place of in.d and in.hb.
    void (*areaLosses)(const ModelInputs& in, const AreaBlock& block, double* values) noexcept;
    void (*areaFieldStrengths)(const ModelInputs& in, double powerWatts, const AreaBlock& block,
                               double* values) noexcept;
    // What the two consist of, for a reader.
    FormulaTerms (*lossTerms)(const ModelInputs& in);
    FormulaTerms (*fieldStrengthTerms)(const ModelInputs& in, double powerWatts);
    ModelColor color;
};

// In the order of ModelNumber.
extern const std::array<Model, 4> Models;

// A model's place in tables.
constexpr std::size_t IndexOf(ModelNumber number) noexcept {
    return static_cast<std::size_t>(number);
}

// Throws std::out_of_range for a number that is no model's.
inline const Model& ModelOf(ModelNumber number) { return Models.at(IndexOf(number)); }

// Those that are compared in a window, a line of the log, a graph or an archived run, in the order
// of these.
constexpr std::array<ModelNumber, 3> ComparedModels = {ModelNumber::Itu529, ModelNumber::Davidson,
                                                       ModelNumber::Cost231};

// Whether the model covers the inputs, see ModelInRange.
inline bool InRange(const Model& model, const ModelInputs& in) noexcept {
    return ModelInRange(static_cast<int>(model.number), in.f, in.hb, in.hm, in.d, in.area);
}

}  // namespace vardel
