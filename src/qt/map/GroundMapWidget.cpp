#include "qt/map/GroundMapWidget.h"

#include <QPainter>
#include <QPainterPath>
#include <QtMath>
#include <algorithm>
#include <cmath>

#include "engine/reach/ReachTable.h"
#include "qt/map/GroundPictures.h"
#include "qt/services/Convert.h"
#include "terrain/ContourText.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

constexpr int LegendLines = 5;
constexpr double AreaOpacity = 0.65;
constexpr QColor HeightColor(90, 60, 20);

// 1, 2 or 5 times a power of ten, so that some four fit.
double RingStep(double radius) {
    const double rough = radius / 4.0;
    const double power = std::pow(10.0, std::floor(std::log10(rough)));
    for (const double factor : {1.0, 2.0, 5.0})
        if (factor * power >= rough) return factor * power;
    return 10.0 * power;
}

QColor ColorOf(ModelNumber number) {
    const auto& color = ModelOf(number).color;
    return {color.red, color.green, color.blue};
}

void DrawHaloed(QPainter& painter, const QPainterPath& path, const QPen& pen) {
    QPen halo(QColor(255, 255, 255, 170), pen.widthF() + 2.5);
    painter.strokePath(path, halo);
    painter.strokePath(path, pen);
}

void DrawHaloed(QPainter& painter, const QPointF& middle, const QString& text) {
    const QFontMetricsF metrics(painter.font());
    QPainterPath path;
    path.addText(middle.x() - metrics.horizontalAdvance(text) / 2.0,
                 middle.y() + metrics.ascent() / 2.0 - 1.0, painter.font(), text);
    painter.strokePath(path, QPen(QColor(255, 255, 255, 210), 3.0));
    painter.fillPath(path, QColor(40, 40, 40));
}

// The greatest effective height in m; 0 where no direction was seen.
double HighestOf(const ContourTable& table) {
    double highest = 0.0;
    for (const RadialHeight& radial : table.heights.radials)
        if (radial.seen > 0.0) highest = std::max(highest, radial.effectiveHeight);
    return highest;
}

}  // namespace

GroundMapWidget::GroundMapWidget(GroundMap& map, Binder& binder) : map_(map), binder_(binder) {
    setObjectName(ToQt(map.Name()));
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(320, 360);
    setMouseTracking(true);
    setAccessibleName("Map of the ground, the contours and the effective heights");
    binder.Show(map, [this] { ShowMap(); });
}

void GroundMapWidget::ShowMap() {
    if (groundChanges_ != map_.GroundChanges()) {
        groundChanges_ = map_.GroundChanges();
        ground_ = PictureOf(map_.Ground());
    }
    if (areaChanges_ != map_.AreaChanges()) {
        areaChanges_ = map_.AreaChanges();
        area_ = PictureOf(map_.Area());
    }
    setAccessibleDescription(MarkedText());
    update();
}

QRectF GroundMapWidget::MapSquare() const {
    const double legend = LegendLines * fontMetrics().height() + 8.0;
    const double side = std::min<double>(width(), height() - legend) - 2.0;
    return {(width() - side) / 2.0, 1.0, side, side};
}

double GroundMapWidget::PointsPerKm() const { return MapSquare().width() / 2.0 / map_.RadiusKm(); }

QPointF GroundMapWidget::At(double azimuth, double km) const {
    const double angle = qDegreesToRadians(azimuth);
    const double points = km * PointsPerKm();
    return Middle() + QPointF(points * std::sin(angle), -points * std::cos(angle));
}

QString GroundMapWidget::MarkedText() const {
    const auto& table = map_.Table();
    if (!table || !map_.Marked()) return {};
    const RadialHeight& radial = table->heights.radials.at(*map_.Marked());
    return ToQt("Azimuth " + AzimuthText(radial.azimuth) + "°");
}

void GroundMapWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    const QRectF square = MapSquare();
    painter.save();
    painter.setClipRect(square);
    PaintPictures(painter);
    PaintRings(painter);
    if (map_.Table()) {
        PaintHeights(painter);
        PaintContours(painter);
        PaintMarked(painter);
    }
    PaintScale(painter);
    PaintAreaLegend(painter);
    painter.restore();
    painter.setPen(palette().color(hasFocus() ? QPalette::Highlight : QPalette::Mid));
    painter.drawRect(square);
    PaintLegend(painter);
}

