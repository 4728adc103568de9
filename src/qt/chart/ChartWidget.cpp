#include "qt/chart/ChartWidget.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "forms/shared/SaveWithDialog.h"
#include "qt/chart/ChartPlot.h"
#include "qt/services/Convert.h"
#include "services/Files.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

constexpr const char* ReadoutLayer = "readout";

// Calls visit with each shown series and the name of its curve, which further stretches of it
// share.
template <class Visit>
void ForEachShownSeries(const Chart& chart, Visit visit) {
    const QStringList lines = ToQt(chart.Legend.Text).split('\r');
    qsizetype line = 0;
    QString curve;
    for (const ChartSeries& series : chart.AllSeries()) {
        if (!series.Visible) continue;
        if (const QString name = lines.value(line++); name != "(cont.)") curve = name;
        visit(series, curve);
    }
}

// The titles, which tell the inputs, as comments; then a line for each point: the curve, the
// distance, the value, and whether the model covers it.
QByteArray ChartAsCsv(const Chart& chart) {
    QByteArray csv;
    for (const ChartTitle& title : chart.Title) csv += ("# " + title.Text + '\n').c_str();
    csv += ("# value: " + chart.Axis[1].Title + '\n').c_str();
    csv += "curve,distance_km,value,in_range\n";
    ForEachShownSeries(chart, [&csv](const ChartSeries& series, const QString& curve) {
        const char* inRange = series.LineStyle == PatternOutOfRange ? "no" : "yes";
        for (std::size_t i = 0; i < series.X.size(); ++i)
            csv += curve.toUtf8() + ',' + ShortestText(series.X[i]).c_str() + ',' +
                   ShortestText(series.Y[i]).c_str() + ',' + inRange + '\n';
    });
    return csv;
}

// The value of the curve at the distance, between points in a straight line.
std::optional<double> ValueAt(const ChartSeries& series, double distance) {
    if (series.X.empty() || distance < series.X.front() || distance > series.X.back())
        return std::nullopt;
    const auto next = std::lower_bound(series.X.begin(), series.X.end(), distance);
    const auto i = static_cast<std::size_t>(next - series.X.begin());
    if (i == 0 || *next == distance) return series.Y[i];
    const double t = (distance - series.X[i - 1]) / (series.X[i] - series.X[i - 1]);
    return (1.0 - t) * series.Y[i - 1] + t * series.Y[i];
}

// What the readout says of a series. Between single points there is nothing to be told: it names
// the nearest of them.
QString ReadoutLine(const ChartSeries& series, const QString& curve, double distance,
                    const QString& unit) {
    const auto number = [](double x, const char* pattern) {
        return ToQt(FormatNumber(x, pattern));
    };
    if (series.SinglePoints && !series.X.empty()) {
        const auto nearest = std::min_element(
            series.X.begin(), series.X.end(),
            [&](double a, double b) { return std::abs(a - distance) < std::abs(b - distance); });
        const double value = series.Y[static_cast<std::size_t>(nearest - series.X.begin())];
        return curve + " at " + number(*nearest, "0.0#") + " km: " + number(value, "0.00") + ' ' +
               unit;
    }
    const auto value = ValueAt(series, distance);
    if (!value) return {};
    return curve + ": " + number(*value, "0.00") + ' ' + unit +
           (series.LineStyle == PatternOutOfRange ? " (out of range)" : "");
}

}  // namespace

ChartWidget::ChartWidget(Chart& chart, Binder& binder) : chart_(chart) {
    setObjectName(ToQt(chart.Name()));
    setAccessibleName(ToQt(chart.Title[0].Text));
    // A click would take the focus from a box, whose leaving marks the graph as out of date.
    setFocusPolicy(Qt::TabFocus);
    setMinimumSize(360, 270);
    setInteractions(QCP::iRangeDrag | QCP::iRangeZoom);
    axisRect()->setRangeZoomFactor(0.8);

    // On a layer of its own it follows the pointer without the curves being drawn again.
    addLayer(ReadoutLayer, nullptr, limAbove);
    layer(ReadoutLayer)->setMode(QCPLayer::lmBuffered);
    cursor_ = new QCPItemStraightLine(this);
    cursor_->setLayer(ReadoutLayer);
    cursor_->setPen(QPen(QColor(60, 60, 60), 1, Qt::DashLine));
    readout_ = new QCPItemText(this);
    readout_->setLayer(ReadoutLayer);
    readout_->position->setType(QCPItemPosition::ptAxisRectRatio);
    readout_->setTextAlignment(Qt::AlignLeft);
    readout_->setPadding(QMargins(6, 4, 6, 4));
    readout_->setBrush(QColor(255, 255, 255, 225));
    readout_->setPen(QPen(QColor(150, 150, 150)));
    HideReadout();

    for (const auto& [axis, opposite] : {std::pair(xAxis, xAxis2), std::pair(yAxis, yAxis2)})
        connect(axis, qOverload<const QCPRange&>(&QCPAxis::rangeChanged), opposite,
                qOverload<const QCPRange&>(&QCPAxis::setRange));
    connect(this, &QCustomPlot::afterReplot, this, [this] { readoutPlaced_ = false; });
    connect(this, &QCustomPlot::mouseMove, this, [this](QMouseEvent* event) {
        ShowReadout(xAxis->pixelToCoord(event->position().x()));
    });
    connect(this, &QCustomPlot::mouseDoubleClick, this, [this] { ResetScales(); });
    binder.Show(chart, [this] { ShowChart(); });
}

