#include "qt/windows/tools/MeasuredWindow.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSplitter>

#include "forms/tools/MeasuredForm.h"
#include "qt/chart/ChartWidget.h"

namespace vardel {

MeasuredWindow::MeasuredWindow(MeasuredForm& form) : FormWindow(form) {
    auto* center = new QWidget;
    auto* column = new QVBoxLayout(center);
    column->setContentsMargins(WindowMargin, WindowMargin, WindowMargin, WindowMargin);
    column->setSpacing(WindowMargin / 2);
    for (Label* label : {&form.lblPath, &form.lblMatch}) {
        auto* widget = MakeLabel(*label);
        widget->setWordWrap(true);
        column->addWidget(widget);
    }

    auto* inputs = new QGridLayout;
    constexpr int BoxWidth = 20;
    AddInput(form.lblPercents, *MakeBox(form.txtPercents, BoxWidth), nullptr, *inputs, 0, 0);
    auto* problem = AddLabel(form.lblProblem, *inputs, 0, 2);
    MakeBold(*problem);
    inputs->setColumnStretch(2, 1);
    column->addLayout(inputs);

    auto* parts = new QSplitter(Qt::Vertical);
    parts->setChildrenCollapsible(false);
    parts->addWidget(MakeFixedText(form.lblFit, "Errors of the models"));
    parts->addWidget(new ChartWidget(form.CTWXErrors, binder));
    parts->setStretchFactor(1, 1);
    column->addWidget(parts, 1);

    auto* row = new QHBoxLayout;
    row->addStretch(1);
    for (Button* button : {&form.cmdAdd, &form.cmdCopy, &form.cmdSave, &form.cmdClose})
        row->addWidget(MakeButton(*button));
    column->addLayout(row);
    setCentralWidget(center);
    OnKeys({Qt::Key_Escape}, [this] { close(); });
    FocusFirst(form.txtPercents);
    ResizeWithinScreen({860, 760});
}

}  // namespace vardel
