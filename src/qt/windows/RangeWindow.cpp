#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>

#include "forms/reports/frmLogDistRange.h"
#include "qt/input/FocusRing.h"
#include "qt/services/Convert.h"
#include "qt/windows/Windows.h"

namespace vardel {

namespace {

constexpr int Margin = 16;
constexpr int Gap = 12;

// Takes the focus when it comes up.
class FocusedWhenShown : public QPushButton {
protected:
    void showEvent(QShowEvent* event) override {
        QPushButton::showEvent(event);
        setFocus();
    }
};

void KeepPlaceWhenHidden(QWidget& widget) {
    QSizePolicy policy = widget.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget.setSizePolicy(policy);
}

// frmLogDistRange on the screen. What a run shows stands in the place of what it hides, so that the
// window keeps its size. Enter begins a run, Escape ends it or closes the window.
class RangeWindow : public FormWindow {
public:
    explicit RangeWindow(frmLogDistRange& form);

private:
    QWidget* MakeInputs(frmLogDistRange& form);
    QWidget* MakeDistance(frmLogDistRange& form);
    QWidget* MakeProgress(frmLogDistRange& form);
    QWidget* MakeClearLog(frmLogDistRange& form);
    void SetKeys();

    QPushButton* begin_;
    QPushButton* exit_;
};

RangeWindow::RangeWindow(frmLogDistRange& form)
    : FormWindow(form), begin_(MakeButton(form.cmdLogDistRange)), exit_(new FocusedWhenShown) {
    SetTopic(HelpTopic::Calculation);
    auto* grid = Content<QGridLayout>(Margin);
    grid->setVerticalSpacing(Gap);
    grid->addWidget(MakeInputs(form), 0, 0);
    grid->addWidget(MakeDistance(form), 0, 0);
    grid->addWidget(MakeProgress(form), 1, 0);
    grid->addWidget(MakeClearLog(form), 2, 0);
    binder.Bind(form.cmdExitCalc, *exit_);
    KeepPlaceWhenHidden(*exit_);
    grid->addWidget(exit_, 2, 0, Qt::AlignVCenter);
    begin_->setDefault(true);
    // Wide enough for what it says during a run.
    const int wider = begin_->fontMetrics().horizontalAdvance("Restart") -
                      begin_->fontMetrics().horizontalAdvance("Begin");
    begin_->setMinimumWidth(begin_->sizeHint().width() + wider + 2 * Gap);
    grid->addWidget(begin_, 3, 0);
    setFixedSize(sizeHint());
    SetKeys();
    new FocusRing(*this);
    FocusFirst(form.txtStart);
}

QWidget* RangeWindow::MakeInputs(frmLogDistRange& form) {
    auto* panel = new QWidget;
    auto* grid = new QGridLayout(panel);
    grid->setContentsMargins(0, FocusRing::Width, 0, FocusRing::Width);
    grid->setHorizontalSpacing(Gap);
    constexpr int BoxWidth = 12;
    const struct {
        Label& caption;
        TextBox& box;
    } rows[] = {
        {form.lblStart, form.txtStart}, {form.lblEnd, form.txtEnd}, {form.lblStep, form.txtStep}};
    int row = 0;
    for (const auto& [caption, box] : rows) {
        AddInput(caption, *MakeBox(box, BoxWidth), &form.lblKm[static_cast<std::size_t>(row)],
                 *grid, row, 0);
        ++row;
    }
    grid->setColumnStretch(1, 1);
    for (auto* widget : panel->findChildren<QWidget*>()) KeepPlaceWhenHidden(*widget);
    return panel;
}

QWidget* RangeWindow::MakeDistance(frmLogDistRange& form) {
    auto* distance = new QLabel;
    QFont font = distance->font();
    font.setPointSizeF(font.pointSizeF() * 2.0);
    distance->setFont(font);
    distance->setAlignment(Qt::AlignCenter);
    binder.Bind(form.lblDist, *distance, Binder::Pace::OfTheScreen);
    return distance;
}

QWidget* RangeWindow::MakeProgress(frmLogDistRange& form) {
    auto* bar = new QProgressBar;
    bar->setTextVisible(false);
    bar->setAccessibleName("Progress of the run");
    binder.Bind(form.pgbDist, *bar);
    return bar;
}

QWidget* RangeWindow::MakeClearLog(frmLogDistRange& form) {
    auto* frame = new QFrame;
    frame->setFrameStyle(QFrame::Box | QFrame::Plain);
    KeepPlaceWhenHidden(*frame);
    auto* row = new QHBoxLayout(frame);
    auto* box = new QCheckBox;
    row->addWidget(box);
    binder.Bind(form.chkClearLog, *box);
    binder.Bind(form.shpClearLog, *frame);
    return frame;
}

// Enter leaves the box first, which has it checked as any other way of leaving does. During a run
// it does nothing: a second stroke in haste shall not end what the first has begun.
void RangeWindow::SetKeys() {
    OnKeys({Qt::Key_Return, Qt::Key_Enter}, [this] {
        if (!exit_->isHidden()) return;
        begin_->setFocus();
        begin_->click();
    });
    OnKeys({Qt::Key_Escape}, [this] {
        if (exit_->isHidden())
            close();
        else
            exit_->click();
    });
}

}  // namespace

std::unique_ptr<FormWindow> WindowOf(frmLogDistRange& form) {
    return std::make_unique<RangeWindow>(form);
}

}  // namespace vardel
