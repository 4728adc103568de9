#include "qt/metafile/MetafileEngine.h"

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

// No gradients, patterns or images: charts have none.
constexpr QPaintEngine::PaintEngineFeatures Features =
    QPaintEngine::PrimitiveTransform | QPaintEngine::PainterPaths | QPaintEngine::AlphaBlend |
    QPaintEngine::ConstantOpacity | QPaintEngine::Antialiasing |
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

// Only the clip is followed as it changes, always a rectangle in a chart; all else is asked for
// when something is drawn.
void MetafileEngine::updateState(const QPaintEngineState& changed) {
    const DirtyFlags dirty = changed.state();
    if (dirty & DirtyClipEnabled) clips_ = changed.isClipEnabled();
    if (!(dirty & (DirtyClipRegion | DirtyClipPath))) return;
    clips_ = changed.clipOperation() != Qt::NoClip;
    if (!clips_) return;
    const QRectF bounds = changed.transform().mapRect(
        dirty & DirtyClipRegion ? QRectF(changed.clipRegion().boundingRect())
                                : changed.clipPath().boundingRect());
    const bool narrows = changed.clipOperation() == Qt::IntersectClip;
    clip_ = bounds & (narrows ? clip_ : QRectF(QPointF(), QSizeF(pixels_)));
}

QRectF MetafileEngine::Visible() {
    const QRectF pixels = clips_ ? clip_ : QRectF(QPointF(), QSizeF(pixels_));
    const QRectF units(pixels.topLeft() * unitsPerPixel_, pixels.size() * unitsPerPixel_);
    if (!units.isEmpty()) writer_.SetClip(clips_ ? std::optional(Rounded(units)) : std::nullopt);
    return units;
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

// Of shapes Qt makes paths.
void MetafileEngine::drawPolygon(const QPointF* points, int pointCount, PolygonDrawMode) {
    Stroke(ToUnits().map(QPolygonF(QList<QPointF>(points, points + pointCount))));
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
    for (const QPolygonF& line : VisibleLines(units, visible, dashes))
        writer_.DrawLine(Rounded(line), metafilePen);
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

}  // namespace vardel
