#pragma once

#include <QImage>

#include "forms/graphs/chart/Chart.h"

class QCustomPlot;
class QPagedPaintDevice;

namespace vardel {

// The one way in which a chart is drawn: on the screen, on the clipboard, in files and on paper.

// Of a picture on a page or in a log, in points of a plain screen.
constexpr QSize PictureSize(900, 600);

// Makes the plot show the chart as the user wants it, with these axes.
void FillPlot(QCustomPlot& plot, const Chart& chart, const ChartRanges& shown);

// Without a window, in a size that suits a page or a log; scaled, in so many times finer points.
QImage DrawChart(const Chart& chart, int scale = 1, const ChartFrame& frame = {});
// On any device, in this size of which each point is scaled. False where it cannot be drawn on.
bool DrawChartOn(QPaintDevice& device, const Chart& chart, const ChartFrame& frame, QSize size,
                 double scale = 1.0);

// Fills the page within its margins, its longer side as long as that of a picture, so that texts
// grow with the paper. The page is to have the resolution, in which the fonts have their sizes.
// Throws std::runtime_error where it cannot be drawn on.
void DrawChartOnPage(QPagedPaintDevice& page, const Chart& chart);
int ChartPageResolution();

}  // namespace vardel
