#include "qt/windows/ReportWindow.h"

#include <QBoxLayout>
#include <QHideEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QShowEvent>

#include "forms/reports/FrmReport.h"
#include "qt/windows/RichTextEdit.h"

namespace vardel {

namespace {

constexpr int LineWidth = 148;  // characters of a log line
constexpr int LinesShown = 30;

}  // namespace

ReportWindow::ReportWindow(FrmReport& form)
    : FormWindow(form), log_(new RichTextEdit(form.rtbLog, binder)) {
    SetTopic(HelpTopic::ReportLog);
    auto* center = new QWidget;
    auto* column = new QVBoxLayout(center);
    column->addWidget(log_);
    auto* row = new QHBoxLayout;
    column->addLayout(row);
    row->addStretch(1);
    for (Button* button : {&form.cmdFile, &form.cmdPrint, &form.cmdClear, &form.cmdClose})
        row->addWidget(MakeButton(*button));
    setCentralWidget(center);
    log_->setFocus();
    OnKeys({Qt::Key_Escape}, [this] { close(); });

    const QFontMetrics metrics(log_->font());
    const int bar = log_->verticalScrollBar()->sizeHint().width();
    const QSize wanted(metrics.horizontalAdvance(QString(LineWidth + 2, '0')) + bar + 50,
                       metrics.lineSpacing() * LinesShown + 120);
    ResizeWithinScreen(wanted);
}

void ReportWindow::showEvent(QShowEvent* event) {
    if (!event->spontaneous()) log_->TakeOver();
    FormWindow::showEvent(event);
}

void ReportWindow::hideEvent(QHideEvent* event) {
    if (!event->spontaneous()) log_->Leave();
    FormWindow::hideEvent(event);
}

}  // namespace vardel
