#include "qt/windows/ValuesWindow.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "forms/graphs/ValuesForm.h"
#include "qt/widgets/RowTable.h"

namespace vardel {

ValuesWindow::ValuesWindow(ValuesForm& form) : FormWindow(form) {
    auto* center = new QWidget;
    auto* column = new QVBoxLayout(center);
    column->setContentsMargins(WindowMargin, WindowMargin, WindowMargin, WindowMargin);
    auto* title = MakeLabel(form.lblTitle);
    title->setWordWrap(true);
    column->addWidget(title);
    auto* table = new RowTable(form.lstValues, binder, "Values");
    column->addWidget(table, 1);
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    row->addWidget(MakeButton(form.cmdClose));
    column->addLayout(row);
    setCentralWidget(center);
    table->setFocus();
    OnKeys({Qt::Key_Escape}, [this] { close(); });
    ResizeWithinScreen({860, 620});
}

}  // namespace vardel
