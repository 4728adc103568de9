#pragma once

#include <QSize>
#include <Qt>
#include <vector>

class QCustomPlot;

namespace vardel {

// Of these corners of the axes' frame the one in which something of that size, in points, hides the
// least of the curves as the plot was laid out last; of several the first.
Qt::Alignment FreestCorner(const QCustomPlot& plot, QSize size,
                           const std::vector<Qt::Alignment>& corners);

// Puts the legend into the freest corner. A tie leaves it where it is, so that it does not jump
// about as the view moves.
void PlaceLegend(QCustomPlot& plot);

}  // namespace vardel
