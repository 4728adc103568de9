#include "forms/graphs/chart/ChartSetup.h"

namespace vardel {

void ShowPlot(Chart& chart, const CurvePlot& plot) {
    int index = 0;
    for (const PlotSeries& shown : plot) {
        chart.SetSeriesData(index, "Line Data", shown.distances.data(), shown.values.data(),
                            shown.values.size());
        ChartSeries& series = chart.Series(index++);
        series.Curve = shown.curve;
        series.Continued = shown.continued;
        series.LineStyle = static_cast<int>(shown.pattern);
        series.LineColor = shown.color;
        series.LineWidth = 1;
        series.MarkerStyle = shown.marked ? 1 : 0;
        series.MarkerSize = shown.marked ? 5 : 0;
        series.SinglePoints = shown.singlePoints;
        series.Visible = true;
    }
    chart.Legend.Text = LegendText(plot);
    chart.Legend.AttributeA = 0;
    chart.Legend.AttributeB = 0;
    chart.Legend.FontSize = 8;
    chart.Legend.Visible = true;
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

}  // namespace vardel
