#pragma once

#include <QAbstractTextDocumentLayout>
#include <QFont>
#include <QTextBlock>

namespace vardel {

// Lays out a long text of one font whose lines are never folded. A line is shaped when it comes
// into view, and its place is known without that: so a text shows and takes an edit at once,
// however long it is. Lines are of one height; pictures take up as many as they need.
class UnfoldedLayout : public QAbstractTextDocumentLayout {
public:
    explicit UnfoldedLayout(QTextDocument* document);

    void draw(QPainter* painter, const PaintContext& context) override;
    // At the nearest line, where the point lies beside all lines.
    int hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const override;
    int pageCount() const override { return 1; }
    QSizeF documentSize() const override;
    QRectF frameBoundingRect(QTextFrame* frame) const override;
    QRectF blockBoundingRect(const QTextBlock& block) const override;

protected:
    void documentChanged(int from, int charsRemoved, int charsAdded) override;
    void resizeInlineObject(QTextInlineObject item, int position,
                            const QTextFormat& format) override;
    void drawInlineObject(QPainter* painter, const QRectF& place, QTextInlineObject item,
                          int position, const QTextFormat& format) override;

private:
    void MeasureAll();
    void Measure(QTextBlock block);
    int LongestBlock() const;
    // Its lines shaped and placed, if they are not yet.
    void Shape(const QTextBlock& block) const;
    QTextBlock BlockAt(double y) const;
    void DrawBlock(QPainter& painter, const PaintContext& context, const QTextBlock& block) const;

    int revision_ = -1;  // of the text that was measured, and its font
    QFont font_;
    double lineHeight_ = 1.0;
    double ascent_ = 0.0;
    double digitWidth_ = 1.0;
    int columns_ = 0;  // of the longest line
};

}  // namespace vardel
