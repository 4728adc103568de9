#include "qt/metafile/MetafileEngine.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "qt/metafile/MetafileLines.h"
#include "text/Windows1252.h"

namespace vardel {

namespace {

// Fine enough that no reader shows the rounding.
constexpr int FinestUnitsPerPixel = 20;
constexpr int LargestCoordinate = 32767;
constexpr int PointsPerInch = 72;

// What is not here, such as gradients and patterns, Qt turns into images of their own.
constexpr QPaintEngine::PaintEngineFeatures Features =
    QPaintEngine::PrimitiveTransform | QPaintEngine::PixmapTransform | QPaintEngine::PainterPaths |
    QPaintEngine::AlphaBlend | QPaintEngine::ConstantOpacity | QPaintEngine::Antialiasing |
    QPaintEngine::PaintOutsidePaintEvent;

MetafilePoint Rounded(const QPointF& point) { return {qRound(point.x()), qRound(point.y())}; }

MetafilePoints Rounded(const QPolygonF& polygon) {
    MetafilePoints points;
    for (const QPointF& point : polygon) points.push_back(Rounded(point));
    return points;
}

MetafileRect Rounded(const QRectF& rect) {
    return {qRound(rect.left()), qRound(rect.top()), qRound(rect.right()), qRound(rect.bottom())};
}

bool IsRectangle(const QPolygonF& polygon) {
    const QRectF bounds = polygon.boundingRect();
    const auto corner = [&](const QPointF& p) {
        return (p.x() == bounds.left() || p.x() == bounds.right()) &&
               (p.y() == bounds.top() || p.y() == bounds.bottom());
    };
    return polygon.size() == 5 && polygon.isClosed() &&
           std::all_of(polygon.begin(), polygon.end(), corner) && polygon[0] != polygon[2] &&
           polygon[1] != polygon[3];
}

LineCap CapOf(Qt::PenCapStyle style) {
    if (style == Qt::RoundCap) return LineCap::Round;
    return style == Qt::SquareCap ? LineCap::Square : LineCap::Flat;
}

LineJoin JoinOf(Qt::PenJoinStyle style) {
    if (style == Qt::RoundJoin) return LineJoin::Round;
    return style == Qt::BevelJoin ? LineJoin::Bevel : LineJoin::Miter;
}

std::string Encoded(const QString& text) {
    std::string bytes;
    for (const char32_t c : text.normalized(QString::NormalizationForm_C).toUcs4())
        bytes += vardel::ToWindows1252(c);
    return bytes;
}

MetafileImage ImageRows(const QImage& image) {
    // Drawn on white paper first, as the format has no transparency.
    QImage paper(image.size(), QImage::Format_RGB32);
    paper.fill(Qt::white);
    QPainter(&paper).drawImage(paper.rect(), image);
    MetafileImage rows{paper.width(), paper.height(), {}};
    for (int y = paper.height() - 1; y >= 0; --y) {
        for (int x = 0; x < paper.width(); ++x) {
            const QRgb point = paper.pixel(x, y);
            for (const int part : {qBlue(point), qGreen(point), qRed(point)})
                rows.rows.push_back(static_cast<std::uint8_t>(part));
        }
    }
    return rows;
}

}  // namespace

MetafileEngine::MetafileEngine(QSize pixels, int dpi)
    : QPaintEngine(Features),
      pixels_(pixels),
      dpi_(dpi),
      unitsPerPixel_(UnitsPerPixel(pixels)),
      writer_(pixels.width() * unitsPerPixel_, pixels.height() * unitsPerPixel_,
              dpi * unitsPerPixel_) {}

int MetafileEngine::UnitsPerPixel(QSize pixels) {
    return std::clamp(LargestCoordinate / std::max(pixels.width(), pixels.height()), 1,
                      FinestUnitsPerPixel);
}

bool MetafileEngine::begin(QPaintDevice* /*device*/) {
    setActive(true);
    return true;
}

bool MetafileEngine::end() {
    setActive(false);
    return true;
}

// Only the clip is followed as it changes; all else is asked for when something is drawn.
void MetafileEngine::updateState(const QPaintEngineState& changed) {
    const DirtyFlags dirty = changed.state();
    if (dirty & DirtyClipEnabled) clips_ = changed.isClipEnabled();
    if (!(dirty & (DirtyClipRegion | DirtyClipPath))) return;
    if (changed.clipOperation() != Qt::IntersectClip) clip_.reset();
    clips_ = changed.clipOperation() != Qt::NoClip;
    if (!clips_) return;
    QPainterPath path = changed.clipPath();
    if (dirty & DirtyClipRegion) {
        path.clear();
        path.addRegion(changed.clipRegion());
    }
    Intersect(changed.transform().map(path));
}

void MetafileEngine::Intersect(const QPainterPath& pixels) {
    if (!clip_) clip_ = Clip{QRectF(QPointF(), QSizeF(pixels_)), {}};
    const QPolygonF polygon = pixels.toFillPolygon();
    if (IsRectangle(polygon)) {
        clip_->bounds &= polygon.boundingRect();
        return;
    }
    const QRegion region(polygon.toPolygon(), pixels.fillRule());
    clip_->bounds &= region.boundingRect();
    clip_->holes += QRegion(region.boundingRect()) - region;
}

QRectF MetafileEngine::Visible() {
    const auto inUnits = [&](const QRectF& rect) {
        return QRectF(rect.topLeft() * unitsPerPixel_, rect.size() * unitsPerPixel_);
    };
    if (!clips_ || !clip_) {
        writer_.SetClip(std::nullopt);
        return inUnits(QRectF(QPointF(), QSizeF(pixels_)));
    }
    MetafileClip clip{Rounded(inUnits(clip_->bounds)), {}};
    for (const QRect& hole : clip_->holes) clip.holes.push_back(Rounded(inUnits(hole)));
    if (!clip_->bounds.isEmpty()) writer_.SetClip(clip);
    return inUnits(clip_->bounds);
}

QTransform MetafileEngine::ToUnits() const {
    return state->transform() * QTransform::fromScale(unitsPerPixel_, unitsPerPixel_);
}

// A cosmetic pen keeps its width under every transform; no line is thinner than one would see.
qreal MetafileEngine::PenWidth() const {
    const QPen pen = state->pen();
    if (pen.widthF() == 0) return unitsPerPixel_;
    const qreal scale =
        pen.isCosmetic() ? unitsPerPixel_ : std::sqrt(std::abs(ToUnits().determinant()));
    return std::max(pen.widthF() * scale, 1.0);
}

Color MetafileEngine::OnPaper(const QColor& color) const {
    const qreal alpha = color.alphaF() * state->opacity();
    const auto mix = [&](int part) {
        return static_cast<std::uint8_t>(qRound(255 + (part - 255) * alpha));
    };
    return {mix(color.red()), mix(color.green()), mix(color.blue())};
}

void MetafileEngine::drawPath(const QPainterPath& path) {
    const QList<QPolygonF> polygons = ToUnits().map(path).toSubpathPolygons();
    Fill(polygons, path.fillRule());
    for (const QPolygonF& polygon : polygons) Stroke(polygon);
}

void MetafileEngine::drawPolygon(const QPointF* points, int pointCount, PolygonDrawMode mode) {
    QPolygonF polygon = ToUnits().map(QPolygonF(QList<QPointF>(points, points + pointCount)));
    if (mode != PolylineMode && !polygon.isEmpty()) {
        Fill({polygon}, mode == WindingMode ? Qt::WindingFill : Qt::OddEvenFill);
        polygon.append(polygon.first());
    }
    Stroke(polygon);
}

void MetafileEngine::drawPoints(const QPointF* points, int pointCount) {
    for (int i = 0; i < pointCount; ++i) Stroke(QPolygonF(2, ToUnits().map(points[i])));
}

void MetafileEngine::Fill(const QList<QPolygonF>& units, Qt::FillRule rule) {
    const QBrush brush = state->brush();
    if (brush.style() == Qt::NoBrush || brush.color().alpha() == 0) return;
    const QRectF visible = Visible();
    if (visible.isEmpty()) return;
    std::vector<MetafilePoints> polygons;
    for (const QPolygonF& polygon : units)
        polygons.push_back(Rounded(PolygonWithin(polygon, visible)));
    writer_.FillPolygons(std::move(polygons), OnPaper(brush.color()),
                         rule == Qt::WindingFill ? FillRule::Winding : FillRule::Alternate);
}

void MetafileEngine::Stroke(const QPolygonF& units) {
    const QPen pen = state->pen();
    if (pen.style() == Qt::NoPen || pen.color().alpha() == 0) return;
    QRectF visible = Visible();
    if (visible.isEmpty()) return;
    const qreal width = PenWidth();
    // A wide line shows although its middle lies somewhat outside.
    const qreal rim = std::max(0.0, (width - unitsPerPixel_) / 2);
    visible.adjust(-rim, -rim, rim, rim);
    DashPattern dashes;
    if (pen.style() != Qt::SolidLine) {
        for (const qreal length : pen.dashPattern()) dashes.lengths.append(length * width);
        dashes.offset = pen.dashOffset() * width;
    }
    // On the screen a thin line's dashes have no caps, which would fill its gaps.
    const bool bare = !dashes.lengths.isEmpty() && width <= unitsPerPixel_;
    const MetafilePen metafilePen{OnPaper(pen.color()), qRound(width),
                                  bare ? LineCap::Flat : CapOf(pen.capStyle()),
                                  JoinOf(pen.joinStyle())};
    for (const QPolygonF& line : VisibleLines(units, visible, dashes)) {
        const MetafilePoints points = Rounded(line);
        const bool isDot =
            std::all_of(points.begin(), points.end(), [&](auto p) { return p == points.front(); });
        if (isDot)
            DrawDot(line.first());
        else
            writer_.DrawLine(points, metafilePen);
    }
}

// Readers draw nothing for a line without length.
void MetafileEngine::DrawDot(const QPointF& units) {
    const qreal radius = PenWidth() / 2;
    QPainterPath dot;
    if (state->pen().capStyle() == Qt::RoundCap)
        dot.addEllipse(units, radius, radius);
    else
        dot.addRect(QRectF(units - QPointF(radius, radius), QSizeF(2 * radius, 2 * radius)));
    writer_.FillPolygons({Rounded(dot.toFillPolygon())}, OnPaper(state->pen().color()),
                         FillRule::Winding);
}

MetafileFont MetafileEngine::FontOf(const QTextItem& item) const {
    const QFont font = item.font();
    const QTransform transform = ToUnits();
    const qreal pixels =
        font.pixelSize() > 0 ? font.pixelSize() : font.pointSizeF() * dpi_ / PointsPerInch;
    const qreal em = pixels * std::hypot(transform.m21(), transform.m22());
    const qreal degrees = QLineF(0, 0, transform.m11(), transform.m12()).angle();
    MetafileFont result;
    result.face = Encoded(font.family());
    result.em = std::max(1, qRound(em));
    result.weight = font.weight();
    result.italic = font.italic();
    result.escapement = qRound(degrees * 10) % 3600;
    return result;
}

void MetafileEngine::drawTextItem(const QPointF& baseline, const QTextItem& item) {
    const QRectF visible = Visible();
    const QTransform transform = ToUnits();
    const QRectF box(baseline.x(), baseline.y() - item.ascent(), item.width(),
                     item.ascent() + item.descent());
    if (!transform.mapRect(box).intersects(visible)) return;

    const std::string characters = Encoded(item.text());
    if (characters.empty()) return;
    writer_.DrawText(
        {Rounded(transform.map(box.topLeft())), characters, OnPaper(state->pen().color())},
        FontOf(item));
}

void MetafileEngine::drawPixmap(const QRectF& where, const QPixmap& pixmap, const QRectF& part) {
    drawImage(where, pixmap.toImage(), part, Qt::AutoColor);
}

void MetafileEngine::drawImage(const QRectF& where, const QImage& image, const QRectF& part,
                               Qt::ImageConversionFlags /*flags*/) {
    const QTransform transform = ToUnits();
    const QRectF units = transform.mapRect(where);
    QImage shown = image.copy(part.toAlignedRect());
    if (shown.isNull() || !units.intersects(Visible())) return;
    const bool turned =
        transform.m12() != 0 || transform.m21() != 0 || transform.m11() < 0 || transform.m22() < 0;
    if (turned) {
        const QTransform& t = state->transform();
        shown = shown.scaled(where.size().toSize().expandedTo({1, 1}))
                    .convertToFormat(QImage::Format_ARGB32_Premultiplied)
                    .transformed(QTransform(t.m11(), t.m12(), t.m21(), t.m22(), 0, 0));
    }
    if (!shown.isNull()) writer_.DrawImage(Rounded(units), ImageRows(shown));
}

}  // namespace vardel