// The ground, and the area so light that the ground is seen through it.
void GroundMapWidget::PaintPictures(QPainter& painter) {
    const auto draw = [&](const QImage& picture, double radiusKm) {
        const double half = radiusKm * PointsPerKm();
        painter.drawImage(QRectF(Middle() - QPointF(half, half), QSizeF(2.0 * half, 2.0 * half)),
                          picture);
    };
    painter.fillRect(MapSquare(), UnseenGround);
    draw(ground_, map_.Ground().radiusKm);
    painter.setOpacity(AreaOpacity);
    draw(area_, map_.Area().radiusKm);
    painter.setOpacity(1.0);
}

// In the corner that the scale and the directions leave free.
void GroundMapWidget::PaintAreaLegend(QPainter& painter) {
    if (area_.isNull()) return;
    const AreaPicture& area = map_.Area();
    const double line = fontMetrics().height();
    QFont bold = painter.font();
    bold.setBold(true);
    double width = QFontMetricsF(bold).horizontalAdvance(ToQt(area.title));
    for (const auto& step : area.steps)
        width =
            std::max(width, 2.0 * line + QFontMetricsF(bold).horizontalAdvance(ToQt(step.text)));
    const QPointF corner = MapSquare().topLeft() + QPointF(6.0, 6.0);
    painter.fillRect(
        QRectF(corner,
               QSizeF(width + 12.0, line * static_cast<double>(area.steps.size() + 1) + 10.0)),
        QColor(255, 255, 255, 225));
    QPointF at = corner + QPointF(6.0, 4.0);
    painter.setPen(QColor(30, 30, 30));
    const auto write = [&](const QPointF& from, const std::string& text, bool isBold) {
        painter.save();
        if (isBold) painter.setFont(bold);
        painter.drawText(from + QPointF(0.0, fontMetrics().ascent()), ToQt(text));
        painter.restore();
    };
    write(at, area.title, true);
    for (const auto& step : area.steps) {
        at.ry() += line;
        const QRectF box(at + QPointF(0.0, 2.0), QSizeF(1.5 * line, line - 4.0));
        painter.fillRect(box, Qt::white);
        painter.setOpacity(AreaOpacity);
        painter.fillRect(box, QColor(step.color.red, step.color.green, step.color.blue));
        painter.setOpacity(1.0);
        write(at + QPointF(2.0 * line, 0.0), step.text, step.isWanted);
    }
}

void GroundMapWidget::PaintRings(QPainter& painter) {
    const double kmPerUnit = KmPerDistance(map_.ShownUnits());
    const double step = RingStep(map_.RadiusKm() / kmPerUnit);
    for (double ring = step; ring * kmPerUnit <= map_.RadiusKm(); ring += step) {
        const double points = ring * kmPerUnit * PointsPerKm();
        painter.setPen(QPen(QColor(80, 80, 80, 120), 1.0));
        painter.drawEllipse(Middle(), points, points);
    }
    painter.setPen(QPen(QColor(40, 40, 40), 1.5));
    painter.setBrush(Qt::white);
    painter.drawEllipse(Middle(), 3.0, 3.0);
    painter.setBrush(Qt::NoBrush);
}

void GroundMapWidget::PaintScale(QPainter& painter) {
    const double kmPerUnit = KmPerDistance(map_.ShownUnits());
    const double step = RingStep(map_.RadiusKm() / kmPerUnit);
    for (double ring = step; ring * kmPerUnit <= map_.RadiusKm(); ring += step)
        DrawHaloed(painter, At(135.0, ring * kmPerUnit),
                   ToQt(ShortestText(ring) + ' ' + DistanceUnit(map_.ShownUnits())));
    const double edge = MapSquare().width() / 2.0 - fontMetrics().height() * 0.7;
    DrawHaloed(painter, Middle() - QPointF(0.0, edge), "N");
    DrawHaloed(painter, Middle() + QPointF(edge, 0.0), "E");
    DrawHaloed(painter, Middle() + QPointF(0.0, edge), "S");
    DrawHaloed(painter, Middle() - QPointF(edge, 0.0), "W");
}

