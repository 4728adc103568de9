#include <QBoxLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSplitter>

#include "forms/archive/ArchiveForm.h"
#include "qt/chart/ChartWidget.h"
#include "qt/widgets/RowTable.h"
#include "qt/windows/Windows.h"

namespace vardel {

namespace {

// The archive on the screen: the list of runs, and the chart of the one that is selected.
class ArchiveWindow : public FormWindow {
public:
    explicit ArchiveWindow(ArchiveForm& form);

private:
    QWidget* MakeHead(ArchiveForm& form);
    QWidget* MakeButtons(ArchiveForm& form);
};

ArchiveWindow::ArchiveWindow(ArchiveForm& form) : FormWindow(form) {
    auto* column = Content<QVBoxLayout>(WindowMargin, WindowMargin / 2);
    column->addWidget(MakeHead(form));
    auto* parts = new QSplitter(Qt::Vertical);
    parts->setChildrenCollapsible(false);
    parts->addWidget(new RowTable(form.lstRuns, binder, "Runs"));
    parts->addWidget(new ChartWidget(form.CTWXRun, binder));
    for (const int part : {0, 1}) parts->setStretchFactor(part, 1);
    column->addWidget(parts, 1);
    column->addWidget(MakeNote(form.lblStatus));
    column->addWidget(MakeButtons(form));
    OnKeys({Qt::Key_Escape}, [this] { close(); });
    OnKeys({QKeySequence::Undo}, [this, &form] {
        if (binder.IsAlive()) form.cmdUndo.Press();
    });
    OnKeys({Qt::Key_F5}, [this, &form] {
        if (binder.IsAlive()) form.txtSearch.Change.Raise();
    });
    FocusFirst(form.txtSearch);
    ResizeWithinScreen({1040, 800});
}

QWidget* ArchiveWindow::MakeHead(ArchiveForm& form) {
    auto* panel = new QWidget;
    auto* grid = LayoutOf<QGridLayout>(*panel);
    auto* file = MakeNote(form.lblFile);
    grid->addWidget(file, 0, 0, 1, 3);
    grid->addWidget(MakeButton(form.cmdOpen), 0, 3);
    grid->addWidget(MakeButton(form.cmdStoreHere), 0, 4);
    constexpr int BoxWidth = 30;
    AddInput(form.lblSearch, *MakeBox(form.txtSearch, BoxWidth), nullptr, *grid, 1, 0);
    grid->setColumnStretch(2, 1);
    return panel;
}

QWidget* ArchiveWindow::MakeButtons(ArchiveForm& form) {
    auto* panel = new QWidget;
    auto* row = LayoutOf<QHBoxLayout>(*panel);
    for (Button* button : {&form.cmdTake, &form.cmdLay, &form.cmdComment, &form.cmdDelete,
                           &form.cmdUndo, &form.cmdSave})
        row->addWidget(MakeButton(*button));
    row->addStretch(1);
    row->addWidget(MakeButton(form.cmdClose));
    return panel;
}

}  // namespace

std::unique_ptr<FormWindow> WindowOf(ArchiveForm& form) {
    return std::make_unique<ArchiveWindow>(form);
}

}  // namespace vardel
