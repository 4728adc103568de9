#include <QKeyEvent>
#include <QMouseEvent>
#include <QtMath>
#include <cmath>

#include "qt/map/GroundMapWidget.h"

// What a map's user does with keys and mouse.

namespace vardel {

void GroundMapWidget::Mark(std::size_t azimuth) {
    if (!binder_.IsAlive() || map_.Marked() == azimuth) return;
    map_.SetMarked(azimuth);
    map_.Pick.Raise();
}

void GroundMapWidget::MarkToward(const QPointF& at) {
    if (!map_.Table()) return;
    const QPointF from = at - Middle();
    if (from.isNull()) return;
    const auto count = map_.Table()->heights.radials.size();
    const double turns = std::atan2(from.x(), -from.y()) / (2.0 * M_PI);
    const auto nearest =
        std::llround((turns < 0.0 ? turns + 1.0 : turns) * static_cast<double>(count));
    Mark(static_cast<std::size_t>(nearest) % count);
}

void GroundMapWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && MapSquare().contains(event->position()))
        MarkToward(event->position());
}

void GroundMapWidget::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() & Qt::LeftButton) MarkToward(event->position());
    const QPointF from = event->position() - Middle();
    const double km = std::hypot(from.x(), from.y()) / PointsPerKm();
    if (!MapSquare().contains(event->position()) || km == 0.0) return PointAt(std::nullopt);
    const double azimuth = qRadiansToDegrees(std::atan2(from.x(), -from.y()));
    PointAt(PlaceAround{km, azimuth < 0.0 ? azimuth + 360.0 : azimuth});
}

void GroundMapWidget::leaveEvent(QEvent*) { PointAt(std::nullopt); }

void GroundMapWidget::PointAt(std::optional<PlaceAround> place) {
    if (!binder_.IsAlive() || map_.Pointed() == place) return;
    map_.SetPointed(place);
    map_.Point.Raise();
}

void GroundMapWidget::keyPressEvent(QKeyEvent* event) {
    const bool back = event->key() == Qt::Key_Left || event->key() == Qt::Key_Up;
    const bool on = event->key() == Qt::Key_Right || event->key() == Qt::Key_Down;
    if (!map_.Table() || !map_.Marked() || (!back && !on)) return QWidget::keyPressEvent(event);
    const auto count = map_.Table()->heights.radials.size();
    Mark((*map_.Marked() + (on ? 1 : count - 1)) % count);
}

}  // namespace vardel
