#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "forms/graphs/FrmOkumFieldStrength.h"
#include "forms/graphs/GraphForm.h"
#include "qt/chart/ChartWidget.h"
#include "qt/services/Convert.h"
#include "qt/windows/Windows.h"

namespace vardel {

namespace {

constexpr int BoxWidth = 10;
constexpr int RangeBoxWidth = 7;

// The graph forms on the screen: the inputs at the left, the chart beside them.
class GraphWindow : public FormWindow {
public:
    explicit GraphWindow(GraphForm& form);
    explicit GraphWindow(FrmOkumFieldStrength& form);

private:
    void LayOut(PlotForm& form, QGridLayout& inputs);
    QGridLayout* AddInputs(PlotForm& form);
    void AddButtons(PlotForm& form, QGridLayout& inputs);
    QWidget* MakeThreshold(ThresholdLine& threshold);
    QWidget* MakeRanges(GraphView& view);
    void UncoverByKeys(Label& label);
};

GraphWindow::GraphWindow(GraphForm& form) : FormWindow(form) {
    QGridLayout* inputs = AddInputs(form);
    LayOut(form, *inputs);
    UncoverByKeys(form.lblBaseAntenna);
}

GraphWindow::GraphWindow(FrmOkumFieldStrength& form) : FormWindow(form) {
    QGridLayout* inputs = AddInputs(form);
    AddInput(form.lblPower, *MakeBox(form.txtPowerUnit, BoxWidth), nullptr, *inputs,
             inputs->rowCount(), 0);
    QComboBox* unit = MakeList(form.cmbPowerUnit);
    unit->setAccessibleName(tr("Power unit"));
    inputs->addWidget(unit, inputs->rowCount(), 1);
    LayOut(form, *inputs);
    UncoverByKeys(form.lblPower);
}

// What a click on the label does.
void GraphWindow::UncoverByKeys(Label& label) {
    OnKeys({Qt::CTRL | Qt::SHIFT | Qt::Key_A}, [this, &label] {
        if (binder.IsAlive()) label.Click.Raise();
    });
}

QGridLayout* GraphWindow::AddInputs(PlotForm& form) {
    auto* grid = new QGridLayout;
    int row = 0;
    const auto add = [&](Label& caption, QWidget* widget, Label* unit) {
        AddInput(caption, *widget, unit, *grid, row++, 0);
    };
    add(form.Label3, MakeBox(form.txtFreq, BoxWidth), &form.Label4);
    add(form.BaseAntennaLabel(), MakeBox(form.txthb, BoxWidth), &form.Label10);
    add(form.Label9, MakeBox(form.txthm, BoxWidth), &form.Label11);
    add(form.Label6, MakeList(form.cmbareatype), nullptr);
    add(form.Label13, MakeList(form.cmbcitysize), nullptr);
    add(form.Label1, MakeBox(form.txtPctTime, BoxWidth), &form.Label2);
    add(form.Label7, MakeBox(form.txtPctLoc, BoxWidth), &form.Label5);
    return grid;
}

void GraphWindow::AddButtons(PlotForm& form, QGridLayout& inputs) {
    const auto add = [&](Button& button) {
        QPushButton* widget = MakeButton(button);
        inputs.addWidget(widget, inputs.rowCount(), 0, 1, 3);
        return widget;
    };
    PressByEnter(*add(form.cmdUpdateGraph));
    add(form.cmdPrintGraph);
    add(form.ArchiveButton());
    inputs.setRowStretch(inputs.rowCount(), 1);
}

// All of it comes and goes with the line.
QWidget* GraphWindow::MakeThreshold(ThresholdLine& threshold) {
    auto* panel = new QWidget;
    auto* grid = LayoutOf<QGridLayout>(*panel);
    AddInput(threshold.lblThreshold, *MakeBox(threshold.txtThreshold, BoxWidth),
             &threshold.lblThresholdUnit, *grid, 0, 0);
    QLabel* reaches = MakeNote(threshold.lblThresholdReach);
    grid->addWidget(reaches, 1, 0, 1, 4);
    grid->setColumnStretch(3, 1);
    return panel;
}

// All of it comes and goes with the ranges.
QWidget* GraphWindow::MakeRanges(GraphView& view) {
    auto* panel = new QWidget;
    auto* row = LayoutOf<QHBoxLayout>(*panel);
    const auto addBox = [&](Label& caption, TextBox& box, const std::string& name) {
        QLabel* label = MakeLabel(caption);
        QLineEdit* edit = MakeBox(box, RangeBoxWidth);
        label->setBuddy(edit);
        edit->setAccessibleName(ToQt(name));
        row->addWidget(label);
        row->addWidget(edit);
    };
    for (std::size_t i = 0; i < view.txtFrom.size(); ++i) {
        const std::string& from = view.lblFrom.at(i).Caption();
        addBox(view.lblFrom.at(i), view.txtFrom.at(i), from);
        addBox(view.lblTo.at(i), view.txtTo.at(i), from + ' ' + view.lblTo.at(i).Caption());
        row->addWidget(MakeLabel(view.lblUnit.at(i)));
    }
    row->addStretch(1);
    return panel;
}

void GraphWindow::LayOut(PlotForm& form, QGridLayout& inputs) {
    AddButtons(form, inputs);
    auto* center = new QWidget;
    auto* row = new QHBoxLayout(center);
    row->addLayout(&inputs);
    auto* chart = new QVBoxLayout;
    chart->setSpacing(0);
    chart->addWidget(new ChartWidget(form.GraphChart(), binder), 1);
    chart->addWidget(MakeRanges(form.View()));
    chart->addWidget(MakeThreshold(form.Threshold()));
    for (Label* label : {&form.lblHandBack, &form.lblStatus}) chart->addWidget(MakeNote(*label));
    row->addLayout(chart, 1);
    setCentralWidget(center);
    ResizeWithinScreen({1120, 640});
    FocusFirst(form.txtFreq);
}

}  // namespace

std::unique_ptr<FormWindow> WindowOf(GraphForm& form) {
    return std::make_unique<GraphWindow>(form);
}
std::unique_ptr<FormWindow> WindowOf(FrmOkumFieldStrength& form) {
    return std::make_unique<GraphWindow>(form);
}

}  // namespace vardel
