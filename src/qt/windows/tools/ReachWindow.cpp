#include <QBoxLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "forms/tools/ReachForm.h"
#include "qt/widgets/ResultLabel.h"
#include "qt/windows/Windows.h"

namespace vardel {

namespace {

constexpr int Gap = 8;
constexpr int CellWidth = 10;

// ReachForm on the screen: what is wanted, the table, the station on the map. Escape closes it.
class ReachWindow : public FormWindow {
public:
    explicit ReachWindow(ReachForm& form);

private:
    QWidget* MakeWanted(ReachForm& form);
    QWidget* MakeTable(ReachForm& form);
    QWidget* MakeMap(ReachForm& form);
    void AddCell(Label& cell, const std::string& what, QGridLayout& grid, int row, int column);
};

ReachWindow::ReachWindow(ReachForm& form) : FormWindow(form) {
    auto* center = new QWidget;
    auto* column = LayoutOf<QVBoxLayout>(*center, WindowMargin, WindowMargin);
    column->addWidget(MakeNote(form.lblPath));
    column->addWidget(MakeWanted(form));
    column->addWidget(MakeTable(form));
    column->addWidget(MakeMap(form));
    column->addStretch(1);
    column->addWidget(MakeButtonRow({&form.cmdGraph, &form.cmdAdd, &form.cmdCopy, &form.cmdClose}));
    SetScrolledContent(*center);
    OnKeys({Qt::Key_Escape}, [this] { close(); });
    FocusFirst(form.wanted.txtWanted);
}

QWidget* ReachWindow::MakeWanted(ReachForm& form) {
    auto* panel = new QWidget;
    auto* grid = LayoutOf<QGridLayout>(*panel);
    grid->setHorizontalSpacing(Gap);
    AddWanted(form.wanted, *grid, 0);
    auto* problem = MakeLabel(form.lblProblem);
    grid->addWidget(problem, 2, 0, 1, 8);
    problem->setMinimumHeight(problem->fontMetrics().height() + 4);
    MakeBold(*problem);
    grid->setColumnStretch(7, 1);
    return panel;
}

void ReachWindow::AddCell(Label& cell, const std::string& what, QGridLayout& grid, int row,
                          int column) {
    auto* widget = new ResultLabel(CellWidth);
    widget->setFrameStyle(QFrame::StyledPanel | QFrame::Plain);
    binder.BindValue(cell, *widget, what, nullptr);
    grid.addWidget(widget, row, column);
}

QWidget* ReachWindow::MakeTable(ReachForm& form) {
    auto* panel = new QWidget;
    auto* grid = LayoutOf<QGridLayout>(*panel, 0, Gap);
    const int percentages = static_cast<int>(ReachPercentages);
    const int power = percentages + 1, height = power + 1;
    auto* head = MakeLabel(form.lblReachHead);
    grid->addWidget(head, 0, 1, 1, percentages);
    head->setAlignment(Qt::AlignCenter);
    for (const auto& [label, column] :
         {std::pair(&form.lblPowerHead, power), std::pair(&form.lblHeightHead, height)}) {
        auto* widget = MakeLabel(*label);
        grid->addWidget(widget, 0, column, 2, 1);
        widget->setAlignment(Qt::AlignCenter);
        widget->setWordWrap(true);
    }
    for (int i = 0; i < percentages; ++i) {
        auto* box = MakeBox(form.txtPercent.at(static_cast<std::size_t>(i)), CellWidth);
        box->setAccessibleName("Percent of locations of column " + QString::number(i + 1));
        box->setAlignment(Qt::AlignRight);
        grid->addWidget(box, 1, 1 + i);
    }
    for (std::size_t row = 0; row < form.lblModel.size(); ++row) {
        const int at = 2 + static_cast<int>(row);
        const std::string& model = form.lblModel.at(row).Caption();
        AddLabel(form.lblModel.at(row), *grid, at, 0);
        for (std::size_t i = 0; i < ReachPercentages; ++i)
            AddCell(*form.lblReach.at(row * ReachPercentages + i),
                    model + ", reach, column " + std::to_string(i + 1), *grid, at,
                    1 + static_cast<int>(i));
        AddCell(form.lblPower.at(row), model + ", power needed", *grid, at, power);
        AddCell(form.lblHeight.at(row), model + ", base height needed", *grid, at, height);
    }
    for (int column = 1; column <= height; ++column) grid->setColumnStretch(column, 1);
    return panel;
}

QWidget* ReachWindow::MakeMap(ReachForm& form) {
    auto* panel = new QWidget;
    auto* grid = LayoutOf<QGridLayout>(*panel);
    grid->setHorizontalSpacing(Gap);
    constexpr int BoxWidth = 14;
    AddInput(form.site.lblLatitude, *MakeBox(form.site.txtLatitude, BoxWidth), nullptr, *grid, 0,
             0);
    AddInput(form.site.lblLongitude, *MakeBox(form.site.txtLongitude, BoxWidth), nullptr, *grid, 0,
             2);
    grid->addWidget(MakeButton(form.cmdMap), 0, 4);
    return panel;
}

}  // namespace

std::unique_ptr<FormWindow> WindowOf(ReachForm& form) {
    return std::make_unique<ReachWindow>(form);
}

}  // namespace vardel
