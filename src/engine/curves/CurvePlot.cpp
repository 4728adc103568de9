#include "engine/curves/CurvePlot.h"

#include <cassert>

#include "text/NumberText.h"

namespace vardel {

namespace {

constexpr const char* FreeSpace = "Free Space";
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

std::vector<double> Stretch(const std::vector<double>& points, int from, int count) {
    const auto begin = points.begin() + from;
    return {begin, begin + count};
}

// A stretch ends one point before the range changes, and the next begins at that point.
void AddModelCurve(CurvePlot& plot, CurveData curve, const GraphCurves::Curve& of) {
    bool inRange = curve.InRangeAtStart;
    const auto add = [&](bool continued, std::vector<double> distances,
                         std::vector<double> values) {
        plot.push_back({.curve = of.name,
                        .continued = continued,
                        .pattern = inRange ? LinePattern::InRange : LinePattern::OutOfRange,
                        .color = of.color,
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

void AddFreeSpace(CurvePlot& plot, CurveData curve, const GraphCurves::Curve& of) {
    plot.push_back({.curve = of.name,
                    .pattern = LinePattern::FreeSpace,
                    .color = of.color,
                    .distances = std::move(curve.Distances),
                    .values = std::move(curve.Values)});
}

void AddHeightFamily(GraphCurves& graph, const Model& model, ModelInputs in) {
    for (const auto& [height, color] : HeightCurves) {
        in.hb = height;
        graph.curves.push_back(
            {"hb=" + FormatNumber(height, "####") + "m", &model, in, color, CurveStep});
    }
}

void AddComparedModels(GraphCurves& graph, const ModelInputs& in, double from) {
    for (const ModelNumber number : ComparedModels) {
        const Model& model = ModelOf(number);
        graph.curves.push_back({model.name, &model, in, ColorOf(model), from});
    }
}

}  // namespace

Color ColorOf(const Model& model) { return {model.color.red, model.color.green, model.color.blue}; }

GraphCurves LossCurves(const ModelInputs& in) {
    GraphCurves graph;
    AddComparedModels(graph, in, 1.0);
    graph.curves.push_back({FreeSpace, nullptr, in, LossFreeSpaceColor, CurveStep});
    return graph;
}

GraphCurves FieldStrengthCurves(FieldStrengthGraph which, const ModelInputs& in,
                                double powerWatts) {
    GraphCurves graph{Quantity::FieldStrength, powerWatts, {}};
    const bool compares = which == FieldStrengthGraph::Comparison;
    if (compares) {
        AddComparedModels(graph, in, CurveStep);
        for (GraphCurves::Curve& curve : graph.curves)
            if (curve.model->number == ModelNumber::Davidson) curve.name = "OkHat Dav";
    } else {
        AddHeightFamily(graph, ModelOf(PlottedModels.at(static_cast<std::size_t>(which)).model),
                        in);
    }
    graph.curves.push_back(
        {FreeSpace, nullptr, in, compares ? ComparisonFreeSpaceColor : FamilyFreeSpaceColor, 1.0});
    return graph;
}

CurvePlot PlotOf(const GraphCurves& graph, double maxDist) {
    CurvePlot plot;
    for (const GraphCurves::Curve& curve : graph.curves) {
        const CurveSpan span{curve.from, maxDist};
        if (curve.model != nullptr)
            AddModelCurve(
                plot, ModelCurve(*curve.model, graph.quantity, curve.in, graph.powerWatts, span),
                curve);
        else if (graph.quantity == Quantity::Loss)
            AddFreeSpace(plot, FreeSpaceLossCurve(curve.in.f, span), curve);
        else
            AddFreeSpace(plot, FreeSpaceFieldCurve(span), curve);
    }
    return plot;
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
