#include "forms/graphs/chart/ChartText.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "engine/PathRecord.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

// Distances are sums of many steps and end a little short of the round numbers.
constexpr double Reached = 1e-6;  // km

double Between(double x0, double y0, double x1, double y1, double x) {
    const double t = (x - x0) / (x1 - x0);
    return (1.0 - t) * y0 + t * y1;
}

// Of one stretch.
std::optional<double> ValueAt(const ChartSeries& series, double distance) {
    if (series.X.empty() || distance < series.X.front() - Reached ||
        distance > series.X.back() + Reached)
        return std::nullopt;
    const auto next = std::lower_bound(series.X.begin(), series.X.end(), distance);
    if (next == series.X.end()) return series.Y.back();
    const auto i = static_cast<std::size_t>(next - series.X.begin());
    if (i == 0 || *next == distance) return series.Y[i];
    return Between(series.X[i - 1], series.Y[i - 1], series.X[i], series.Y[i], distance);
}

struct ReadValue {
    double value;
    bool outOfRange;
};

// Of a stretch, or of the step between the stretch before and this one, where the range ends.
std::optional<ReadValue> ReadStretch(const ChartSeries& series, const ChartSeries* before,
                                     double distance) {
    if (const auto value = ValueAt(series, distance))
        return ReadValue{*value, series.IsOutOfRange()};
    if (before == nullptr || before->X.empty() || series.X.empty()) return std::nullopt;
    if (distance <= before->X.back() || distance >= series.X.front()) return std::nullopt;
    return ReadValue{
        Between(before->X.back(), before->Y.back(), series.X.front(), series.Y.front(), distance),
        true};
}

std::string NearestPoint(const ChartSeries& series, double distance, const std::string& unit) {
    const auto nearest = std::min_element(
        series.X.begin(), series.X.end(),
        [&](double a, double b) { return std::abs(a - distance) < std::abs(b - distance); });
    const double value = series.Y[static_cast<std::size_t>(nearest - series.X.begin())];
    return series.Curve + " at " + FormatNumber(*nearest, "0.0#") +
           " km: " + FormatNumber(value, "0.00") + ' ' + unit;
}

}  // namespace

std::string ChartSummary(const Chart& chart) {
    std::string summary = chart.Title[0].Text;
    for (const ChartSeries& series : chart.AllSeries())
        if (chart.Shows(series) && !series.Continued) summary += ", " + series.Curve;
    if (const auto& threshold = chart.Threshold()) {
        summary += ", threshold " + threshold->Text;
        for (const std::string& reach : threshold->Reaches) summary += ", " + reach;
    }
    return summary;
}

std::vector<std::string> ChartCurves(const Chart& chart) {
    std::vector<std::string> curves;
    for (const ChartSeries& series : chart.AllSeries())
        if (chart.Shows(series) && !series.Continued && !series.SinglePoints)
            curves.push_back(series.Curve);
    return curves;
}

std::vector<ChartValue> ChartValues(const Chart& chart, double distance) {
    std::vector<ChartValue> values;
    const ChartSeries* before = nullptr;  // of the same curve
    bool told = false;
    for (const ChartSeries& series : chart.AllSeries()) {
        if (!chart.Shows(series) || series.SinglePoints) continue;
        if (!series.Continued) told = false;
        if (!told) {
            if (const auto read =
                    ReadStretch(series, series.Continued ? before : nullptr, distance)) {
                values.push_back({series.Curve, read->value, read->outOfRange});
                told = true;
            }
        }
        before = &series;
    }
    return values;
}

std::vector<std::string> ChartReadout(const Chart& chart, double distance) {
    const std::string& unit = chart.Axis[1].Title;
    std::vector<std::string> lines{chart.Axis[0].Title + ": " + FormatNumber(distance, "0.0")};
    for (const auto& [curve, value, outOfRange] : ChartValues(chart, distance)) {
        std::string& line = lines.emplace_back(curve);
        line += ": " + FormatNumber(value, "0.00") + ' ' + unit;
        if (outOfRange) line += " (out of range)";
    }
    for (const ChartSeries& series : chart.AllSeries())
        if (chart.Shows(series) && series.SinglePoints && !series.X.empty())
            lines.push_back(NearestPoint(series, distance, unit));
    return lines;
}

std::string ChartCsv(const Chart& chart) {
    std::string csv;
    for (const ChartTitle& title : chart.Title) csv += "# " + title.Text + '\n';
    if (chart.Inputs) csv += "# " + PathRecord(*chart.Inputs) + '\n';
    csv += "# value: " + chart.Axis[1].Title + '\n';
    if (const auto& threshold = chart.Threshold()) {
        csv += "# threshold: " + threshold->Text + '\n';
        for (const std::string& reach : threshold->Reaches) csv += "# reach of " + reach + '\n';
    }
    csv += "curve,distance_km,value,in_range\n";
    for (const ChartSeries& series : chart.AllSeries()) {
        if (!series.Visible) continue;
        for (std::size_t i = 0; i < series.X.size(); ++i)
            csv += series.Curve + ',' + ShortestText(series.X[i]) + ',' +
                   ShortestText(series.Y[i]) + ',' + (series.IsOutOfRange() ? "no" : "yes") + '\n';
    }
    return csv;
}

}  // namespace vardel
