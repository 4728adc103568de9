#include "engine/CurveData.h"

namespace vardel {

namespace {

constexpr int MostBreaks = 6;

CurveData EmptyCurve(double from, double to) {
    CurveData curve;
    const auto points = static_cast<std::size_t>((to - from) / CurveStep) + 2;
    curve.Values.reserve(points);
    curve.Distances.reserve(points);
    return curve;
}

}  // namespace

CurveData ComputeModelCurve(int model, ModelFunction function, ModelInputs inputs, double from,
                            double to) {
    CurveData curve = EmptyCurve(from, to);
    const auto inRange = [&](double d) {
        return ModelInRange(model, inputs.f, inputs.hb, inputs.hm, d, inputs.area);
    };
    curve.InRangeAtStart = inRange(1.0);
    curve.RangeState = curve.InRangeAtStart;
    for (double d = from; d <= to; d = d + CurveStep) {
        ++curve.LastPoint;
        if (inRange(d) != curve.RangeState) {
            curve.Breaks[static_cast<std::size_t>(curve.BreakCount)] = curve.LastPoint;
            curve.RangeState = !curve.RangeState;
            if (curve.BreakCount < MostBreaks) ++curve.BreakCount;
        }
        inputs.d = d;
        curve.Values.push_back(function(inputs));
        curve.Distances.push_back(d);
    }
    curve.Breaks[static_cast<std::size_t>(curve.BreakCount)] = curve.LastPoint;
    return curve;
}

CurveData ComputeFreeCurve(const std::function<double(double)>& valueAt, double from, double to) {
    CurveData curve = EmptyCurve(from, to);
    for (double d = from; d <= to; d = d + CurveStep) {
        ++curve.LastPoint;
        curve.Values.push_back(valueAt(d));
        curve.Distances.push_back(d);
    }
    return curve;
}

void CurveDrawing::AddSeries(std::string_view name, bool continued, const CurveData& curve,
                             int from, int count, const Look& look) {
    if (!legend_.empty()) legend_ += '\r';
    legend_ += continued ? "(cont.)" : name;
    const auto begin = static_cast<std::size_t>(from);
    ++series_;
    chart_.SetSeriesData(series_, "Line Data", curve.Distances.data() + begin,
                         curve.Values.data() + begin, static_cast<std::size_t>(count));
    ChartSeries& series = chart_.Series(series_);
    series.Curve = name;
    series.Continued = continued;
    series.LineStyle = look.pattern;
    series.LineColor = look.color;
    series.LineWidth = 1;
    series.MarkerStyle = 0;
    series.MarkerSize = 0;
    series.SinglePoints = false;
    series.Visible = true;
}

// A stretch ends one point before the range changes, and the next begins at that point.
void CurveDrawing::DrawModelCurve(const CurveData& curve, std::string_view legend, Color color) {
    if (curve.LastPoint <= 0) return;
    bool inRange = curve.InRangeAtStart;
    const auto look = [&] { return Look{color, inRange ? PatternInRange : PatternOutOfRange}; };
    if (curve.BreakCount == 0) {
        AddSeries(legend, false, curve, 0, curve.LastPoint + 1, look());
        return;
    }
    AddSeries(legend, false, curve, 0, curve.Breaks[0], look());
    for (int j = 0; j < curve.BreakCount; ++j) {
        const int from = curve.Breaks[static_cast<std::size_t>(j)];
        const int to = curve.Breaks[static_cast<std::size_t>(j) + 1];
        inRange = !inRange;
        AddSeries(legend, true, curve, from, to - from + 1, look());
    }
}

void CurveDrawing::DrawModelCurves(std::span<const ModelCurve> curves, const ModelInputs& inputs,
                                   double from, double to) {
    for (const ModelCurve& curve : curves)
        DrawModelCurve(ComputeModelCurve(curve.model, curve.function, inputs, from, to),
                       curve.legend, curve.color);
}

void CurveDrawing::DrawWholeCurve(const CurveData& curve, std::string_view legend, Color color,
                                  LinePattern pattern) {
    AddSeries(legend, false, curve, 0, curve.LastPoint + 1, {color, pattern});
}

void CurveDrawing::DrawMeasuredCurve(const CurveData& curve, std::string_view legend, Color color) {
    if (curve.LastPoint < 0) return;
    DrawWholeCurve(curve, legend, color, PatternInRange);
    chart_.Series(series_).SinglePoints = true;
}

void SetChartScales(Chart& chart, double maxDist, double valueMinimum, double valueMaximum) {
    for (ChartAxis& axis : chart.Axis) {
        axis.TitleFontName = "Arial";
        axis.LabelFontName = "Arial";
        axis.TitleFontSize = 10;
        axis.LabelFontSize = 10;
        axis.LabelColor = Black;
        axis.TitleColor = Black;
    }
    chart.Axis[0].Maximum = maxDist;
    chart.Axis[0].MajorStep = maxDist == 100.0 ? 10.0 : 50.0;
    chart.Axis[0].Minimum = 0.0;
    chart.Axis[1].Maximum = valueMaximum;
    chart.Axis[1].Minimum = valueMinimum;
}

void SetChartTitles(Chart& chart, std::string plot, std::string parameters) {
    chart.Title[1].Text = std::move(plot);
    chart.Title[2].Text = std::move(parameters);
    chart.Title[1].FontSize = 8;
    chart.Title[2].FontSize = 8;
}

void SetChartLegend(Chart& chart, std::string legend) {
    chart.Legend.Text = std::move(legend);
    chart.Legend.AttributeA = 0;
    chart.Legend.AttributeB = 0;
    chart.Legend.FontSize = 8;
    chart.Legend.Visible = true;
}

}  // namespace vardel
