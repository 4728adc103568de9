#include "qt/chart/LegendPlace.h"

#include <qcustomplot.h>

#include <algorithm>
#include <limits>

#include "forms/graphs/chart/Chart.h"
#include "qt/chart/ClippedCurve.h"

namespace vardel {

namespace {

// As much of the value axis as the lines take in a window of the usual size.
double UsualHeight(const Chart& chart) {
    const auto lines = 1 + std::count(chart.Legend.Text.begin(), chart.Legend.Text.end(), '\r');
    return 0.06 + 0.036 * static_cast<double>(lines);
}

// The corner at the right where the curves leave more room.
Qt::Alignment LegendCorner(const Chart& chart) {
    const auto& [x, y] = chart.Axis;
    const double right = x.Minimum + 0.8 * (x.Maximum - x.Minimum);
    const double height = UsualHeight(chart) * (y.Maximum - y.Minimum);
    const double low = y.Minimum + height;
    const double high = y.Maximum - height;
    int above = 0;
    int below = 0;
    for (const ChartSeries& series : chart.AllSeries()) {
        if (!series.Visible) continue;
        for (std::size_t i = 0; i < series.X.size(); ++i) {
            if (series.X[i] < right || series.Y[i] < y.Minimum || series.Y[i] > y.Maximum) continue;
            above += series.Y[i] > high ? 1 : 0;
            below += series.Y[i] < low ? 1 : 0;
        }
    }
    return (below < above ? Qt::AlignBottom : Qt::AlignTop) | Qt::AlignRight;
}

constexpr double SmallWindow = 0.1;  // by so much of the axis more

using Line = std::vector<CurvePoint>;

// Of the axes' frame, from its left and its top.
CurvePoint ShareOf(const QCustomPlot& plot, const CurvePoint& p) {
    const QRect frame = plot.axisRect()->rect();
    return {(plot.xAxis->coordToPixel(p.x) - frame.left()) / frame.width(),
            (plot.yAxis->coordToPixel(p.y) - frame.top()) / frame.height()};
}

std::vector<Line> LinesOf(const QCustomPlot& plot) {
    std::vector<Line> lines;
    for (int i = 0; i < plot.graphCount(); ++i) {
        if (!plot.graph(i)->visible()) continue;
        Line& line = lines.emplace_back();
        for (const QCPGraphData& p : *plot.graph(i)->data())
            line.push_back(ShareOf(plot, {p.key, p.value}));
    }
    return lines;
}

// Of the frame, with a little room around.
QSizeF LegendShare(const QCustomPlot& plot) {
    constexpr double Room = 20.0;
    const QSizeF legend = plot.legend->minimumOuterSizeHint();
    const QSize frame = plot.axisRect()->size();
    return {std::min((legend.width() + Room) / frame.width(), 1.0),
            std::min((legend.height() + Room) / frame.height(), 1.0)};
}

ClipFrame FrameOf(Qt::Alignment corner, const QSizeF& size) {
    const double left = corner & Qt::AlignLeft ? 0.0 : 1.0 - size.width();
    const double top = corner & Qt::AlignTop ? 0.0 : 1.0 - size.height();
    return {left, left + size.width(), top, top + size.height()};
}

// A tie leaves it where it is, so that it does not jump about as the view moves.
Qt::Alignment FreestCorner(const QCustomPlot& plot, Qt::Alignment now) {
    const std::vector<Line> lines = LinesOf(plot);
    const QSizeF size = LegendShare(plot);
    auto fewest = std::numeric_limits<std::size_t>::max();
    Qt::Alignment freest = now;
    for (const Qt::Alignment corner :
         {now, Qt::AlignTop | Qt::AlignRight, Qt::AlignBottom | Qt::AlignRight,
          Qt::AlignBottom | Qt::AlignLeft, Qt::AlignTop | Qt::AlignLeft}) {
        std::size_t hidden = 0;
        for (const Line& line : lines) hidden += Clipped(line, FrameOf(corner, size)).size();
        if (hidden >= fewest) continue;
        fewest = hidden;
        freest = corner;
    }
    return freest;
}

// Points that lie apart may be anywhere, where a curve is known by its end.
bool HasMarks(const Chart& chart) {
    return std::ranges::any_of(chart.AllSeries(), [](const ChartSeries& series) {
        return series.Visible && series.MarkerStyle != 0;
    });
}

bool ShowsWholeGraph(const QCustomPlot& plot, const Chart& chart) {
    const auto& [x, y] = chart.Axis;
    return chart.Look() == ChartLook{} && plot.xAxis->range() == QCPRange(x.Minimum, x.Maximum) &&
           plot.yAxis->range() == QCPRange(y.Minimum, y.Maximum);
}

}  // namespace

void PlaceLegend(QCustomPlot& plot, const Chart& chart) {
    QCPLayoutInset& inset = *plot.axisRect()->insetLayout();
    const QRect frame = plot.axisRect()->rect();
    const bool drawn = frame.width() > 0 && frame.height() > 0;
    const bool whole = ShowsWholeGraph(plot, chart);
    Qt::Alignment corner = inset.insetAlignment(0);
    if (whole || !drawn) corner = LegendCorner(chart);
    // In a small window it takes more than it is reckoned with.
    if (drawn && (!whole || HasMarks(chart) ||
                  LegendShare(plot).height() > UsualHeight(chart) + SmallWindow))
        corner = FreestCorner(plot, corner);
    inset.setInsetAlignment(0, corner);
}

}  // namespace vardel
