#include <QBoxLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSplitter>

#include "forms/tools/MeasuredForm.h"
#include "qt/chart/ChartWidget.h"
#include "qt/windows/Windows.h"

namespace vardel {

namespace {

// The measured data against the models on the screen: the table of errors, and their chart below.
class MeasuredWindow : public FormWindow {
public:
    explicit MeasuredWindow(MeasuredForm& form) : FormWindow(form) {
        auto* column = Content<QVBoxLayout>(WindowMargin, WindowMargin / 2);
        for (Label* label : {&form.lblPath, &form.lblMatch}) column->addWidget(MakeNote(*label));

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

        column->addWidget(
            MakeButtonRow({&form.cmdAdd, &form.cmdCopy, &form.cmdSave, &form.cmdClose}));
        OnKeys({Qt::Key_Escape}, [this] { close(); });
        FocusFirst(form.txtPercents);
        ResizeWithinScreen({860, 760});
    }
};

}  // namespace

std::unique_ptr<FormWindow> WindowOf(MeasuredForm& form) {
    return std::make_unique<MeasuredWindow>(form);
}

}  // namespace vardel
