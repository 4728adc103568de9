#include "qt/chart/ChartPlot.h"

#include <qcustomplot.h>

#include <QGuiApplication>
#include <QPagedPaintDevice>
#include <QScreen>
#include <algorithm>
#include <limits>
#include <stdexcept>

#include "qt/chart/ClippedCurve.h"
#include "qt/chart/FreeCorner.h"
#include "qt/chart/LogTicker.h"
#include "qt/chart/StepTicker.h"
#include "qt/chart/ThresholdItem.h"
#include "qt/services/Convert.h"

namespace vardel {

namespace {

QFont FontOf(const std::string& name, double points) {
    QFont font(ToQt(name));
    font.setPointSizeF(points);
    return font;
}

QColor SwitchedOffColor() { return {170, 170, 170}; }

QPen PenOf(const ChartSeries& series) {
    QPen pen(ToQt(series.LineColor));
    pen.setWidthF(series.LineWidth);
    pen.setCapStyle(Qt::FlatCap);
    if (series.IsOutOfRange()) pen.setDashPattern({6, 4});
    if (series.LineStyle == static_cast<int>(LinePattern::FreeSpace)) {
        // Fine dots of a light grey are lost in the grid, most of all where they are drawn small.
        const bool isLight = pen.color().lightness() > 150;
        pen.setDashPattern(isLight ? QList<qreal>{3, 1} : QList<qreal>{1, 3});
    }
    if (series.LineStyle == static_cast<int>(LinePattern::Archived))
        pen.setDashPattern({9, 3, 2, 3});
    return pen;
}

// A single value has a dot in any case: its line would show nothing.
QCPScatterStyle MarkOf(const ChartSeries& series) {
    constexpr int SingleSize = 5;
    const bool single = series.SinglePoints && series.X.size() == 1;
    if (series.MarkerStyle == 0 && !single) return {};
    const QColor color = ToQt(series.LineColor);
    return {QCPScatterStyle::ssCircle, QPen(color.darker(150)), color,
            static_cast<double>(std::max(series.MarkerSize, single ? SingleSize : 0))};
}

void SetAxis(QCPAxis& shown, const ChartAxis& axis, const AxisRange& range, bool logarithmic) {
    shown.setScaleType(logarithmic ? QCPAxis::stLogarithmic : QCPAxis::stLinear);
    shown.setRange(range.From, range.To);
    shown.setLabel(ToQt(axis.Title));
    shown.setLabelFont(FontOf(axis.TitleFontName, axis.TitleFontSize));
    shown.setTickLabelFont(FontOf(axis.LabelFontName, axis.LabelFontSize));
    shown.setLabelColor(ToQt(axis.TitleColor));
    shown.setTickLabelColor(ToQt(axis.LabelColor));
    shown.setTicker(QSharedPointer<QCPAxisTicker>(logarithmic ? new LogTicker
                                                              : new StepTicker(axis.MajorStep)));
    shown.grid()->setPen(QPen(QColor(215, 220, 220)));
}

QCPGraph* AddGraph(QCustomPlot& plot, const ChartSeries& series) {
    QCPGraph* graph = plot.addGraph();
    graph->setPen(PenOf(series));
    graph->setAntialiased(true);
    graph->setAdaptiveSampling(true);
    graph->setName(ToQt(series.Continued ? "(cont.)" : series.Curve));
    graph->setScatterStyle(MarkOf(series));
    graph->setProperty(ReferenceProperty,
                       series.LineStyle == static_cast<int>(LinePattern::FreeSpace));
    return graph;
}

void AddGraphs(QCustomPlot& plot, const Chart& chart) {
    for (const ChartSeries& series : chart.AllSeries()) {
        if (!series.Visible) continue;
        const auto size = static_cast<qsizetype>(series.X.size());
        QCPGraph* graph = AddGraph(plot, series);
        graph->setData(QVector<double>(series.X.data(), series.X.data() + size),
                       QVector<double>(series.Y.data(), series.Y.data() + size),
                       !series.SinglePoints);  // measured rows may come in any order
        if (!chart.Look().IsOff(series.Curve)) continue;
        graph->setVisible(false);
        plot.legend->itemWithPlottable(graph)->setTextColor(SwitchedOffColor());
    }
}

void SetPoints(QCPGraph& graph, const std::vector<CurvePoint>& points) {
    QVector<QCPGraphData> data;
    data.reserve(static_cast<qsizetype>(points.size()));
    for (const auto& [x, y] : points) data.append({x, y});
    graph.data()->set(data, true);
}

// Takes off every curve what lies outside the axes. Marks stay where their points are, so that
// their line is a graph of its own.
void ClipGraphs(QCustomPlot& plot) {
    const QCPRange x = plot.xAxis->range(), y = plot.yAxis->range();
    const ClipFrame frame{x.lower, x.upper, y.lower, y.upper};
    for (int i = plot.graphCount() - 1; i >= 0; --i) {
        QCPGraph& graph = *plot.graph(i);
        std::vector<CurvePoint> line;
        for (const QCPGraphData& point : *graph.data()) line.push_back({point.key, point.value});
        const auto isInside = [&frame](const CurvePoint& p) { return frame.Holds(p); };
        if (std::all_of(line.begin(), line.end(), isInside)) continue;
        const std::vector<CurvePoint> parts = Clipped(line, frame);
        if (graph.scatterStyle().isNone()) {
            SetPoints(graph, parts);
            continue;
        }
        QCPGraph* lineOnly = plot.addGraph();
        lineOnly->setPen(graph.pen());
        lineOnly->removeFromLegend();
        SetPoints(*lineOnly, parts);
        for (CurvePoint& p : line)
            if (!isInside(p)) p.y = std::numeric_limits<double>::quiet_NaN();
        SetPoints(graph, line);
    }
}

// Wrapped where it is wider than the chart: a number that is cut off reads as another number.
class WrappedTitle : public QCPTextElement {
public:
    WrappedTitle(QCustomPlot& plot, const QString& text) : QCPTextElement(&plot, text) {
        setTextFlags(Qt::AlignCenter | Qt::TextWordWrap);
    }

protected:
    QSize minimumOuterSizeHint() const override { return {0, Height()}; }
    QSize maximumOuterSizeHint() const override { return {QWIDGETSIZE_MAX, Height()}; }

private:
    int Height() const {
        const int width = mParentPlot->viewport().width() - mMargins.left() - mMargins.right();
        const QRect room(0, 0, std::max(width, 1), QWIDGETSIZE_MAX);
        return QFontMetrics(mFont).boundingRect(room, textFlags(), mText).height() +
               mMargins.top() + mMargins.bottom();
    }
};

void AddTitles(QCustomPlot& plot, const Chart& chart) {
    QCPLayoutGrid& layout = *plot.plotLayout();
    int row = 0;
    for (const ChartTitle& title : chart.Title) {
        if (title.Text.empty()) continue;
        layout.insertRow(row);
        auto* element = new WrappedTitle(plot, ToQt(title.Text));
        QFont font = FontOf("Arial", title.FontSize);
        font.setBold(row == 0);
        element->setFont(font);
        layout.addElement(row++, 0, element);
    }
}

void RemoveTitles(QCustomPlot& plot) {
    QCPLayoutGrid& layout = *plot.plotLayout();
    for (int i = layout.elementCount() - 1; i >= 0; --i)
        if (qobject_cast<QCPTextElement*>(layout.elementAt(i)) != nullptr) layout.removeAt(i);
    layout.simplify();
}

}  // namespace

void FillPlot(QCustomPlot& plot, const Chart& chart, const ChartRanges& shown) {
    plot.clearGraphs();
    RemoveTitles(plot);
    AddTitles(plot, chart);
    AddGraphs(plot, chart);
    const bool logarithmic = chart.Look().LogDistance;
    SetAxis(*plot.xAxis, chart.Axis[0], shown[0], logarithmic);
    SetAxis(*plot.yAxis, chart.Axis[1], shown[1], false);
    plot.xAxis2->setTicker(logarithmic ? plot.xAxis->ticker()
                                       : QSharedPointer<QCPAxisTicker>(new QCPAxisTicker));
    plot.axisRect()->setupFullAxesBox();
    for (QCPAxis* axis : {plot.xAxis2, plot.yAxis2}) axis->setTickLabels(false);
    plot.legend->setVisible(chart.Legend.Visible);
    plot.legend->setFont(FontOf("Arial", chart.Legend.FontSize));
    plot.legend->setBrush(QColor(255, 255, 255, 225));
    plot.legend->setBorderPen(QPen(QColor(150, 150, 150)));
    plot.legend->setIconSize(36, 10);
    ThresholdItem::Show(plot, chart);
}

namespace {

// A curve that is switched off has an entry on the screen only, where a click puts it back.
void FillFor(QCustomPlot& plot, const Chart& chart, const ChartFrame& frame) {
    FillPlot(plot, chart, frame.AsZoomed ? chart.View() : chart.Scales());
    for (int i = plot.graphCount() - 1; i >= 0; --i)
        if (!plot.graph(i)->visible()) plot.removeGraph(i);
    KeepLegendFree(plot);
}

}  // namespace

bool DrawChartOn(QPaintDevice& device, const Chart& chart, const ChartFrame& frame, QSize size,
                 double scale) {
    QCustomPlot plot;
    FillFor(plot, chart, frame);
    ClipGraphs(plot);  // not every device clips
    QCPPainter painter;
    if (!painter.begin(&device)) return false;
    painter.scale(scale, scale);
    painter.setMode(QCPPainter::pmVectorized);
    painter.setMode(QCPPainter::pmNoCaching);
    plot.toPainter(&painter, size.width(), size.height());
    return painter.end();
}

QImage DrawChart(const Chart& chart, int scale, const ChartFrame& frame) {
    QCustomPlot plot;
    FillFor(plot, chart, frame);
    return plot.toPixmap(PictureSize.width(), PictureSize.height(), scale).toImage();
}

int ChartPageResolution() { return qRound(QGuiApplication::primaryScreen()->logicalDotsPerInch()); }

void DrawChartOnPage(QPagedPaintDevice& page, const Chart& chart) {
    const QSizeF paper(page.width(), page.height());
    const double scale = std::max(paper.width(), paper.height()) / PictureSize.width();
    if (!DrawChartOn(page, chart, {}, (paper / scale).toSize(), scale))
        throw std::runtime_error("the graph cannot be printed");
}

}  // namespace vardel
