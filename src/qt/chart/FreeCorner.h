#pragma once

#include <QSize>
#include <Qt>
#include <vector>

class QCustomPlot;

namespace vardel {

// Of a graph with this property, which is there to compare others with, more may be hidden.
constexpr const char* ReferenceProperty = "isReference";

// Of these corners of the axes' frame the one in which something of that size, in points, hides the
// least of the curves as the plot was laid out last; of several the first.
Qt::Alignment FreestCorner(const QCustomPlot& plot, QSize size,
                           const std::vector<Qt::Alignment>& corners);

// Keeps the legend in the freest corner, by each layout before it is drawn. A tie leaves it where
// it is, so that it does not jump about as the view moves.
void KeepLegendFree(QCustomPlot& plot);

}  // namespace vardel
