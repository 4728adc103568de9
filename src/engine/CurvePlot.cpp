#include "engine/CurvePlot.h"

#include <cassert>

#include "text/NumberText.h"

namespace vardel {

namespace {

constexpr double NearestFieldPoint = 0.1;  // km, of the models' curves
constexpr Color LossFreeSpaceColor{40, 40, 40};
constexpr Color FamilyFreeSpaceColor{200, 200, 200};
constexpr Color ComparisonFreeSpaceColor{0, 0, 0};
constexpr Color MeasuredColor{0, 200, 200};

struct HeightCurve {
    double height;  // m
    Color color;
};

constexpr std::array<HeightCurve, 6> HeightCurves = {{
    {30, {0, 128, 0}},
    {50, {255, 0, 0}},
    {70, {0, 0, 180}},
    {100, {255, 0, 255}},
    {150, {0, 0, 0}},
    {200, {0, 200, 200}},
}};

struct PlottedModel {
    const char* title;
    ModelNumber model;
};

// By FieldStrengthGraph, but for the comparison.
constexpr std::array<PlottedModel, 4> PlottedModels = {{
    {"Okumura-Hata-Davidson Field Strength", ModelNumber::Davidson},
    {"Okumura-Hata IUT-R P.529 Field Strength", ModelNumber::Itu529},
    {"US Field Strength", ModelNumber::Us},
    {"Cost 231 Field Strength", ModelNumber::Cost231},
}};

Color ColorOf(const Model& model) { return {model.color.red, model.color.green, model.color.blue}; }

std::vector<double> Stretch(const std::vector<double>& points, int from, int count) {
    const auto begin = points.begin() + from;
    return {begin, begin + count};
}

// A stretch ends one point before the range changes, and the next begins at that point.
void AddModelCurve(CurvePlot& plot, CurveData curve, const std::string& name, Color color) {
    bool inRange = curve.InRangeAtStart;
    const auto add = [&](bool continued, std::vector<double> distances,
                         std::vector<double> values) {
        plot.push_back({.curve = name,
                        .continued = continued,
                        .pattern = inRange ? LinePattern::InRange : LinePattern::OutOfRange,
                        .color = color,
                        .distances = std::move(distances),
                        .values = std::move(values)});
    };
    if (curve.BreakCount == 0)
        return add(false, std::move(curve.Distances), std::move(curve.Values));
    add(false, Stretch(curve.Distances, 0, curve.Breaks[0]),
        Stretch(curve.Values, 0, curve.Breaks[0]));
    for (int j = 0; j < curve.BreakCount; ++j) {
        const int from = curve.Breaks[static_cast<std::size_t>(j)];
        const int count = curve.Breaks[static_cast<std::size_t>(j) + 1] - from + 1;
        inRange = !inRange;
        add(true, Stretch(curve.Distances, from, count), Stretch(curve.Values, from, count));
    }
}

void AddFreeSpace(CurvePlot& plot, CurveData curve, Color color) {
    plot.push_back({.curve = "Free Space",
                    .pattern = LinePattern::FreeSpace,
                    .color = color,
                    .distances = std::move(curve.Distances),
                    .values = std::move(curve.Values)});
}

CurvePlot HeightFamily(const Model& model, ModelInputs in, double powerWatts, double maxDist) {
    CurvePlot plot;
    for (const auto& [height, color] : HeightCurves) {
        in.hb = height;
        AddModelCurve(plot,
                      ModelCurve(model, Quantity::FieldStrength, in, powerWatts,
                                 {NearestFieldPoint, maxDist}),
                      "hb=" + FormatNumber(height, "####") + "m", color);
    }
    AddFreeSpace(plot, FreeSpaceFieldCurve({1.0, maxDist}), FamilyFreeSpaceColor);
    return plot;
}

CurvePlot FieldComparison(const ModelInputs& in, double powerWatts, double maxDist) {
    CurvePlot plot;
    for (const ModelNumber number : ComparedModels) {
        const Model& model = ModelOf(number);
        AddModelCurve(plot,
                      ModelCurve(model, Quantity::FieldStrength, in, powerWatts,
                                 {NearestFieldPoint, maxDist}),
                      number == ModelNumber::Davidson ? "OkHat Dav" : model.name, ColorOf(model));
    }
    AddFreeSpace(plot, FreeSpaceFieldCurve({1.0, maxDist}), ComparisonFreeSpaceColor);
    return plot;
}

}  // namespace

CurvePlot LossPlot(const ModelInputs& in, double maxDist) {
    CurvePlot plot;
    for (const ModelNumber number : ComparedModels) {
        const Model& model = ModelOf(number);
        AddModelCurve(plot, ModelCurve(model, Quantity::Loss, in, 0.0, {1.0, maxDist}), model.name,
                      ColorOf(model));
    }
    AddFreeSpace(plot, FreeSpaceLossCurve(in.f, {CurveStep, maxDist}), LossFreeSpaceColor);
    return plot;
}

CurvePlot FieldStrengthPlot(FieldStrengthGraph graph, const ModelInputs& in, double powerWatts,
                            double maxDist) {
    if (graph == FieldStrengthGraph::Comparison) return FieldComparison(in, powerWatts, maxDist);
    const ModelNumber model = PlottedModels.at(static_cast<std::size_t>(graph)).model;
    return HeightFamily(ModelOf(model), in, powerWatts, maxDist);
}

const char* TitleOf(FieldStrengthGraph graph) {
    if (graph == FieldStrengthGraph::Comparison) return "Field Strength Model Comparison";
    return PlottedModels.at(static_cast<std::size_t>(graph)).title;
}

void AddMeasured(CurvePlot& plot, const MeasuredSegment& segment, int column) {
    assert(column >= 0 && column < MeasuredHeights);
    PlotSeries series{.curve = "Measured", .color = MeasuredColor, .singlePoints = true};
    for (int row = 0; segment.RowValue[row][column] != MeasuredEndMark; ++row) {
        series.distances.push_back(segment.RowDistance[row]);
        series.values.push_back(segment.RowValue[row][column]);
    }
    if (!series.values.empty()) plot.push_back(std::move(series));
}

std::string LegendText(const CurvePlot& plot) {
    std::string legend;
    for (const PlotSeries& series : plot) {
        if (!legend.empty()) legend += '\r';
        legend += series.continued ? "(cont.)" : series.curve;
    }
    return legend;
}

}  // namespace vardel
