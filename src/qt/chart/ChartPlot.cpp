#include "qt/chart/ChartPlot.h"

#include <qcustomplot.h>

#include <QBuffer>
#include <QGuiApplication>
#include <QPagedPaintDevice>
#include <QPdfWriter>
#include <QScreen>
#include <QSvgGenerator>
#include <algorithm>
#include <limits>
#include <stdexcept>

#include "qt/chart/ClippedCurve.h"
#include "qt/chart/StepTicker.h"
#include "qt/chart/ThresholdItem.h"
#include "qt/metafile/MetafileDevice.h"
#include "qt/services/Convert.h"

namespace vardel {

namespace {

constexpr QSize PictureSize(900, 600);
constexpr int PointsPerInch = 96;  // of a plain screen

QFont FontOf(const std::string& name, double points) {
    QFont font(ToQt(name));
    font.setPointSizeF(points);
    return font;
}

QPen PenOf(const ChartSeries& series) {
    QPen pen(ToQt(series.LineColor));
    pen.setWidthF(series.LineWidth * 1.3);
    pen.setCapStyle(Qt::FlatCap);
    if (series.IsOutOfRange()) pen.setDashPattern({6, 4});
    if (series.LineStyle == static_cast<int>(LinePattern::FreeSpace)) pen.setDashPattern({1, 3});
    if (series.LineStyle == static_cast<int>(LinePattern::Archived))
        pen.setDashPattern({9, 3, 2, 3});
    return pen;
}

QCPScatterStyle PointMark(const ChartSeries& series) {
    constexpr double Size = 5.0;
    const QColor color = ToQt(series.LineColor);
    return {QCPScatterStyle::ssCircle, QPen(color.darker(150)), color, Size};
}

void SetAxis(QCPAxis& shown, const ChartAxis& axis) {
    shown.setRange(axis.Minimum, axis.Maximum);
    shown.setLabel(ToQt(axis.Title));
    shown.setLabelFont(FontOf(axis.TitleFontName, axis.TitleFontSize));
    shown.setTickLabelFont(FontOf(axis.LabelFontName, axis.LabelFontSize));
    shown.setLabelColor(ToQt(axis.TitleColor));
    shown.setTickLabelColor(ToQt(axis.LabelColor));
    shown.setTicker(QSharedPointer<QCPAxisTicker>(new StepTicker(axis.MajorStep)));
    shown.grid()->setPen(QPen(QColor(215, 220, 220)));
}

QCPGraph* AddGraph(QCustomPlot& plot, const ChartSeries& series) {
    QCPGraph* graph = plot.addGraph();
    graph->setPen(PenOf(series));
    graph->setAntialiased(true);
    graph->setAdaptiveSampling(true);
    graph->setName(ToQt(series.Continued ? "(cont.)" : series.Curve));
    if (series.SinglePoints) graph->setScatterStyle(PointMark(series));
    return graph;
}

void AddGraphs(QCustomPlot& plot, const Chart& chart) {
    for (const ChartSeries& series : chart.AllSeries()) {
        if (!series.Visible) continue;
        const auto size = static_cast<qsizetype>(series.X.size());
        AddGraph(plot, series)
            ->setData(QVector<double>(series.X.data(), series.X.data() + size),
                      QVector<double>(series.Y.data(), series.Y.data() + size),
                      !series.SinglePoints);  // measured rows may come in any order
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

// The corner at the right where the curves leave more room.
Qt::Alignment LegendCorner(const Chart& chart) {
    const auto& [x, y] = chart.Axis;
    const double right = x.Minimum + 0.8 * (x.Maximum - x.Minimum);
    // As much of the axis as the lines take in a window of the usual size.
    const auto lines = 1 + std::count(chart.Legend.Text.begin(), chart.Legend.Text.end(), '\r');
    const double height = (0.06 + 0.036 * static_cast<double>(lines)) * (y.Maximum - y.Minimum);
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

void FillPlot(QCustomPlot& plot, const Chart& chart) {
    plot.clearGraphs();
    RemoveTitles(plot);
    AddTitles(plot, chart);
    AddGraphs(plot, chart);
    SetAxis(*plot.xAxis, chart.Axis[0]);
    SetAxis(*plot.yAxis, chart.Axis[1]);
    plot.axisRect()->setupFullAxesBox();
    for (QCPAxis* axis : {plot.xAxis2, plot.yAxis2}) axis->setTickLabels(false);
    plot.legend->setVisible(chart.Legend.Visible);
    plot.legend->setFont(FontOf("Arial", chart.Legend.FontSize));
    plot.legend->setBrush(QColor(255, 255, 255, 225));
    plot.legend->setBorderPen(QPen(QColor(150, 150, 150)));
    plot.legend->setIconSize(36, 10);
    plot.axisRect()->insetLayout()->setInsetAlignment(0, LegendCorner(chart));
    ThresholdItem::Show(plot, chart);
}

namespace {

// False where the device cannot be drawn on.
bool DrawOn(QPaintDevice& device, const Chart& chart, QSize size, double scale = 1.0) {
    QCustomPlot plot;
    FillPlot(plot, chart);
    ClipGraphs(plot);  // not every device clips
    QCPPainter painter;
    if (!painter.begin(&device)) return false;
    painter.scale(scale, scale);
    painter.setMode(QCPPainter::pmVectorized);
    painter.setMode(QCPPainter::pmNoCaching);
    plot.toPainter(&painter, size.width(), size.height());
    return painter.end();
}

}  // namespace

QImage DrawChart(const Chart& chart, int scale) {
    QCustomPlot plot;
    FillPlot(plot, chart);
    return plot.toPixmap(PictureSize.width(), PictureSize.height(), scale).toImage();
}

int ChartPageResolution() { return qRound(QGuiApplication::primaryScreen()->logicalDotsPerInch()); }

void DrawChartOnPage(QPagedPaintDevice& page, const Chart& chart) {
    const QSizeF paper(page.width(), page.height());
    const double scale = std::max(paper.width(), paper.height()) / PictureSize.width();
    if (!DrawOn(page, chart, (paper / scale).toSize(), scale))
        throw std::runtime_error("the graph cannot be printed");
}

QByteArray ChartAsMetafile(const Chart& chart) {
    MetafileDevice device(PictureSize);
    if (!DrawOn(device, chart, PictureSize))
        throw std::runtime_error("The chart cannot be drawn as a metafile");
    return device.Metafile();
}

QByteArray ChartAsPng(const Chart& chart) {
    constexpr int FinerForPaper = 3;
    constexpr double PointsPerMetre = PointsPerInch / 0.0254;
    QImage image = DrawChart(chart, FinerForPaper);
    image.setDotsPerMeterX(qRound(FinerForPaper * PointsPerMetre));
    image.setDotsPerMeterY(qRound(FinerForPaper * PointsPerMetre));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

QByteArray ChartAsSvg(const Chart& chart) {
    QBuffer buffer;
    QSvgGenerator svg;
    svg.setOutputDevice(&buffer);
    svg.setSize(PictureSize);
    svg.setViewBox(QRect(QPoint(), PictureSize));
    svg.setTitle(ToQt(chart.Title[0].Text));
    svg.setResolution(PointsPerInch);
    DrawOn(svg, chart, PictureSize);
    return buffer.data();
}

QByteArray ChartAsPdf(const Chart& chart) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter pdf(&buffer);
        pdf.setResolution(PointsPerInch);
        constexpr double PaperPointsPerPoint = 72.0 / PointsPerInch;
        pdf.setPageSize(QPageSize(QSizeF(PictureSize) * PaperPointsPerPoint, QPageSize::Point));
        pdf.setPageMargins(QMarginsF());
        pdf.setTitle(ToQt(chart.Title[0].Text));
        DrawOn(pdf, chart, PictureSize);
    }
    return buffer.data();
}

}  // namespace vardel
