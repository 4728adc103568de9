#pragma once

#include <array>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "forms/graphs/Chart.h"
#include "models/ModelInputs.h"
#include "models/ModelRanges.h"

// What the loss graph and the field strength graphs have in common: a curve is computed point by
// point, breaks where its model's range ends, and goes to the chart as one series for each stretch.

namespace vardel {

constexpr double CurveStep = 0.1;  // km, added up point after point

struct CurveData {
    bool InRangeAtStart = false;    // at 1 km, wherever the curve begins
    bool RangeState = false;        // reached so far
    int BreakCount = 0;             // range changes found, at most 6
    std::array<int, 8> Breaks{};    // the point of each; behind the last the curve's last point
    std::vector<double> Values;     // dB, or dB(µV/m)
    std::vector<double> Distances;  // km
    int LastPoint = -1;
};

// The model from one distance to the other, in km, with the rest of the inputs as given.
CurveData ComputeModelCurve(int model, ModelFunction function, ModelInputs inputs, double from,
                            double to);
// A curve that knows no range.
CurveData ComputeFreeCurve(const std::function<double(double)>& valueAt, double from, double to);

// A model's curve among others in a graph.
struct ModelCurve {
    ModelNumber model;
    ModelFunction function;
    const char* legend;
    Color color;
};

// Puts curves into a chart, each in series of its own behind those before, and writes the legend
// along with them.
class CurveDrawing {
public:
    explicit CurveDrawing(Chart& chart) : chart_(chart) {}

    // Each stretch is a series, in the pattern of its range state.
    void DrawModelCurve(const CurveData& curve, std::string_view legend, Color color);
    // Each computed from one distance to the other, in km.
    void DrawModelCurves(std::span<const ModelCurve> curves, const ModelInputs& inputs, double from,
                         double to);
    void DrawWholeCurve(const CurveData& curve, std::string_view legend, Color color,
                        LinePattern pattern);
    // Values that were measured, each to be told from the curves. Without any, nothing is drawn.
    void DrawMeasuredCurve(const CurveData& curve, std::string_view legend, Color color);

    const std::string& Legend() const { return legend_; }

private:
    struct Look {
        Color color;
        LinePattern pattern;
    };
    void AddSeries(std::string_view name, bool continued, const CurveData& curve, int from,
                   int count, const Look& look);

    Chart& chart_;
    int series_ = -1;
    std::string legend_;
};

// What both kinds of graph set alike: fonts, colours, and the scales.
void SetChartScales(Chart& chart, double maxDist, double valueMinimum, double valueMaximum);
// The titles below the chart's name: the plot's, and the line of its inputs.
void SetChartTitles(Chart& chart, std::string plot, std::string parameters);
void SetChartLegend(Chart& chart, std::string legend);

}  // namespace vardel
