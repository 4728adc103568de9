#pragma once

#include <QByteArray>
#include <string>

#include "forms/graphs/chart/Chart.h"

namespace vardel {

// A chart as a file of a kind, in the chart's frame. PNG, SVG and PDF carry its inputs: as the text
// "Description" of a PNG, the desc element of an SVG, the keywords of a PDF's XMP.
QByteArray ChartAsMetafile(const Chart& chart);  // of the whole graph
QByteArray ChartAsPng(const Chart& chart);
QByteArray ChartAsSvg(const Chart& chart);
QByteArray ChartAsPdf(const Chart& chart);

// A text that holds the record of a path if the file of any of these kinds, or CSV, does. Empty
// where the file cannot be read or is too large to be one.
std::string TextOfFile(const QString& path);

}  // namespace vardel
