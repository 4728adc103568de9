#include <QAbstractTextDocumentLayout>
#include <QAction>
#include <QBoxLayout>
#include <QHideEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QShowEvent>
#include <QTextBlock>
#include <QTextDocument>

#include "forms/reports/FrmReport.h"
#include "qt/services/Convert.h"
#include "qt/widgets/RichTextEdit.h"
#include "qt/windows/Windows.h"

namespace vardel {

namespace {

constexpr int LineWidth = 148;  // characters of a log line
constexpr int LinesShown = 30;

// FrmReport on the screen: the log below the heads of its columns, its buttons below.
class ReportWindow : public FormWindow {
public:
    explicit ReportWindow(FrmReport& form);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    QWidget* MakeHeads();
    void ShowHeadsUnlessSeen();
    QLayout* MakeFindBar();
    void WireKeys();
    void EnableHistory();

    FrmReport& report_;
    RichTextEdit* log_;
    QLabel* heads_ = nullptr;
};

ReportWindow::ReportWindow(FrmReport& form)
    : FormWindow(form), report_(form), log_(new RichTextEdit(form.rtbLog, binder)) {
    SetTopic(HelpTopic::ReportLog);
    auto* center = new QWidget;
    auto* column = new QVBoxLayout(center);
    column->addWidget(MakeHeads());
    column->addWidget(log_);
    column->addLayout(MakeFindBar());
    auto* row = new QHBoxLayout;
    column->addLayout(row);
    row->addWidget(MakeNote(form.lblStatus), 1);
    for (Button* button : {&form.cmdFile, &form.cmdPrint, &form.cmdClear, &form.cmdClose})
        row->addWidget(MakeButton(*button));
    setCentralWidget(center);
    log_->setFocus();
    WireKeys();

    const QFontMetrics metrics(log_->font());
    const int bar = log_->verticalScrollBar()->sizeHint().width();
    const QSize wanted(metrics.horizontalAdvance(QString(LineWidth + 2, '0')) + bar + 50,
                       metrics.lineSpacing() * LinesShown + 120);
    ResizeWithinScreen(wanted);
}

// In the text's font and at its margin, scrolled sideways with it.
QWidget* ReportWindow::MakeHeads() {
    auto* strip = new QWidget;
    auto* heads = new QLabel(strip);
    heads->setObjectName(ToQt(report_.lblHeads.Name()));
    heads->setTextFormat(Qt::PlainText);
    heads->setFont(log_->font());
    MakeBold(*heads);
    binder.Show(report_.lblHeads,
                [this, heads] { heads->setText(ToQt(report_.lblHeads.Caption())); });
    strip->setFixedHeight(heads->sizeHint().height());
    const auto place = [this, heads] {
        heads->move(
            log_->frameWidth() + RichTextEdit::Margin - log_->horizontalScrollBar()->value(), 0);
        heads->adjustSize();
    };
    connect(log_->horizontalScrollBar(), &QScrollBar::valueChanged, strip, place);
    place();
    heads_ = heads;
    connect(log_->verticalScrollBar(), &QScrollBar::valueChanged, this,
            [this] { ShowHeadsUnlessSeen(); });
    connect(log_, &QTextEdit::textChanged, this, [this] { ShowHeadsUnlessSeen(); });
    return strip;
}

// The log's own first line, where it has the heads, is enough while it is in view.
void ReportWindow::ShowHeadsUnlessSeen() {
    const QTextDocument& text = *log_->document();
    const double below = text.documentLayout()->blockBoundingRect(text.firstBlock()).bottom();
    const bool seen =
        text.firstBlock().text() == heads_->text() && log_->verticalScrollBar()->value() < below;
    heads_->setVisible(!seen);
}

QLayout* ReportWindow::MakeFindBar() {
    constexpr int BoxWidth = 30;
    auto* row = new QHBoxLayout;
    auto* find = MakeBox(report_.txtFind, BoxWidth);
    find->setAccessibleName("Find");
    auto* label = MakeLabel(report_.lblFind);
    label->setBuddy(find);
    row->addWidget(label);
    row->addWidget(find);
    auto* next = MakeButton(report_.cmdFindNext);
    row->addWidget(next);
    row->addWidget(MakeButton(report_.cmdFindPrevious));
    row->addStretch(1);
    PressByEnter(*next);
    return row;
}

void ReportWindow::WireKeys() {
    OnKeys({Qt::Key_Escape}, [this] {
        if (!binder.IsAlive() || !report_.txtFind.Visible()) {
            close();
            return;
        }
        report_.ShowFind(false);
        log_->setFocus();
    });
    // Tab alone belongs to the text.
    OnKeys({Qt::CTRL | Qt::Key_Tab}, [this] { focusNextChild(); });
    OnKeys({Qt::CTRL | Qt::SHIFT | Qt::Key_Tab}, [this] { focusPreviousChild(); });
    connect(findChild<QAction*>("mnuEditFind"), &QAction::triggered, this,
            [this] { FocusFirst(report_.txtFind); });
    connect(log_, &QTextEdit::undoAvailable, this, [this] { EnableHistory(); });
    connect(log_, &QTextEdit::redoAvailable, this, [this] { EnableHistory(); });
}

void ReportWindow::EnableHistory() {
    if (!binder.IsAlive()) return;
    report_.mnuEditUndo.SetEnabled(log_->document()->isUndoAvailable());
    report_.mnuEditRedo.SetEnabled(log_->document()->isRedoAvailable());
}

void ReportWindow::showEvent(QShowEvent* event) {
    if (!event->spontaneous()) {
        log_->TakeOver();
        ShowHeadsUnlessSeen();
        EnableHistory();
    }
    FormWindow::showEvent(event);
}

void ReportWindow::hideEvent(QHideEvent* event) {
    if (!event->spontaneous()) log_->Leave();
    FormWindow::hideEvent(event);
}

}  // namespace

std::unique_ptr<FormWindow> WindowOf(FrmReport& form) {
    return std::make_unique<ReportWindow>(form);
}

}  // namespace vardel