void GroundMapWidget::PaintContours(QPainter& painter) {
    const ContourTable& table = *map_.Table();
    for (const Contour& contour : table.contours) {
        QPolygonF outline;
        for (std::size_t i = 0; i < contour.reaches.size(); ++i)
            outline << At(table.heights.radials[i].azimuth, contour.reaches[i].km);
        outline << outline.constFirst();
        QPainterPath path;
        path.addPolygon(outline);
        DrawHaloed(painter, path, QPen(ColorOf(contour.model), 2.0));
    }
}

// Drawn so that the highest is at nine tenths of the edge; where nothing was seen there is none.
void GroundMapWidget::PaintHeights(QPainter& painter) {
    const ContourTable& table = *map_.Table();
    const double kmPerMetre = 0.9 * map_.RadiusKm() / std::max(1.0, HighestOf(table));
    QPainterPath path;
    bool begun = false;
    const auto& radials = table.heights.radials;
    for (std::size_t i = 0; i <= radials.size(); ++i) {
        const RadialHeight& radial = radials[i % radials.size()];
        const bool seen = radial.seen > 0.0;
        const QPointF at =
            seen ? At(radial.azimuth, kmPerMetre * radial.effectiveHeight) : QPointF();
        if (seen) begun ? path.lineTo(at) : path.moveTo(at);
        begun = seen;
    }
    DrawHaloed(painter, path, QPen(HeightColor, 1.3, Qt::DashLine));
}

void GroundMapWidget::PaintMarked(QPainter& painter) {
    if (!map_.Marked()) return;
    const ContourTable& table = *map_.Table();
    const double azimuth = table.heights.radials.at(*map_.Marked()).azimuth;
    painter.setPen(QPen(QColor(20, 20, 20), 1.2));
    painter.drawLine(Middle(), At(azimuth, 1.5 * map_.RadiusKm()));
    for (const Contour& contour : table.contours) {
        painter.setBrush(ColorOf(contour.model));
        painter.drawEllipse(At(azimuth, contour.reaches.at(*map_.Marked()).km), 4.0, 4.0);
    }
    painter.setBrush(Qt::NoBrush);
}

void GroundMapWidget::PaintLegend(QPainter& painter) {
    if (!map_.Table() || !map_.Marked()) return;
    const ContourTable& table = *map_.Table();
    const Units units = map_.ShownUnits();
    const RadialHeight& radial = table.heights.radials.at(*map_.Marked());
    const double line = fontMetrics().height();
    QPointF at(MapSquare().left(), MapSquare().bottom() + 6.0);
    const auto write = [&](const QPen& pen, const QString& text) {
        painter.setPen(pen);
        if (pen.style() != Qt::NoPen)
            painter.drawLine(at + QPointF(2, line / 2), at + QPointF(26, line / 2));
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(
            at + QPointF(pen.style() == Qt::NoPen ? 2.0 : 34.0, fontMetrics().ascent()), text);
        at.ry() += line;
    };
    write(Qt::NoPen, MarkedText());
    for (const Contour& contour : table.contours) {
        const Reach& reach = contour.reaches.at(*map_.Marked());
        const std::string remark = ReachRemark(reach);
        write(QPen(ColorOf(contour.model), 2.0),
              ToQt(std::string(ModelOf(contour.model).name) + ": " + ReachText(reach, units) + ' ' +
                   DistanceUnit(units) + (remark.empty() ? "" : ", " + remark)));
    }
    const auto height = [&](double metres) {
        return FormatNumber(metres / MetresPerHeight(units), "0.0") + ' ' + HeightUnit(units);
    };
    write(QPen(HeightColor, 1.3, Qt::DashLine),
          ToQt("Effective height: " +
               (radial.seen > 0.0 ? height(radial.effectiveHeight) : std::string("unknown")) +
               "; highest " + height(HighestOf(table))));
}

}  // namespace vardel
