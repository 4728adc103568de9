#include "platform/qt/GraphWindow.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>

#include "graphs/GraphForm.h"
#include "platform/qt/ChartWidget.h"

namespace vardel {

GraphWindow::GraphWindow(GraphForm& form) : FormWindow(form) {
    auto* center = new QWidget;
    auto* row = new QHBoxLayout(center);
    row->addWidget(MakeInputs(form));
    row->addWidget(new ChartWidget(form.CTWX1, binder), 1);
    setCentralWidget(center);
    resize(1120, 640);
    findChild<QLineEdit*>("txtFreq")->setFocus();
}

QWidget* GraphWindow::MakeInputs(GraphForm& form) {
    auto* panel = new QWidget;
    auto* grid = new QGridLayout(panel);
    constexpr int BoxWidth = 10;
    int row = 0;
    const auto add = [&](Label& caption, QWidget* widget, Label* unit) {
        AddInput(caption, *widget, unit, *grid, row++, 0);
    };
    add(form.Label3, MakeBox(form.txtFreq, BoxWidth), &form.Label4);
    add(form.lblBaseAntenna, MakeBox(form.txthb, BoxWidth), &form.Label10);
    add(form.Label9, MakeBox(form.txthm, BoxWidth), &form.Label11);
    add(form.Label6, MakeList(form.cmbareatype), nullptr);
    add(form.Label13, MakeList(form.cmbcitysize), nullptr);
    add(form.Label1, MakeBox(form.txtPctTime, BoxWidth), &form.Label5);
    add(form.Label7, MakeBox(form.txtPctLoc, BoxWidth), &form.Label2);
    for (Button* button : {&form.cmdUpdateGraph, &form.cmdPrintGraph, &form.cmdArchiveData}) {
        auto* widget = new QPushButton;
        binder.Bind(*button, *widget);
        grid->addWidget(widget, row++, 0, 1, 3);
    }
    grid->setRowStretch(row, 1);
    return panel;
}

}  // namespace vardel
