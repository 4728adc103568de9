#pragma once

#include <QImage>

#include "forms/graphs/Chart.h"

class QCustomPlot;
class QPagedPaintDevice;

namespace vardel {

// The one way in which a chart is drawn: on the screen, on the clipboard, in files and on paper.

// Makes the plot show the chart, with the scales that the chart gives.
void FillPlot(QCustomPlot& plot, const Chart& chart);

// Without a window, in a size that suits a page or a log; scaled, in so many times finer points.
QImage DrawChart(const Chart& chart, int scale = 1);

// Fills the page within its margins, its longer side as long as that of a picture, so that texts
// grow with the paper. The page is to have the resolution, in which the fonts have their sizes.
// Throws std::runtime_error where it cannot be drawn on.
void DrawChartOnPage(QPagedPaintDevice& page, const Chart& chart);
int ChartPageResolution();

// The chart as a file of a kind.
QByteArray ChartAsMetafile(const Chart& chart);
QByteArray ChartAsPng(const Chart& chart);
QByteArray ChartAsSvg(const Chart& chart);
QByteArray ChartAsPdf(const Chart& chart);

}  // namespace vardel
