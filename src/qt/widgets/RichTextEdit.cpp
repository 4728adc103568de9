#include "qt/widgets/RichTextEdit.h"

#include <QApplication>
#include <QMimeData>
#include <QPointer>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <array>

#include "qt/services/Convert.h"
#include "qt/services/PictureConvert.h"
#include "qt/widgets/TextPositions.h"
#include "qt/widgets/UnfoldedLayout.h"
#include "richtext/Rtf.h"

namespace vardel {

namespace {

constexpr std::size_t LongText = 1 << 20;               // bytes
constexpr std::chrono::milliseconds FirstStyles(5);     // of what is seen first
constexpr std::chrono::milliseconds StylesAtATime(10);  // between events
constexpr std::string_view LineEnd = "\r\n";
constexpr const char* OwnFormat = "application/x-vardel-log";  // rich text that this editor wrote

QTextCharFormat MakeFormat(TextStyle style) {
    QTextCharFormat format;
    format.setFontWeight(style.bold ? QFont::Bold : QFont::Normal);
    format.setFontItalic(style.italic);
    format.setFontUnderline(style.underline);
    return format;
}

// Kept, because the document finds a format that it knows by a hash, which the format remembers.
const QTextCharFormat& FormatOf(TextStyle style) {
    static const std::array<QTextCharFormat, 8> formats = [] {
        std::array<QTextCharFormat, 8> all;
        for (std::size_t i = 0; i < all.size(); ++i)
            all[i] = MakeFormat({(i & 1) != 0, (i & 2) != 0, (i & 4) != 0});
        return all;
    }();
    return formats[(style.bold ? 1U : 0U) + (style.italic ? 2U : 0U) + (style.underline ? 4U : 0U)];
}

TextStyle StyleOf(const QTextCharFormat& format) {
    return {format.fontWeight() >= QFont::Bold, format.fontItalic(), format.fontUnderline()};
}

void Select(QTextCursor& cursor, const TextPlace& place) {
    cursor.setPosition(place.from);
    cursor.setPosition(place.to, QTextCursor::KeepAnchor);
}

QString WithShortLineEnds(const std::string& text) { return ToQt(text).replace("\r\n", "\n"); }

}  // namespace

RichTextEdit::RichTextEdit(RichTextBox& box, Binder& binder) : box_(box), binder_(binder) {
    setFont(ToQt(box.Font()));
    setTabChangesFocus(false);
    setAccessibleName("Report log");
    setObjectName(ToQt(box.Name()));
    connect(&styling_, &QTimer::timeout, this, [this] { StyleFor(StylesAtATime); });
    binder.Show(box, [this] {
        // Told of every write, of a hidden log too: what stays as it was must cost nothing.
        if (isReadOnly() != box_.Locked()) setReadOnly(box_.Locked());
        setLineWrapMode(box_.RightMargin() > 0 ? NoWrap : WidgetWidth);
        if (editing_ && box_.Revision() != revision_) ReadBox();
    });
}

void RichTextEdit::TakeOver() {
    if (editing_) return;
    ReadBox();
    editing_ = true;
    box_.SetEditor({[this] { return UsersEdit(); }, [this] { undo(); }, [this] { redo(); }});
}

void RichTextEdit::Leave() {
    if (!editing_ || !binder_.IsAlive()) return;
    box_.SetEditor({});
    editing_ = false;
    ShowAfresh({});
}

void RichTextEdit::ReadBox() {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const RichText& content = box_.HeldContent();
    if (!editing_)
        ShowAfresh(content);
    else if (box_.TextWrites() != textWrites_)
        ShowAsEdit(content);
    const auto [start, length] = box_.HeldSelection();
    const TextPosition from = AdvanceToBytes(content.Text(), {}, start);
    QTextCursor caret(document());
    caret.setPosition(from.units);
    caret.setPosition(AdvanceToBytes(content.Text(), from, start + length).units,
                      QTextCursor::KeepAnchor);
    setTextCursor(caret);
    document()->setModified(false);
    revision_ = box_.Revision();
    textWrites_ = box_.TextWrites();
    QApplication::restoreOverrideCursor();
}

// Into a document that nobody shows yet: so it is laid out once, and not at every step.
void RichTextEdit::ShowAfresh(const RichText& content) {
    auto* filled = new QTextDocument(this);
    filled->setDefaultFont(font());
    filled->setDocumentMargin(Margin);
    filled->setUndoRedoEnabled(false);
    pictures_.clear();
    QTextCursor cursor(filled);
    for (const RichText& cleared : box_.Cleared()) InsertAt(cursor, cleared);
    const int start = cursor.position();
    styling_.stop();
    unstyled_ = {};
    // What an undo brings back, and a picture, stand in their place at once.
    if (content.Length() > LongText && content.Pictures().empty() && start == 0) {
        cursor.insertText(ToQt(content.Text()), FormatOf({}));
        unstyled_ = content;
        unstyledStretches_ = content.Stretches().size();
        unstyledUnits_ = cursor.position();
        styling_.start();
    } else {
        InsertAt(cursor, content);
    }
    std::vector<TextPlace> unseen;
    if (unstyled_.Length() == 0) unseen = TakeBackUnseen(*filled, content, start);
    filled->setUndoRedoEnabled(true);
    Select(cursor, {0, start});
    cursor.removeSelectedText();
    WriteUnseenAgain(*filled, content, unseen);
    filled->setDocumentLayout(new UnfoldedLayout(filled));
    const QPointer<QTextDocument> before(document());
    setDocument(filled);
    delete before;  // where the editor has not done so itself
}

// What lies before a write is as it was at its time, since later ones are behind it.
std::vector<TextPlace> RichTextEdit::TakeBackUnseen(QTextDocument& document, const RichText& text,
                                                    int unitsBefore) {
    const auto& writes = box_.Unseen();
    std::vector<TextPlace> places;
    TextPosition at{0, unitsBefore};
    for (const RichTextBox::UnseenWrite& write : writes) {
        at = AdvanceToBytes(text.Text(), at, write.start);
        places.push_back({at.units, AdvanceToBytes(text.Text(), at, write.End()).units});
    }
    QTextCursor cursor(&document);
    for (std::size_t i = writes.size(); i-- > 0;) {
        Select(cursor, places[i]);
        InsertAt(cursor, writes[i].removed);
        places[i] = {places[i].from - unitsBefore, cursor.position() - unitsBefore};
    }
    return places;
}

void RichTextEdit::WriteUnseenAgain(QTextDocument& document, const RichText& text,
                                    const std::vector<TextPlace>& places) {
    QTextCursor cursor(&document);
    for (std::size_t i = 0; i < places.size(); ++i) {
        const RichTextBox::UnseenWrite& write = box_.Unseen()[i];
        Select(cursor, places[i]);
        write.beginsStep ? cursor.beginEditBlock() : cursor.joinPreviousEditBlock();
        InsertAt(cursor, text.Part(write.start, write.length));
        cursor.endEditBlock();
    }
}

// What the program writes while the user has the text, such as a cleared log, can be undone like
// the user's own edits.
void RichTextEdit::ShowAsEdit(const RichText& content) {
    StyleRest();
    QTextCursor cursor(document());
    cursor.select(QTextCursor::Document);
    InsertAt(cursor, content);
}

// An undo must not take styles away.
void RichTextEdit::StyleFor(std::chrono::milliseconds time) {
    const auto end = std::chrono::steady_clock::now() + time;
    document()->setUndoRedoEnabled(false);
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    const std::string_view text = unstyled_.Text();
    while (unstyledStretches_ > 0) {
        --unstyledStretches_;
        const auto& [begin, style] = unstyled_.Stretches()[unstyledStretches_];
        const std::size_t stretchEnd = unstyled_.StretchEnd(unstyledStretches_);
        const int units = AdvanceToBytes(text, {begin, 0}, stretchEnd).units;
        unstyledUnits_ -= units;
        if (style == TextStyle{}) continue;
        const bool line = text.substr(begin, stretchEnd - begin).ends_with(LineEnd);
        cursor.setPosition(unstyledUnits_);
        cursor.setPosition(unstyledUnits_ + units - (line ? 1 : 0), QTextCursor::KeepAnchor);
        cursor.setCharFormat(FormatOf(style));
        if (std::chrono::steady_clock::now() > end) break;
    }
    cursor.endEditBlock();
    const bool done = unstyledStretches_ == 0;
    const QTextCursor caret = textCursor();
    const TextPlace selected{caret.anchor(), caret.position()};
    const std::vector<TextPlace> unseen =
        done ? TakeBackUnseen(*document(), unstyled_, 0) : std::vector<TextPlace>();
    document()->setUndoRedoEnabled(true);
    WriteUnseenAgain(*document(), unstyled_, unseen);
    if (!unseen.empty()) {
        Select(cursor, selected);
        setTextCursor(cursor);
    }
    document()->setModified(false);
    if (!done) return;
    styling_.stop();
    unstyled_ = {};
}

void RichTextEdit::StyleRest() {
    if (unstyled_.Length() > 0) StyleFor(std::chrono::hours(1));
}

// Whatever may edit the text, or copy of it.
bool RichTextEdit::event(QEvent* event) {
    switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::InputMethod:
        case QEvent::ContextMenu:
            StyleRest();
            break;
        default:
            break;
    }
    return QTextEdit::event(event);
}

