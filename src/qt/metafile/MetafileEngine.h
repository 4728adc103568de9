#pragma once

#include <QPaintEngine>
#include <QRectF>

#include "qt/metafile/MetafileWriter.h"

namespace vardel {

// Turns a painter's calls into the records of a metafile. Pixels are the device's; all that is
// drawn is transformed into the metafile's units here.
class MetafileEngine : public QPaintEngine {
public:
    MetafileEngine(QSize pixels, int dpi);

    const MetafileWriter& Writer() const { return writer_; }

    bool begin(QPaintDevice* device) override;
    bool end() override;
    void updateState(const QPaintEngineState& changed) override;
    using QPaintEngine::drawPolygon;
    void drawPath(const QPainterPath& path) override;
    void drawPolygon(const QPointF* points, int pointCount, PolygonDrawMode mode) override;
    void drawTextItem(const QPointF& baseline, const QTextItem& item) override;
    // Charts draw no images.
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    Type type() const override { return User; }

private:
    static int UnitsPerPixel(QSize pixels);
    QTransform ToUnits() const;
    qreal PenWidth() const;  // in units
    Color OnPaper(const QColor& color) const;
    // Sets the metafile's clip and returns what of the device shows, in units.
    QRectF Visible();
    void Fill(const QList<QPolygonF>& units, Qt::FillRule rule);
    void Stroke(const QPolygonF& units);
    MetafileFont FontOf(const QTextItem& item) const;

    QSize pixels_;
    int dpi_;
    int unitsPerPixel_;
    MetafileWriter writer_;
    QRectF clip_;  // in pixels
    bool clips_ = false;
};

}  // namespace vardel
