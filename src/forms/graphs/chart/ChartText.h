#pragma once

#include <string>
#include <vector>

#include "forms/graphs/chart/Chart.h"

// What a chart says in words and numbers.

namespace vardel {

// The chart's title, the names of its curves, and the threshold with their reaches.
std::string ChartSummary(const Chart& chart);

// The names of the curves that are shown.
std::vector<std::string> ChartCurves(const Chart& chart);

// A curve's value at a distance: between points in a straight line, and out of range where its
// model is.
struct ChartValue {
    std::string curve;
    double value;
    bool outOfRange;
};
// Of all curves that have one there, measured points aside. distance in km.
std::vector<ChartValue> ChartValues(const Chart& chart, double distance);

// The distance, then each curve's value there: between points in a straight line, marked where its
// model is out of range. Of single points, between which there are no values, the nearest.
// distance in km.
std::vector<std::string> ChartReadout(const Chart& chart, double distance);

// The titles, which name the inputs, as comments; then a line for each point: the curve, the
// distance, the value, and whether the model covers it.
std::string ChartCsv(const Chart& chart);

}  // namespace vardel