bool RichTextEdit::viewportEvent(QEvent* event) {
    switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::ContextMenu:
        case QEvent::DragEnter:
            StyleRest();
            break;
        case QEvent::Paint:
            if (unstyled_.Length() == 0) break;
            StyleFor(FirstStyles);
            if (cursorForPosition({}).position() < unstyledUnits_) StyleRest();
            break;
        default:
            break;
    }
    return QTextEdit::viewportEvent(event);
}

// In order, which is the fastest way to fill a document. A stretch's last line end stays plain, so
// that what is typed below a header is.
void RichTextEdit::InsertAt(QTextCursor& cursor, const RichText& content) {
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    const std::string_view text = content.Text();
    auto picture = content.Pictures().begin();
    for (std::size_t i = 0; i < content.Stretches().size(); ++i) {
        auto [begin, style] = content.Stretches()[i];
        const QTextCharFormat& format = FormatOf(style);
        const std::size_t end = content.StretchEnd(i);
        for (; picture != content.Pictures().end() && picture->position < end; ++picture) {
            cursor.insertText(ToQt(text.substr(begin, picture->position - begin)), format);
            InsertPicture(cursor, picture->picture, format);
            begin = picture->position + RichText::PictureMark.size();
        }
        const bool styledLine =
            style != TextStyle{} && text.substr(begin, end - begin).ends_with(LineEnd);
        const std::size_t length = end - begin - (styledLine ? LineEnd.size() : 0);
        cursor.insertText(ToQt(text.substr(begin, length)), format);
        if (styledLine) cursor.insertText("\n", FormatOf({}));
    }
    cursor.endEditBlock();
}

