#include <QBoxLayout>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSplitter>

#include "forms/tools/TerrainForm.h"
#include "qt/map/GroundMapWidget.h"
#include "qt/widgets/RowTable.h"
#include "qt/windows/Windows.h"

namespace vardel {

namespace {

// TerrainForm on the screen: the inputs above the table of azimuths, the map beside them. Escape
// closes it.
class TerrainWindow : public FormWindow {
public:
    explicit TerrainWindow(TerrainForm& form);

private:
    QWidget* MakeInputs(TerrainForm& form);
    QWidget* MakeMap(TerrainForm& form);
    QWidget* MakeTable(TerrainForm& form);
};

TerrainWindow::TerrainWindow(TerrainForm& form) : FormWindow(form) {
    auto* center = new QWidget;
    auto* column = LayoutOf<QVBoxLayout>(*center, WindowMargin, WindowMargin / 2);
    column->addWidget(MakeNote(form.lblPath));
    auto* parts = new QSplitter(Qt::Horizontal);
    parts->setChildrenCollapsible(false);
    parts->addWidget(MakeTable(form));
    parts->addWidget(MakeMap(form));
    parts->setStretchFactor(1, 1);
    parts->setSizes({600, 660});
    column->addWidget(parts, 1);
    column->addWidget(MakeButtonRow({&form.cmdTake, &form.cmdAdd, &form.cmdCopy, &form.cmdSave,
                                     &form.area.cmdSaveArea, &form.cmdClose}));
    SetScrolledContent(*center);
    OnKeys({Qt::Key_Escape}, [this] { close(); });
    FocusFirst(form.site.txtLatitude);
    ResizeWithinScreen({1300, 820});
}

QWidget* TerrainWindow::MakeInputs(TerrainForm& form) {
    auto* panel = new QWidget;
    auto* column = LayoutOf<QVBoxLayout>(*panel);
    auto* grid = new QGridLayout;
    column->addLayout(grid);
    constexpr int PlaceWidth = 11, NumberWidth = 6;
    AddInput(form.site.lblLatitude, *MakeBox(form.site.txtLatitude, PlaceWidth), nullptr, *grid, 0,
             0);
    AddInput(form.site.lblLongitude, *MakeBox(form.site.txtLongitude, PlaceWidth), nullptr, *grid,
             0, 3);
    AddInput(form.lblAntenna, *MakeBox(form.txtAntenna, NumberWidth), &form.lblAntennaUnit, *grid,
             1, 0);
    AddInput(form.lblGround, *MakeBox(form.txtGround, NumberWidth), &form.lblGroundUnit, *grid, 1,
             3);
    auto* files = MakeBox(form.txtFiles, PlaceWidth);
    AddLabel(form.lblFiles, *grid, 2, 0);
    grid->addWidget(files, 2, 1, 1, 3);
    auto* choose = new QHBoxLayout;
    choose->addWidget(MakeButton(form.cmdFile));
    choose->addWidget(MakeButton(form.cmdFolder));
    grid->addLayout(choose, 2, 4, 1, 2);
    AddLabel(form.lblDefinition, *grid, 3, 0);
    grid->addWidget(MakeList(form.cmbDefinition), 3, 1, 1, 3);
    auto* bounds = new QGridLayout;
    AddInput(form.lblFrom, *MakeBox(form.txtFrom, 4), nullptr, *bounds, 0, 0);
    AddInput(form.lblTo, *MakeBox(form.txtTo, 4), &form.lblBoundsUnit, *bounds, 0, 2);
    grid->addLayout(bounds, 3, 4, 1, 2);
    AddInput(form.lblAzimuths, *MakeBox(form.txtAzimuths, NumberWidth), nullptr, *grid, 4, 0);
    auto* read = new QHBoxLayout;
    read->addWidget(MakeButton(form.cmdRead));
    auto* bar = new QProgressBar;
    binder.Bind(form.pgbRead, *bar);
    bar->setAccessibleName("Ground read");
    read->addWidget(bar, 1);
    read->addWidget(MakeButton(form.cmdCancel));
    grid->addLayout(read, 4, 3, 1, 3);
    auto* wanted = new QGridLayout;
    AddWanted(form.wanted, *wanted, 0);
    wanted->setColumnStretch(7, 1);
    column->addLayout(wanted);
    return panel;
}

QWidget* TerrainWindow::MakeTable(TerrainForm& form) {
    auto* panel = new QWidget;
    auto* column = LayoutOf<QVBoxLayout>(*panel);
    column->addWidget(MakeInputs(form));
    auto* problem = MakeNote(form.lblProblem);
    problem->setMinimumHeight(problem->fontMetrics().height() + 4);
    MakeBold(*problem);
    column->addWidget(problem);
    column->addWidget(new RowTable(form.lstAzimuths, binder, "Azimuths"), 1);
    column->addWidget(MakeNote(form.lblNotes));
    return panel;
}

QWidget* TerrainWindow::MakeMap(TerrainForm& form) {
    auto* panel = new QWidget;
    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(12, 0, 0, 0);
    auto* head = new QGridLayout;
    AddLabel(form.area.lblArea, *head, 0, 0);
    head->addWidget(MakeList(form.area.cmbArea), 0, 1);
    head->setColumnStretch(2, 1);
    column->addLayout(head);
    column->addWidget(new GroundMapWidget(form.map, binder), 1);
    auto* pointed = MakeNote(form.area.lblPointed);
    pointed->setAlignment(Qt::AlignTop);
    pointed->setFixedHeight(3 * pointed->fontMetrics().height());
    column->addWidget(pointed);
    return panel;
}

}  // namespace

std::unique_ptr<FormWindow> WindowOf(TerrainForm& form) {
    return std::make_unique<TerrainWindow>(form);
}

}  // namespace vardel
