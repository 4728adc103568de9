#pragma once

class QCustomPlot;

namespace vardel {

class Chart;

// Puts the legend where it hides the least of the curves as the plot shows them: of the whole graph
// as the form gives it in a corner at the right, of any other view in any corner.
void PlaceLegend(QCustomPlot& plot, const Chart& chart);

}  // namespace vardel
