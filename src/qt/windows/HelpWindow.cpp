#include "qt/windows/HelpWindow.h"

#include <QApplication>
#include <QDesktopServices>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>
#include <QSet>
#include <QShortcut>
#include <QSplitter>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextTable>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "controls/HelpTopic.h"
#include "forms/help/UserGuide.h"
#include "forms/shared/Palette.h"
#include "qt/services/Convert.h"

namespace vardel {

namespace {

// Rules and room in place of the frames of the markup.
void StyleTables(QTextFrame& frame) {
    for (QTextFrame* child : frame.childFrames()) {
        auto* table = qobject_cast<QTextTable*>(child);
        if (table == nullptr) continue;
        QTextTableFormat format = table->format();
        format.setBorderCollapse(true);
        format.setBorder(1);
        format.setBorderBrush(QColor(200, 210, 210));
        format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        format.setCellSpacing(0);
        format.setCellPadding(5);
        format.setTopMargin(6);
        format.setBottomMargin(12);
        table->setFormat(format);
        for (int column = 0; column < table->columns(); ++column) {
            QTextTableCell head = table->cellAt(0, column);
            QTextCharFormat shaded = head.format();
            shaded.setBackground(QColor(236, 243, 243));
            head.setFormat(shaded);
        }
    }
}

// Long lines of code are folded, so that nothing has to be scrolled sideways.
void FoldCode(QTextDocument& document) {
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (!block.blockFormat().nonBreakableLines()) continue;
        QTextBlockFormat folded = block.blockFormat();
        folded.setNonBreakableLines(false);
        QTextCursor(block).setBlockFormat(folded);
    }
}

// Its pictures lie beside the program. They are no wider than the text, and as fine as the screen.
class GuideText : public QTextBrowser {
protected:
    QVariant loadResource(int type, const QUrl& name) override {
        if (type != QTextDocument::ImageResource) return {};
        names_.insert(name);
        return Picture(name);
    }

    void resizeEvent(QResizeEvent* event) override {
        QTextBrowser::resizeEvent(event);
        if (std::exchange(widest_, Widest()) == widest_) return;
        for (const QUrl& name : names_)
            document()->addResource(QTextDocument::ImageResource, name, Picture(name));
        document()->markContentsDirty(0, document()->characterCount());
    }

private:
    int Widest() const {
        return std::min(660, viewport()->width() - 2 * qCeil(document()->documentMargin()));
    }

    QVariant Picture(const QUrl& name) const {
        QImage picture(QApplication::applicationDirPath() + '/' + name.path());
        if (picture.isNull()) return {};
        const qreal fineness = devicePixelRatioF();
        picture = picture.scaledToWidth(qRound(std::min(widest_, picture.width()) * fineness),
                                        Qt::SmoothTransformation);
        picture.setDevicePixelRatio(fineness);
        return picture;
    }

    QSet<QUrl> names_;
    int widest_ = Widest();
};

}  // namespace

HelpWindow::HelpWindow()
    : search_(new QLineEdit), sections_(new QListWidget), text_(new GuideText) {
    setObjectName("HelpWindow");
    setWindowTitle("Vardel Help");
    setPalette(style()->standardPalette());
    setAttribute(Qt::WA_DeleteOnClose);
    resize(QSize(980, 680).boundedTo(screen()->availableSize()));

    sections_->setAccessibleName("Sections");
    sections_->setSpacing(2);
    for (const GuideSection& section : GuideSections()) sections_->addItem(ToQt(section.heading));
    text_->setAccessibleName("Text");
    text_->document()->setDocumentMargin(16);
    text_->setOpenLinks(false);
    text_->setMarkdown(ToQt(GuideMarkdown()));
    StyleTables(*text_->document()->rootFrame());
    FoldCode(*text_->document());
    text_->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);

    auto* splitter = new QSplitter;
    splitter->addWidget(sections_);
    splitter->addWidget(text_);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({240, 740});
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    search_->setPlaceholderText("Search (Ctrl+F)");
    search_->setAccessibleName("Search");
    search_->setClearButtonEnabled(true);
    column->addWidget(search_);
    column->addWidget(splitter);

    QObject::connect(sections_, &QListWidget::currentRowChanged, this, &HelpWindow::ShowSection);
    // The guide's one neighbour is part of the same text here.
    QObject::connect(text_, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) {
        if (link.isRelative())
            ShowTopic(static_cast<int>(HelpTopic::AllModels));
        else
            QDesktopServices::openUrl(link);
    });
    QObject::connect(search_, &QLineEdit::textChanged, this, [this] { Find(false); });
    QObject::connect(search_, &QLineEdit::returnPressed, this, [this] { Find(true); });
    QObject::connect(new QShortcut(Qt::Key_F3, this), &QShortcut::activated, this,
                     [this] { Find(true); });
    QObject::connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, [this] {
        search_->setFocus();
        search_->selectAll();
    });
    QObject::connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this,
                     &QWidget::close);
}

void HelpWindow::ShowTopic(int topic) {
    const auto sections = GuideSections();
    const auto it = std::find_if(sections.begin(), sections.end(), [topic](const auto& section) {
        return std::find(section.topics.begin(), section.topics.end(), topic) !=
               section.topics.end();
    });
    show();
    raise();
    activateWindow();
    if (it != sections.end()) {
        const auto row = static_cast<int>(it - sections.begin());
        sections_->setCurrentRow(row);
        ShowSection(row);
    } else {
        sections_->setCurrentRow(-1);
        text_->moveCursor(QTextCursor::Start);
        text_->verticalScrollBar()->setValue(0);
    }
    text_->setFocus();
}

void HelpWindow::Find(bool next) {
    const QString sought = search_->text();
    QTextCursor from = text_->textCursor();
    if (!next) from.setPosition(from.selectionStart());
    QTextCursor found = text_->document()->find(sought, from);
    if (found.isNull()) found = text_->document()->find(sought);  // from the top on
    QPalette colors = text_->palette();
    if (found.isNull() && !sought.isEmpty()) colors.setColor(QPalette::Base, ToQt(OutOfRangePink));
    search_->setPalette(colors);
    if (!found.isNull()) text_->setTextCursor(found);
}

void HelpWindow::ShowSection(int row) {
    const QListWidgetItem* item = sections_->item(row);
    if (item == nullptr) return;
    constexpr int SectionLevel = 2;
    for (QTextBlock block = text_->document()->begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() != SectionLevel || block.text() != item->text())
            continue;
        // From the end backwards, so that the heading comes to the top of the view.
        text_->verticalScrollBar()->setValue(text_->verticalScrollBar()->maximum());
        text_->setTextCursor(QTextCursor(block));
        return;
    }
}

}  // namespace vardel
