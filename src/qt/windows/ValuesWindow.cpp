#include <QBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "forms/graphs/ValuesForm.h"
#include "qt/widgets/RowTable.h"
#include "qt/windows/Windows.h"

namespace vardel {

namespace {

// The values of a chart on the screen, as a table.
class ValuesWindow : public FormWindow {
public:
    explicit ValuesWindow(ValuesForm& form) : FormWindow(form) {
        auto* column = Content<QVBoxLayout>(WindowMargin);
        column->addWidget(MakeNote(form.lblTitle));
        auto* table = new RowTable(form.lstValues, binder, "Values");
        column->addWidget(table, 1);
        column->addWidget(MakeButtonRow({&form.cmdClose}));
        table->setFocus();
        OnKeys({Qt::Key_Escape}, [this] { close(); });
        ResizeWithinScreen({860, 620});
    }
};

}  // namespace

std::unique_ptr<FormWindow> WindowOf(ValuesForm& form) {
    return std::make_unique<ValuesWindow>(form);
}

}  // namespace vardel
