#include "qt/chart/ChartWidget.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "forms/graphs/ChartText.h"
#include "forms/shared/SaveWithDialog.h"
#include "qt/chart/ChartPlot.h"
#include "qt/chart/ThresholdItem.h"
#include "qt/services/Convert.h"
#include "services/Files.h"

namespace vardel {

namespace {

constexpr const char* ReadoutLayer = "readout";

// A view may go this share of a whole axis beyond its ends, and show this small a part of it.
constexpr double MostBeyond = 0.5;
constexpr double SmallestPart = 1e-4;

// The chart's scale and what its series hold; but nothing so far out that the rest would vanish.
QCPRange WholeAxis(const ChartAxis& axis, const std::vector<ChartSeries>& all,
                   std::vector<double> ChartSeries::*coordinates) {
    const QCPRange scale(axis.Minimum, axis.Maximum);
    const QCPRange farthest(scale.lower - 10 * scale.size(), scale.upper + 10 * scale.size());
    QCPRange whole = scale;
    for (const ChartSeries& series : all)
        for (const double x : series.*coordinates)
            if (series.Visible && farthest.contains(x)) whole.expand(x);
    return whole;
}

QCPRange Bounded(const QCPRange& wanted, const QCPRange& whole) {
    const double margin = MostBeyond * whole.size();
    const QCPRange most(whole.lower - margin, whole.upper + margin);
    const double size = std::clamp(wanted.size(), SmallestPart * whole.size(), most.size());
    const double lower = wanted.center() - size / 2;
    return QCPRange(0, size) + std::clamp(lower, most.lower, most.upper - size);
}

QString Joined(const std::vector<std::string>& lines, const char* between) {
    QStringList texts;
    for (const std::string& line : lines) texts << ToQt(line);
    return texts.join(between);
}

QByteArray CsvOf(const Chart& chart) { return QByteArray::fromStdString(ChartCsv(chart)); }

}  // namespace

ChartWidget::ChartWidget(Chart& chart, Binder& binder) : chart_(chart) {
    setObjectName(ToQt(chart.Name()));
    setAccessibleName(chart.Title[0].Text.empty() ? "Chart" : ToQt(chart.Title[0].Text));
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

    for (const auto& [axis, opposite, i] :
         {std::tuple(xAxis, xAxis2, 0), std::tuple(yAxis, yAxis2, 1)})
        connect(axis, qOverload<const QCPRange&>(&QCPAxis::rangeChanged), this,
                [this, axis = axis, opposite = opposite,
                 i = static_cast<std::size_t>(i)](const QCPRange& range) {
                    axis->setRange(Bounded(range, whole_[i]));
                    opposite->setRange(axis->range());
                });
    connect(this, &QCustomPlot::afterReplot, this, [this] {
        readoutPlaced_ = false;
        if (pointer_) ShowReadout(xAxis->pixelToCoord(*pointer_));
    });
    connect(this, &QCustomPlot::mouseMove, this, [this](QMouseEvent* event) {
        pointer_ = event->position().x();
        ShowReadout(xAxis->pixelToCoord(*pointer_));
    });
    connect(this, &QCustomPlot::mouseDoubleClick, this, [this] { ResetScales(); });
    binder.Show(chart, [this] { ShowChart(); });
}

// What is not drawn anew keeps its zoom.
void ChartWidget::ShowChart() {
    if (redraws_ == chart_.Redraws()) {
        ThresholdItem::Show(*this, chart_);
        layer("overlay")->replot();
        if (!readout_->visible()) setAccessibleDescription(ToQt(ChartSummary(chart_)));
        return;
    }
    redraws_ = chart_.Redraws();
    whole_ = {WholeAxis(chart_.Axis[0], chart_.AllSeries(), &ChartSeries::X),
              WholeAxis(chart_.Axis[1], chart_.AllSeries(), &ChartSeries::Y)};
    FillPlot(*this, chart_);
    replot(rpQueuedReplot);
    if (readout_->visible())
        ShowReadout(distance_);
    else
        setAccessibleDescription(ToQt(ChartSummary(chart_)));
}

void ChartWidget::ResetScales() {
    xAxis->setRange(chart_.Axis[0].Minimum, chart_.Axis[0].Maximum);
    yAxis->setRange(chart_.Axis[1].Minimum, chart_.Axis[1].Maximum);
    replot();
}

void ChartWidget::ShowReadout(double distance) {
    const ChartAxis& axis = chart_.Axis[0];
    distance_ = std::clamp(distance, axis.Minimum, axis.Maximum);
    const std::vector<std::string> lines = ChartReadout(chart_, distance_);
    cursor_->point1->setCoords(distance_, 0);
    cursor_->point2->setCoords(distance_, 1);
    readout_->setText(Joined(lines, "\n"));
    if (!readoutPlaced_) PlaceReadout();
    setAccessibleDescription(Joined(lines, ", "));
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
    pointer_.reset();
    HideReadout();
    setAccessibleDescription(ToQt(ChartSummary(chart_)));
    QCustomPlot::leaveEvent(event);
}

// Keys move the readout themselves, wherever the pointer rests.
void ChartWidget::ShowReadoutByKey(double distance) {
    pointer_.reset();
    ShowReadout(distance);
    if (xAxis->range().contains(distance_)) return;
    xAxis->moveRange(distance_ - xAxis->range().center());
    replot();
}

void ChartWidget::ZoomAboutReadout(double factor) {
    const QCPRange shown = xAxis->range();
    const bool readoutShown = readout_->visible() && shown.contains(distance_);
    xAxis->scaleRange(factor, readoutShown ? distance_ : shown.center());
    yAxis->scaleRange(factor);
    replot();
}

void ChartWidget::Pan(QCPAxis& axis, double share) {
    axis.moveRange(share * axis.range().size());
    replot();
}

void ChartWidget::keyPressEvent(QKeyEvent* event) {
    constexpr double Zoom = 0.8;
    constexpr double Share = 0.1;  // of the view, for a step of panning
    const bool pans = event->modifiers() & Qt::ShiftModifier;
    const bool moves = event->modifiers() & Qt::ControlModifier;
    const double step = moves ? 10.0 : 1.0;
    switch (event->key()) {
        case Qt::Key_Left:
            return pans ? Pan(*xAxis, -Share) : ShowReadoutByKey(distance_ - step);
        case Qt::Key_Right:
            return pans ? Pan(*xAxis, Share) : ShowReadoutByKey(distance_ + step);
        case Qt::Key_Up:
            return moves && chart_.Threshold() ? MoveThreshold(1.0) : Pan(*yAxis, Share);
        case Qt::Key_Down:
            return moves && chart_.Threshold() ? MoveThreshold(-1.0) : Pan(*yAxis, -Share);
        case Qt::Key_Home:
            return ResetScales();
        case Qt::Key_Plus:
            return ZoomAboutReadout(Zoom);
        case Qt::Key_Minus:
            return ZoomAboutReadout(1.0 / Zoom);
        default:
            QCustomPlot::keyPressEvent(event);
    }
}

bool ChartWidget::IsOnThreshold(const QPointF& at) const {
    constexpr double Reachable = 5.0;
    const QCPAbstractItem* item = ThresholdItem::Of(*this);
    const double distance = item != nullptr ? item->selectTest(at, false, nullptr) : -1.0;
    return distance >= 0.0 && distance <= Reachable;
}

void ChartWidget::MoveThreshold(double step) {
    chart_.MoveThreshold(chart_.Threshold()->Value + step);
}

void ChartWidget::mousePressEvent(QMouseEvent* event) {
    dragsThreshold_ = event->button() == Qt::LeftButton && IsOnThreshold(event->position());
    if (dragsThreshold_)
        HideReadout();
    else
        QCustomPlot::mousePressEvent(event);
}

// No farther than the axis shows, where it can be fetched back.
void ChartWidget::mouseMoveEvent(QMouseEvent* event) {
    if (!dragsThreshold_) {
        setCursor(IsOnThreshold(event->position()) ? Qt::SizeVerCursor : Qt::ArrowCursor);
        return QCustomPlot::mouseMoveEvent(event);
    }
    const QCPRange shown = yAxis->range();
    chart_.MoveThreshold(
        std::clamp(yAxis->pixelToCoord(event->position().y()), shown.lower, shown.upper));
}

void ChartWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (!std::exchange(dragsThreshold_, false)) QCustomPlot::mouseReleaseEvent(event);
}

void ChartWidget::paintEvent(QPaintEvent* event) {
    QCustomPlot::paintEvent(event);
    if (!hasFocus()) return;
    QPainter painter(this);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
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
    addSave("Save Points as CSV ...", "CSV Files (*.csv)|*.csv", CsvOf);
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
