#include <algorithm>
#include <utility>

#include "forms/graphs/GraphExport.h"
#include "qt/chart/ChartPlot.h"
#include "qt/chart/ChartWidget.h"
#include "qt/chart/ThresholdItem.h"
#include "qt/look/Announcement.h"
#include "qt/services/Convert.h"

// What a chart's user does with keys and mouse.

namespace vardel {

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
        case Qt::Key_1:
        case Qt::Key_2:
        case Qt::Key_3:
        case Qt::Key_4:
        case Qt::Key_5:
        case Qt::Key_6:
        case Qt::Key_7:
        case Qt::Key_8:
        case Qt::Key_9:
            return SwitchCurve(event->key() - Qt::Key_1);
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
    const auto& threshold = chart_.Threshold();
    if (!threshold) return;
    QString told = ToQt(threshold->Text);
    for (const std::string& reach : threshold->Reaches) told += ", " + ToQt(reach);
    Announcement::Make(told);
}

void ChartWidget::SwitchCurve(int number) {
    for (const ChartSeries& series : chart_.AllSeries())
        if (series.Visible && !series.Continued && number-- == 0)
            return chart_.SwitchCurve(std::string(series.Curve));
}

// The legend has an entry for each stretch.
void ChartWidget::SwitchCurveOf(const QCPAbstractLegendItem& entry) {
    int number = -1;
    int i = 0;
    for (const ChartSeries& series : chart_.AllSeries()) {
        if (!series.Visible) continue;
        number += series.Continued ? 0 : 1;
        if (legend->item(i++) == &entry) return SwitchCurve(number);
    }
}

void ChartWidget::mousePressEvent(QMouseEvent* event) {
    const bool left = event->button() == Qt::LeftButton;
    const bool box = left && event->modifiers() & Qt::ControlModifier;
    dragsThreshold_ = left && !box && IsOnThreshold(event->position());
    if (dragsThreshold_) return HideReadout();
    setSelectionRectMode(box ? QCP::srmZoom : QCP::srmNone);
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
    if (std::exchange(dragsThreshold_, false)) return;
    constexpr int SmallestSide = 5;  // of a box that was drawn on purpose, in points of the screen
    const QSize box = selectionRect()->rect().normalized().size();
    if (selectionRect()->isActive() && std::min(box.width(), box.height()) < SmallestSide)
        selectionRect()->cancel();
    QCustomPlot::mouseReleaseEvent(event);
    setSelectionRectMode(QCP::srmNone);
}

void ChartWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    const bool onLegend = legend->visible() && legend->outerRect().contains(event->pos());
    if (onLegend) return mousePressEvent(event);  // the second click on an entry
    QCustomPlot::mouseDoubleClickEvent(event);
    ResetScales();
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
    const bool asZoomed = chart_.FileFrame.AsZoomed;
    menu->addAction("Copy Picture", this, [this, asZoomed] {
        QApplication::clipboard()->setImage(DrawChart(chart_, 1, {.AsZoomed = asZoomed}));
    });
    menu->addSeparator();
    const auto addSave = [&](const QString& caption, auto save) {
        menu->addAction(caption, this, [this, save] {
            chart_.Owner().Run([this, save] { save(chart_.Owner(), chart_); });
        });
    };
    const auto addPicture = [&](const QString& caption, ChartFileKind kind) {
        addSave(caption, [kind](Form& form, Chart& chart) { SavePicture(form, chart, kind); });
    };
    addPicture("Save Picture as PNG ...", ChartFileKind::Png);
    addPicture("Save Picture as SVG ...", ChartFileKind::Svg);
    addPicture("Save Picture as PDF ...", ChartFileKind::Pdf);
    addSave("Save Table as CSV ...", SaveTable);
    addSave("Save Points as CSV ...", SavePoints);
    menu->addSeparator();
    menu->addAction("Whole Graph", this, [this] { ResetScales(); });
    menu->popup(event->globalPos());
}

}  // namespace vardel