void RichTextEdit::InsertPicture(QTextCursor& cursor, const std::shared_ptr<const Picture>& picture,
                                 const QTextCharFormat& style) {
    QTextImageFormat format;
    const QString name = QString("picture:%1").arg(pictures_.size());
    cursor.document()->addResource(QTextDocument::ImageResource, name, ImageOf(*picture));
    pictures_[name] = picture;
    format.setName(name);
    const QSize size = ScreenSizeOf(*picture);
    if (!size.isEmpty()) {
        format.setWidth(size.width());
        format.setHeight(size.height());
    }
    format.merge(style);
    cursor.insertImage(format);
}

RichTextBox::Edit RichTextEdit::UsersEdit() {
    RichTextBox::Edit edit;
    if (document()->isModified()) {
        edit.content = ContentOf(*document());
        document()->setModified(false);
    }
    const std::string& text = (edit.content ? *edit.content : box_.HeldContent()).Text();
    const TextPosition from = AdvanceToUnits(text, {}, textCursor().selectionStart());
    const TextPosition to = AdvanceToUnits(text, from, textCursor().selectionEnd());
    edit.selection = {from.bytes, to.bytes - from.bytes};
    return edit;
}

RichText RichTextEdit::ContentOf(const QTextDocument& document) const {
    RichText content;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        // A line's end, which has no looks of its own, goes on in the style of its line.
        if (block != document.begin())
            content.Replace(
                content.Length(), 0, LineEnd,
                content.Stretches().empty() ? TextStyle{} : content.Stretches().back().style);
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            const TextStyle style = StyleOf(fragment.charFormat());
            // Text typed behind a picture inherits its name, but is no picture.
            const bool isPicture = fragment.charFormat().isImageFormat();
            const auto picture = pictures_.find(
                isPicture ? fragment.charFormat().toImageFormat().name() : QString());
            if (picture == pictures_.end()) {
                QString text = fragment.text();
                text.replace(QChar::LineSeparator, '\n');
                content.Replace(content.Length(), 0, FromQt(text), style);
                continue;
            }
            for (qsizetype i = 0; i < fragment.text().size(); ++i)
                content.ReplaceByPicture(content.Length(), 0, *picture->second, style);
        }
    }
    return content;
}

bool RichTextEdit::canInsertFromMimeData(const QMimeData* source) const {
    return source->hasImage() || source->hasText();
}

// What is copied or cut keeps its styles and pictures, here and in word processors.
QMimeData* RichTextEdit::createMimeDataFromSelection() const {
    QTextDocument selected;
    QTextCursor(&selected).insertFragment(textCursor().selection());
    const RichText content = ContentOf(selected);
    const QByteArray rtf = QByteArray::fromStdString(WriteRtf(content));
    auto copied = std::make_unique<QMimeData>();
    copied->setText(WithShortLineEnds(content.PlainText()));
    copied->setData(OwnFormat, rtf);
    copied->setData("text/rtf", rtf);
    return copied.release();
}

// Foreign fonts and colours stay outside: the columns live by the fixed pitch.
void RichTextEdit::insertFromMimeData(const QMimeData* source) {
    QTextCursor caret = textCursor();
    if (const auto own = ReadRtf(source->data(OwnFormat).toStdString()))
        return InsertAt(caret, *own);
    if (source->hasText()) return caret.insertText(source->text());
    RichText picture;
    picture.ReplaceByPicture(0, 0, PictureOf(qvariant_cast<QImage>(source->imageData())), {});
    InsertAt(caret, picture);
}

}  // namespace vardel
