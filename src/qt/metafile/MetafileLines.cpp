#include "qt/metafile/MetafileLines.h"

#include <QLineF>
#include <QtNumeric>
#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>
#include <optional>

namespace vardel {

namespace {

// Ends closer than this are the same point.
constexpr qreal SamePoint = 1e-3;

struct Part {
    qreal from = 0;  // as a share of the line
    qreal to = 1;
};

std::optional<Part> PartWithin(const QLineF& line, const QRectF& bounds) {
    Part part;
    const auto cut = [&](qreal step, qreal room) {
        if (step == 0) return room >= 0;
        const qreal at = room / step;
        if (step < 0)
            part.from = std::max(part.from, at);
        else
            part.to = std::min(part.to, at);
        return part.from <= part.to;
    };
    if (cut(-line.dx(), line.x1() - bounds.left()) && cut(line.dx(), bounds.right() - line.x1()) &&
        cut(-line.dy(), line.y1() - bounds.top()) && cut(line.dy(), bounds.bottom() - line.y1()))
        return part;
    return std::nullopt;
}

// Joins stretches that touch into lines.
class LineCollector {
public:
    void Add(const QPointF& from, const QPointF& to) {
        if (lines_.isEmpty() || (lines_.last().last() - from).manhattanLength() > SamePoint)
            lines_.append(QPolygonF{from});
        lines_.last().append(to);
    }
    QList<QPolygonF> Lines() const { return lines_; }

private:
    QList<QPolygonF> lines_;
};

class DashWalker {
public:
    explicit DashWalker(const DashPattern& dashes)
        : lengths_(dashes.lengths),
          offset_(dashes.offset),
          period_(std::accumulate(lengths_.begin(), lengths_.end(), 0.0)) {}

    // Hands out the drawn stretches between two distances from the start of the whole line.
    void Walk(qreal from, qreal to, const std::function<void(qreal, qreal)>& draw) const {
        if (!(period_ > SamePoint)) {
            draw(from, to);
            return;
        }
        qreal left = std::fmod(offset_ + from, period_);
        if (left < 0) left += period_;
        qsizetype index = 0;
        while (index + 1 < lengths_.size() && left >= lengths_[index]) left -= lengths_[index++];
        for (qreal at = from - left; at < to; index = (index + 1) % lengths_.size()) {
            const qreal end = at + lengths_[index];
            if (index % 2 == 0 && end >= from) draw(std::max(at, from), std::min(end, to));
            at = end;
        }
    }

private:
    QList<qreal> lengths_;
    qreal offset_;
    qreal period_;
};

// Cuts the polygon at one line; the sign of inside is the side on which a point lies.
template <typename Distance>
QPolygonF PolygonBeside(const QPolygonF& polygon, const Distance& inside) {
    QPolygonF kept;
    for (qsizetype i = 0; i < polygon.size(); ++i) {
        const QPointF& from = polygon[i];
        const QPointF& to = polygon[(i + 1) % polygon.size()];
        const qreal a = inside(from);
        const qreal b = inside(to);
        if (a >= 0) kept.append(from);
        if ((a < 0) != (b < 0)) kept.append(from + (to - from) * (a / (a - b)));
    }
    return kept;
}

}  // namespace

QList<QPolygonF> VisibleLines(const QPolygonF& line, const QRectF& bounds,
                              const DashPattern& dashes) {
    const DashWalker walker(dashes);
    LineCollector collector;
    qreal walked = 0;
    for (qsizetype i = 1; i < line.size(); ++i) {
        const QLineF stretch(line[i - 1], line[i]);
        const qreal length = stretch.length();
        if (!qIsFinite(length)) continue;
        if (const auto part = PartWithin(stretch, bounds)) {
            const auto point = [&](qreal distance) {
                return length > 0 ? stretch.pointAt((distance - walked) / length) : stretch.p1();
            };
            walker.Walk(walked + part->from * length, walked + part->to * length,
                        [&](qreal from, qreal to) { collector.Add(point(from), point(to)); });
        }
        walked += length;
    }
    return collector.Lines();
}

QPolygonF PolygonWithin(const QPolygonF& polygon, const QRectF& bounds) {
    QPolygonF kept = polygon;
    kept.removeIf([](const QPointF& p) { return !qIsFinite(p.x()) || !qIsFinite(p.y()); });
    kept = PolygonBeside(kept, [&](const QPointF& p) { return p.x() - bounds.left(); });
    kept = PolygonBeside(kept, [&](const QPointF& p) { return bounds.right() - p.x(); });
    kept = PolygonBeside(kept, [&](const QPointF& p) { return p.y() - bounds.top(); });
    return PolygonBeside(kept, [&](const QPointF& p) { return bounds.bottom() - p.y(); });
}

}  // namespace vardel
