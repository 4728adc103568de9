#include "qt/widgets/UnfoldedLayout.h"

#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>
#include <cmath>

namespace vardel {

namespace {

constexpr int Endless = 1 << 24;  // points, wider than any line

QImage ImageIn(const QTextDocument& document, const QTextFormat& format) {
    const QString name = format.toImageFormat().name();
    return qvariant_cast<QImage>(document.resource(QTextDocument::ImageResource, name));
}

bool IsPlain(QChar c) { return c >= u' ' && c < u'\u0300'; }

QSizeF SizeOf(const QTextLayout& layout) {
    QSizeF size;
    for (int i = 0; i < layout.lineCount(); ++i) {
        const QTextLine line = layout.lineAt(i);
        size.setWidth(std::max(size.width(), line.naturalTextWidth()));
        size.rheight() += line.height();
    }
    return size;
}

}  // namespace

UnfoldedLayout::UnfoldedLayout(QTextDocument* document) : QAbstractTextDocumentLayout(document) {}

// A resized editor says that all is new, but no line is folded at its edge.
void UnfoldedLayout::documentChanged(int from, int charsRemoved, int charsAdded) {
    if (charsRemoved == 0 && document()->revision() == revision_ &&
        document()->defaultFont() == font_)
        return;
    revision_ = document()->revision();
    font_ = document()->defaultFont();
    const QFontMetricsF metrics(font_);
    lineHeight_ = std::ceil(metrics.lineSpacing());
    ascent_ = metrics.ascent();
    digitWidth_ = metrics.horizontalAdvance('0');
    const QTextBlock first = document()->findBlock(from);
    QTextBlock last = document()->findBlock(from + charsAdded);
    if (!last.isValid()) last = document()->lastBlock();
    if (first == document()->begin() && last == document()->lastBlock()) {
        MeasureAll();
    } else {
        // Of what is removed, the longest line may have been a part.
        if (charsRemoved > 0) columns_ = LongestBlock();
        for (QTextBlock block = first; block.isValid(); block = block.next()) {
            Measure(block);
            if (block == last) break;
        }
    }
    emit documentSizeChanged(documentSize());
    emit update();
}

int UnfoldedLayout::LongestBlock() const {
    int longest = 0;
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next())
        longest = std::max(longest, block.length());
    return longest;
}

// The text in one piece is searched much faster than block by block.
void UnfoldedLayout::MeasureAll() {
    columns_ = 0;
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        block.clearLayout();
        if (block.lineCount() != 1) block.setLineCount(1);
        columns_ = std::max(columns_, block.length());
    }
    const QString text = document()->toRawText();
    for (int i = 0; i < text.size(); ++i) {
        if (IsPlain(text[i]) || text[i] == QChar::ParagraphSeparator) continue;
        const QTextBlock block = document()->findBlock(i);
        Measure(block);
        i = block.position() + block.length() - 1;
    }
}

// A line of plain text is as long as its characters are many; only others have to be shaped for it.
void UnfoldedLayout::Measure(QTextBlock block) {
    block.clearLayout();
    int lines = 1;
    int columns = block.length();
    const QString text = block.text();
    if (!std::all_of(text.begin(), text.end(), IsPlain)) {
        Shape(block);
        const QSizeF shaped = SizeOf(*block.layout());
        columns = std::max(columns, static_cast<int>(std::ceil(shaped.width() / digitWidth_)));
        if (block.layout()->lineCount() > 1 || text.contains(QChar::ObjectReplacementCharacter))
            lines = static_cast<int>(std::ceil(shaped.height() / lineHeight_));
    }
    columns_ = std::max(columns_, columns);
    if (block.lineCount() != lines) block.setLineCount(lines);
}

// Baselines of single lines stay in their rows, whatever other font lends a character.
void UnfoldedLayout::Shape(const QTextBlock& block) const {
    QTextLayout& layout = *block.layout();
    if (layout.lineCount() > 0) return;
    layout.setTextOption(document()->defaultTextOption());
    layout.beginLayout();
    double y = 0.0;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLeadingIncluded(true);
        line.setLineWidth(Endless);
        line.setPosition({0.0, y});
        y += line.height();
    }
    layout.endLayout();
    if (layout.lineCount() > 1 || block.text().contains(QChar::ObjectReplacementCharacter)) return;
    QTextLine line = layout.lineAt(0);
    line.setPosition({0.0, std::round(ascent_ - line.ascent())});
}

