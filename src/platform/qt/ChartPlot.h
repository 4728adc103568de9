#pragma once

#include <QImage>

#include "graphs/Chart.h"

class QCustomPlot;

namespace vardel {

// The one way in which a chart is drawn: on the screen, on the clipboard, in files and on paper.

// Makes the plot show the chart, with the scales that the chart gives.
void FillPlot(QCustomPlot& plot, const Chart& chart);

// Without a window, in a size that suits a page or a log.
QImage DrawChart(const Chart& chart);

// The chart as a file of a kind.
QByteArray ChartAsMetafile(const Chart& chart);
QByteArray ChartAsPng(const Chart& chart);
QByteArray ChartAsSvg(const Chart& chart);
QByteArray ChartAsPdf(const Chart& chart);

}  // namespace vardel
