#pragma once

#include <string>

#include "engine/curves/CurvePlot.h"
#include "forms/graphs/chart/Chart.h"

// What both kinds of graph set on their chart alike.

namespace vardel {

// The series from the first on, and the legend. What the chart held beyond them stays.
void ShowPlot(Chart& chart, const CurvePlot& plot);
// Fonts, colours, and the scales.
void SetChartScales(Chart& chart, double maxDist, double valueMinimum, double valueMaximum);
// The titles below the chart's name: the plot's, and the line of its inputs.
void SetChartTitles(Chart& chart, std::string plot, std::string parameters);

}  // namespace vardel
