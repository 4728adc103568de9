#include "engine/curves/Curves.h"

#include <algorithm>
#include <cassert>
#include <span>

namespace vardel {

namespace {

using Points = std::span<const DistanceGrid::Point>;

constexpr int MostBreaks = 6;

DistanceGrid GridFrom(double from) {
    std::vector<double> distances;
    for (double d = from; d <= FarthestPoint; d = d + CurveStep) distances.push_back(d);
    return {distances.data(), distances.size()};
}

// The points of all curves are the same, so what the formulas need of them is computed once.
Points PointsOf(const CurveSpan& span) {
    static const DistanceGrid FromTenth = GridFrom(CurveStep);
    static const DistanceGrid FromOne = GridFrom(1.0);
    assert(span.from == CurveStep || span.from == 1.0);
    const DistanceGrid& grid = span.from == 1.0 ? FromOne : FromTenth;
    const auto* end =
        std::upper_bound(grid.begin(), grid.end(), span.to,
                         [](double to, const DistanceGrid::Point& at) { return to < at.Km(); });
    return {grid.begin(), end};
}

CurveData CurveAt(Points points) {
    CurveData curve;
    curve.Values.resize(points.size());
    curve.Distances.resize(points.size());
    std::transform(points.begin(), points.end(), curve.Distances.begin(),
                   [](const DistanceGrid::Point& at) { return at.Km(); });
    curve.LastPoint = static_cast<int>(points.size()) - 1;
    return curve;
}

template <class Value>
CurveData FreeCurve(const CurveSpan& span, Value value) {
    const Points points = PointsOf(span);
    CurveData curve = CurveAt(points);
    std::transform(points.begin(), points.end(), curve.Values.begin(), value);
    return curve;
}

void FindBreaks(CurveData& curve, const Model& model, ModelInputs in) {
    const auto inRange = [&](double d) {
        in.d = d;
        return InRange(model, in);
    };
    curve.InRangeAtStart = curve.RangeState = inRange(1.0);
    for (int i = 0; i <= curve.LastPoint; ++i) {
        if (inRange(curve.Distances[static_cast<std::size_t>(i)]) == curve.RangeState) continue;
        curve.Breaks[static_cast<std::size_t>(curve.BreakCount)] = i;
        curve.RangeState = !curve.RangeState;
        if (curve.BreakCount < MostBreaks) ++curve.BreakCount;
    }
    curve.Breaks[static_cast<std::size_t>(curve.BreakCount)] = curve.LastPoint;
}

}  // namespace

CurveData ModelCurve(const Model& model, Quantity quantity, const ModelInputs& in,
                     double powerWatts, const CurveSpan& span) {
    const Points points = PointsOf(span);
    CurveData curve = CurveAt(points);
    if (quantity == Quantity::Loss)
        model.lossCurve(in, points.data(), points.size(), curve.Values.data());
    else
        model.fieldStrengthCurve(in, powerWatts, points.data(), points.size(), curve.Values.data());
    FindBreaks(curve, model, in);
    return curve;
}

double FreeSpaceLossAt1Km(double f) { return 32.5 + 20.0 * Log10(f); }

CurveData FreeSpaceLossCurve(double f, const CurveSpan& span) {
    return FreeCurve(span, [head = FreeSpaceLossAt1Km(f)](const DistanceGrid::Point& at) {
        return head + 20.0 * at.Log();
    });
}

CurveData FreeSpaceFieldCurve(const CurveSpan& span) {
    return FreeCurve(
        span, [](const DistanceGrid::Point& at) { return FreeSpaceFieldAt1Km - 20.0 * at.Log(); });
}

}  // namespace vardel
