#pragma once

#include <QList>
#include <QPolygonF>
#include <QRectF>

namespace vardel {

// Lengths in the unit of the points.
struct DashPattern {
    QList<qreal> lengths;  // dash, gap, dash, ...; an even number, or none for a solid line
    qreal offset = 0;      // into the pattern at the line's start
};

// The parts of the line within the bounds that the pattern draws, each bending where the line does.
// Points that are NaN interrupt the line.
QList<QPolygonF> VisibleLines(const QPolygonF& line, const QRectF& bounds,
                              const DashPattern& dashes = {});

// The part of the polygon within the bounds; empty where there is none.
QPolygonF PolygonWithin(const QPolygonF& polygon, const QRectF& bounds);

}  // namespace vardel
