#pragma once

#include <array>
#include <vector>

#include "models/Model.h"

// Curves over the distance, as graphs show and archives keep them: a point every 0.1 km, up to 300
// km.

namespace vardel {

constexpr double CurveStep = 0.1;        // km, added up point after point
constexpr double FarthestPoint = 300.0;  // km

// What a curve, a goal or a run is of: dB, or dB(µV/m).
enum class Quantity { Loss, FieldStrength };

// From where to where a curve goes, in km: from 0.1 or from 1, to 300 at the most.
struct CurveSpan {
    double from;
    double to;
};

// A computed curve with the points where its model begins or ends to cover it.
struct CurveData {
    bool InRangeAtStart = false;    // at 1 km, wherever the curve begins
    bool RangeState = false;        // reached so far
    int BreakCount = 0;             // range changes found, at most 6
    std::array<int, 8> Breaks{};    // the point of each; behind the last the curve's last point
    std::vector<double> Values;     // dB, or dB(µV/m)
    std::vector<double> Distances;  // km
    int LastPoint = -1;
};

// A model's curve, in place of in.d. The power in watts e.r.p. is for field strengths.
CurveData ModelCurve(const Model& model, Quantity quantity, const ModelInputs& in,
                     double powerWatts, const CurveSpan& span);

// Free space, which knows no range: the loss in dB at f in MHz, 20 dB more each ten times as far.
double FreeSpaceLossAt1Km(double f);
CurveData FreeSpaceLossCurve(double f, const CurveSpan& span);
// The field strength in dB(µV/m) of 1 kW e.r.p., whatever the power.
constexpr double FreeSpaceFieldAt1Km = 107.0;
CurveData FreeSpaceFieldCurve(const CurveSpan& span);

}  // namespace vardel
