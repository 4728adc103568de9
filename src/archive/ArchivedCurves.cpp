#include "archive/ArchivedCurves.h"

#include <array>

#include "archive/ArchivedInputs.h"

namespace vardel {

namespace {

constexpr std::size_t MostDrawn = 6000;  // points

// Each run has a hue, each of its curves a shade of it.
constexpr std::array<std::array<Color, 3>, 3> RunColors = {{
    {{{150, 90, 0}, {200, 135, 40}, {110, 70, 20}}},
    {{{110, 60, 160}, {165, 115, 210}, {80, 40, 110}}},
    {{{0, 115, 115}, {60, 170, 170}, {20, 80, 90}}},
}};

PlotSeries SeriesOf(const CurveRow& curve) {
    PlotSeries series;
    series.curve = curve.legend;
    const std::size_t step = 1 + curve.x.size() / MostDrawn;
    for (std::size_t i = 0; i < curve.x.size(); i += step) {
        series.distances.push_back(curve.x[i]);
        series.values.push_back(curve.y[i]);
    }
    return series;
}

}  // namespace

CurvePlot PreviewOf(const std::vector<CurveRow>& curves) {
    CurvePlot plot;
    for (const CurveRow& curve : curves) {
        plot.push_back(SeriesOf(curve));
        if (const Model* model = ModelOfLegend(curve.legend)) plot.back().color = ColorOf(*model);
    }
    return plot;
}

CurvePlot LaidCurves(std::int64_t run, const std::vector<CurveRow>& curves, std::size_t place) {
    const auto& colors = RunColors.at(place % RunColors.size());
    CurvePlot plot;
    for (const CurveRow& curve : curves) {
        plot.push_back(SeriesOf(curve));
        plot.back().curve = "Run " + std::to_string(run) + ": " + curve.legend;
        plot.back().pattern = LinePattern::Archived;
        plot.back().color = colors.at((plot.size() - 1) % colors.size());
    }
    return plot;
}

}  // namespace vardel
