#include "qt/chart/ChartWidget.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "forms/graphs/chart/ChartText.h"
#include "qt/chart/ChartPlot.h"
#include "qt/chart/FreeCorner.h"
#include "qt/chart/ThresholdItem.h"
#include "qt/look/Announcement.h"
#include "qt/services/Convert.h"

namespace vardel {

namespace {

constexpr const char* ReadoutLayer = "readout";

// A view may go this share of a whole axis beyond its ends, and show this small a part of it.
constexpr double MostBeyond = 0.5;
constexpr double SmallestPart = 1e-4;

// The chart's scale and what its series hold; but nothing so far out that the rest would vanish, or
// that a logarithmic axis does not have.
QCPRange WholeAxis(const Chart& chart, std::size_t axis,
                   std::vector<double> ChartSeries::*coordinates) {
    const AxisRange given = chart.Scales().at(axis);
    const QCPRange scale(given.From, given.To);
    QCPRange farthest(scale.lower - 10 * scale.size(), scale.upper + 10 * scale.size());
    if (axis == 0 && chart.Look().LogDistance)
        farthest.lower = std::numeric_limits<double>::denorm_min();
    QCPRange whole = scale;
    for (const ChartSeries& series : chart.AllSeries())
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

QCPRange BoundedOnLogAxis(const QCPRange& wanted, const QCPRange& whole) {
    const auto logarithm = [](const QCPRange& range) {
        return QCPRange(std::log10(range.lower), std::log10(range.upper));
    };
    const QCPRange bounded = Bounded(logarithm(wanted), logarithm(whole));
    return {std::pow(10.0, bounded.lower), std::pow(10.0, bounded.upper)};
}

bool IsLogarithmic(const QCPAxis& axis) { return axis.scaleType() == QCPAxis::stLogarithmic; }

// The middle of what an axis shows, as the eye sees it.
double MiddleOf(const QCPAxis& axis) {
    const QCPRange shown = axis.range();
    return IsLogarithmic(axis) ? std::sqrt(shown.lower * shown.upper) : shown.center();
}

QString Joined(const std::vector<std::string>& lines, const char* between) {
    QStringList texts;
    for (const std::string& line : lines) texts << ToQt(line);
    return texts.join(between);
}

}  // namespace

ChartWidget::ChartWidget(Chart& chart, Binder& binder) : chart_(chart) {
    setObjectName(ToQt(chart.Name()));
    setAccessibleName(chart.Title[0].Text.empty() ? "Chart" : ToQt(chart.Title[0].Text));
    // A click would take the focus from a box, whose leaving marks the graph as out of date.
    setFocusPolicy(Qt::TabFocus);
    setMinimumSize(360, 270);
    setInteractions(QCP::iRangeDrag | QCP::iRangeZoom);
    axisRect()->setRangeZoomFactor(0.8);

    MakeReadout();
    FollowAxis(*xAxis, *xAxis2, 0);
    FollowAxis(*yAxis, *yAxis2, 1);
    KeepLegendFree(*this);
    connect(this, &QCustomPlot::afterReplot, this, [this] {
        readoutPlaced_ = false;
        if (pointer_) ShowReadout(xAxis->pixelToCoord(*pointer_));
    });
    connect(this, &QCustomPlot::mouseMove, this, [this](QMouseEvent* event) {
        pointer_ = event->position().x();
        ShowReadout(xAxis->pixelToCoord(*pointer_));
    });
    connect(this, &QCustomPlot::legendClick, this,
            [this](QCPLegend*, const QCPAbstractLegendItem* entry, const QMouseEvent* event) {
                if (entry != nullptr && event->button() == Qt::LeftButton) SwitchCurveOf(*entry);
            });
    binder.Show(chart, [this] { ShowChart(); });
}

// On a layer of its own it follows the pointer without the curves being drawn again.
void ChartWidget::MakeReadout() {
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
}

// The chart learns what the screen shows; the frame's other side follows.
void ChartWidget::FollowAxis(QCPAxis& axis, QCPAxis& opposite, std::size_t i) {
    connect(&axis, qOverload<const QCPRange&>(&QCPAxis::rangeChanged), this,
            [this, &axis, &opposite, i](const QCPRange& range) {
                if (std::exchange(bounding_, true)) return;
                axis.setRange(IsLogarithmic(axis) ? BoundedOnLogAxis(range, whole_.at(i))
                                                  : Bounded(range, whole_.at(i)));
                opposite.setScaleType(axis.scaleType());
                opposite.setRange(axis.range());
                bounding_ = false;
                ChartRanges view = chart_.View();
                view.at(i) = {axis.range().lower, axis.range().upper};
                chart_.SetView(view);
            });
}

// What is not drawn anew keeps its zoom.
void ChartWidget::ShowChart() {
    if (redraws_ == chart_.Redraws() && look_ == chart_.Look()) {
        ThresholdItem::Show(*this, chart_);
        layer("overlay")->replot();
        if (!readout_->visible()) setAccessibleDescription(ToQt(ChartSummary(chart_)));
        return;
    }
    const bool sameAxes = redraws_ == chart_.Redraws() &&
                          look_.LogDistance == chart_.Look().LogDistance &&
                          look_.Ranges == chart_.Look().Ranges;
    redraws_ = chart_.Redraws();
    look_ = chart_.Look();
    DrawAnew(!sameAxes);
}

void ChartWidget::DrawAnew(bool toScale) {
    if (toScale) chart_.SetView(chart_.Scales());
    whole_ = {WholeAxis(chart_, 0, &ChartSeries::X), WholeAxis(chart_, 1, &ChartSeries::Y)};
    FillPlot(*this, chart_, chart_.View());
    replot(rpQueuedReplot);
    if (readout_->visible())
        ShowReadout(distance_);
    else
        setAccessibleDescription(ToQt(ChartSummary(chart_)));
}

void ChartWidget::ResetScales() {
    const auto [distances, values] = chart_.Scales();
    xAxis->setRange(distances.From, distances.To);
    yAxis->setRange(values.From, values.To);
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

// In the corner where it hides the least of the curves, and stays there until these move.
void ChartWidget::PlaceReadout() {
    const QSize size =
        fontMetrics().boundingRect(QRect(), 0, readout_->text()).size() + QSize(24, 16);
    std::vector<Qt::Alignment> corners = {
        Qt::AlignLeft | Qt::AlignBottom, Qt::AlignLeft | Qt::AlignTop,
        Qt::AlignRight | Qt::AlignBottom, Qt::AlignRight | Qt::AlignTop};
    std::erase_if(corners, [&](Qt::Alignment corner) {
        return QStyle::alignedRect(Qt::LeftToRight, corner, size, axisRect()->rect())
            .intersects(legend->outerRect());
    });
    if (corners.empty()) corners = {Qt::AlignLeft | Qt::AlignBottom};
    const Qt::Alignment corner = FreestCorner(*this, size, corners);
    readout_->setPositionAlignment(corner);
    readout_->position->setCoords(corner & Qt::AlignRight ? 0.99 : 0.01,
                                  corner & Qt::AlignTop ? 0.02 : 0.98);
    readoutPlaced_ = true;
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
    Announcement::Make(accessibleDescription());
    if (xAxis->range().contains(distance_)) return;
    const double middle = MiddleOf(*xAxis);
    xAxis->moveRange(IsLogarithmic(*xAxis) ? distance_ / middle : distance_ - middle);
    replot();
}

void ChartWidget::ZoomAboutReadout(double factor) {
    const QCPRange shown = xAxis->range();
    const bool readoutShown = readout_->visible() && shown.contains(distance_);
    xAxis->scaleRange(factor, readoutShown ? distance_ : MiddleOf(*xAxis));
    yAxis->scaleRange(factor);
    replot();
}

void ChartWidget::Pan(QCPAxis& axis, double share) {
    const QCPRange shown = axis.range();
    axis.moveRange(IsLogarithmic(axis) ? std::pow(shown.upper / shown.lower, share)
                                       : share * shown.size());
    replot();
}

}  // namespace vardel
