#pragma once

#include <string>

#include "forms/graphs/chart/Chart.h"

namespace vardel {

// How a spreadsheet writes a number: commas part the cells of a file with decimal points,
// semicolons those of one with decimal commas. There every number with a comma is quoted, since
// LibreOffice Calc takes both signs as parting cells unless it is set otherwise.
enum class DecimalSign { Point, Comma };

// The chart as a table for spreadsheets: lines that begin with # with the titles, the inputs in
// both unit systems, the threshold, and where curves are out of range; then a column for each curve
// that is shown and a row for each distance, rounded to a metre. As far as the distances reach.
std::string ChartTableCsv(const Chart& chart, const AxisRange& distances, DecimalSign sign);

}  // namespace vardel