void ChartWidget::ShowChart() {
    FillPlot(*this, chart_);
    replot(rpQueuedReplot);
    if (readout_->visible()) ShowReadout(distance_);
}

void ChartWidget::ResetScales() {
    xAxis->setRange(chart_.Axis[0].Minimum, chart_.Axis[0].Maximum);
    yAxis->setRange(chart_.Axis[1].Minimum, chart_.Axis[1].Maximum);
    replot();
}

void ChartWidget::ShowReadout(double distance) {
    const ChartAxis& axis = chart_.Axis[0];
    distance_ = std::clamp(distance, axis.Minimum, axis.Maximum);
    QStringList lines{ToQt(axis.Title) + ": " + ToQt(FormatNumber(distance_, "0.0"))};
    ForEachShownSeries(chart_, [&](const ChartSeries& series, const QString& curve) {
        const QString line = ReadoutLine(series, curve, distance_, ToQt(chart_.Axis[1].Title));
        if (!line.isEmpty()) lines << line;
    });
    cursor_->point1->setCoords(distance_, 0);
    cursor_->point2->setCoords(distance_, 1);
    readout_->setText(lines.join('\n'));
    if (!readoutPlaced_) PlaceReadout();
    setAccessibleDescription(lines.join(", "));
    cursor_->setVisible(true);
    readout_->setVisible(true);
    layer(ReadoutLayer)->replot();
}

// In the corner where it hides the fewest points of the curves, and stays there until these move.
void ChartWidget::PlaceReadout() {
    const QRect plot = axisRect()->rect();
    const QRect legendArea = legend->outerRect();
    const QSize size = fontMetrics().boundingRect(QRect(), 0, readout_->text()).size();
    int fewest = std::numeric_limits<int>::max();
    for (const Qt::Alignment corner :
         {Qt::AlignLeft | Qt::AlignBottom, Qt::AlignLeft | Qt::AlignTop,
          Qt::AlignRight | Qt::AlignBottom, Qt::AlignRight | Qt::AlignTop}) {
        const QRect area = QStyle::alignedRect(Qt::LeftToRight, corner, size + QSize(24, 16), plot);
        const int hidden =
            area.intersects(legendArea) ? std::numeric_limits<int>::max() - 1 : PointsWithin(area);
        if (hidden >= fewest) continue;
        fewest = hidden;
        readout_->setPositionAlignment(corner);
        readout_->position->setCoords(corner & Qt::AlignLeft ? 0.01 : 0.99,
                                      corner & Qt::AlignTop ? 0.02 : 0.98);
    }
    readoutPlaced_ = true;
}

int ChartWidget::PointsWithin(const QRect& area) const {
    int within = 0;
    for (int i = 0; i < graphCount(); ++i)
        for (const QCPGraphData& point : *graph(i)->data())
            within += area.contains(static_cast<int>(xAxis->coordToPixel(point.key)),
                                    static_cast<int>(yAxis->coordToPixel(point.value)))
                          ? 1
                          : 0;
    return within;
}

void ChartWidget::HideReadout() {
    cursor_->setVisible(false);
    readout_->setVisible(false);
    layer(ReadoutLayer)->replot();
}

void ChartWidget::leaveEvent(QEvent* event) {
    HideReadout();
    QCustomPlot::leaveEvent(event);
}

void ChartWidget::keyPressEvent(QKeyEvent* event) {
    constexpr double Zoom = 0.8;
    const double step = event->modifiers() & Qt::ControlModifier ? 10.0 : 1.0;
    switch (event->key()) {
        case Qt::Key_Left:
            return ShowReadout(distance_ - step);
        case Qt::Key_Right:
            return ShowReadout(distance_ + step);
        case Qt::Key_Home:
            return ResetScales();
        case Qt::Key_Plus:
        case Qt::Key_Minus: {
            const double factor = event->key() == Qt::Key_Plus ? Zoom : 1.0 / Zoom;
            xAxis->scaleRange(factor);
            yAxis->scaleRange(factor);
            return replot();
        }
        default:
            QCustomPlot::keyPressEvent(event);
    }
}

// The window may be closed with the menu open.
void ChartWidget::contextMenuEvent(QContextMenuEvent* event) {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction("Copy Picture", this,
                    [this] { QApplication::clipboard()->setImage(DrawChart(chart_)); });
    menu->addSeparator();
    const auto addSave = [&](const QString& caption, const char* filter, auto encode) {
        menu->addAction(caption, this, [this, filter, encode] { SaveAs(filter, encode(chart_)); });
    };
    addSave("Save Picture as PNG ...", "PNG Files (*.png)|*.png", ChartAsPng);
    addSave("Save Picture as SVG ...", "SVG Files (*.svg)|*.svg", ChartAsSvg);
    addSave("Save Picture as PDF ...", "PDF Files (*.pdf)|*.pdf", ChartAsPdf);
    addSave("Save Points as CSV ...", "CSV Files (*.csv)|*.csv", ChartAsCsv);
    menu->addSeparator();
    menu->addAction("Whole Graph", this, [this] { ResetScales(); });
    menu->popup(event->globalPos());
}

void ChartWidget::SaveAs(const std::string& filter, const QByteArray& bytes) {
    chart_.Owner().Run([&] {
        SaveWithDialog(
            chart_.Owner(), filter, 1,
            [&bytes](const SaveChoice& choice) { ReplaceFile(choice.path, bytes.toStdString()); },
            chart_.Title[0].Text);
    });
}

}  // namespace vardel