QSizeF UnfoldedLayout::documentSize() const {
    const QTextBlock last = document()->lastBlock();
    const double margins = 2.0 * document()->documentMargin();
    return {columns_ * digitWidth_ + margins,
            (last.firstLineNumber() + last.lineCount()) * lineHeight_ + margins};
}

QRectF UnfoldedLayout::frameBoundingRect(QTextFrame* /*frame*/) const {
    return {QPointF(), documentSize()};
}

QRectF UnfoldedLayout::blockBoundingRect(const QTextBlock& block) const {
    if (!block.isValid()) return {};
    Shape(block);
    const double margin = document()->documentMargin();
    return {margin, margin + block.firstLineNumber() * lineHeight_,
            documentSize().width() - 2.0 * margin, block.lineCount() * lineHeight_};
}

QTextBlock UnfoldedLayout::BlockAt(double y) const {
    const double row = std::floor((y - document()->documentMargin()) / lineHeight_);
    if (row <= 0.0) return document()->begin();
    const QTextBlock last = document()->lastBlock();
    if (row >= last.firstLineNumber()) return last;
    return document()->findBlockByLineNumber(static_cast<int>(row));
}

int UnfoldedLayout::hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const {
    const QTextBlock block = BlockAt(point.y());
    const QPointF inBlock = point - blockBoundingRect(block).topLeft();
    const QTextLayout& layout = *block.layout();
    int index = 0;
    while (index + 1 < layout.lineCount() && layout.lineAt(index + 1).y() <= inBlock.y()) ++index;
    const QTextLine line = layout.lineAt(index);
    if (accuracy == Qt::ExactHit && !line.naturalTextRect().contains(inBlock)) return -1;
    return block.position() + line.xToCursor(inBlock.x(), accuracy == Qt::ExactHit
                                                              ? QTextLine::CursorOnCharacter
                                                              : QTextLine::CursorBetweenCharacters);
}

void UnfoldedLayout::draw(QPainter* painter, const PaintContext& context) {
    painter->setPen(context.palette.color(QPalette::Text));
    const QRectF clip = context.clip.isValid() ? context.clip : frameBoundingRect(nullptr);
    for (QTextBlock block = BlockAt(clip.top()); block.isValid(); block = block.next()) {
        const QRectF place = blockBoundingRect(block);
        if (place.top() > clip.bottom()) return;
        block.layout()->setPosition(place.topLeft());
        DrawBlock(*painter, context, block);
    }
}

void UnfoldedLayout::DrawBlock(QPainter& painter, const PaintContext& context,
                               const QTextBlock& block) const {
    QList<QTextLayout::FormatRange> selected;
    for (const Selection& selection : context.selections) {
        const int start = selection.cursor.selectionStart() - block.position();
        const int end = selection.cursor.selectionEnd() - block.position();
        if (start < block.length() && end > 0 && end > start)
            selected.append({start, end - start, selection.format});
    }
    const QTextLayout& layout = *block.layout();
    layout.draw(&painter, {}, selected, context.clip);
    // Below -1 it counts the characters of an input method's text.
    const int caret = context.cursorPosition < -1
                          ? layout.preeditAreaPosition() - (context.cursorPosition + 2)
                          : context.cursorPosition - block.position();
    const bool here = context.cursorPosition < -1 ? !layout.preeditAreaText().isEmpty()
                                                  : block.contains(context.cursorPosition);
    if (here) layout.drawCursor(&painter, {}, caret, std::max(1, property("cursorWidth").toInt()));
}

void UnfoldedLayout::resizeInlineObject(QTextInlineObject item, int /*position*/,
                                        const QTextFormat& format) {
    const QTextImageFormat image = format.toImageFormat();
    const QSizeF size = image.hasProperty(QTextFormat::ImageWidth)
                            ? QSizeF(image.width(), image.height())
                            : QSizeF(ImageIn(*document(), format).size());
    item.setWidth(size.width());
    item.setAscent(size.height());
    item.setDescent(0.0);
}

void UnfoldedLayout::drawInlineObject(QPainter* painter, const QRectF& place,
                                      QTextInlineObject /*item*/, int /*position*/,
                                      const QTextFormat& format) {
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->drawImage(place, ImageIn(*document(), format));
}

}  // namespace vardel
