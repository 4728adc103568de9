#pragma once

#include <QImage>
#include <QWidget>

#include "forms/tools/GroundMap.h"
#include "qt/binder/Binder.h"

namespace vardel {

// A ground map on the screen. A click marks the azimuth nearest to it, and so do the arrow keys,
// one after the other.
class GroundMapWidget : public QWidget {
public:
    GroundMapWidget(GroundMap& map, Binder& binder);

    QSize sizeHint() const override { return {560, 600}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void ShowMap();
    void Mark(std::size_t azimuth);
    void MarkToward(const QPointF& at);
    void PointAt(std::optional<PlaceAround> place);
    QRectF MapSquare() const;
    QPointF Middle() const { return MapSquare().center(); }
    double PointsPerKm() const;
    QPointF At(double azimuth, double km) const;
    QString MarkedText() const;

    void PaintPictures(QPainter& painter);
    void PaintRings(QPainter& painter);
    void PaintScale(QPainter& painter);
    void PaintContours(QPainter& painter);
    void PaintHeights(QPainter& painter);
    void PaintMarked(QPainter& painter);
    void PaintLegend(QPainter& painter);
    void PaintAreaLegend(QPainter& painter);

    GroundMap& map_;
    Binder& binder_;
    QImage ground_;
    QImage area_;
    int groundChanges_ = -1;  // of the map, as its pictures show
    int areaChanges_ = -1;
};

}  // namespace vardel
