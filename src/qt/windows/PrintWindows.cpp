#include <QBoxLayout>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

#include "forms/reports/FrmPrintOut.h"
#include "forms/reports/frmPrinterSelect.h"
#include "qt/windows/Windows.h"

namespace vardel {

namespace {

constexpr int ButtonWidth = 26;  // characters
constexpr int NameWidth = 36;
constexpr int Spacing = 12;

// The two small forms of printing on the screen. Escape leaves both.
class PrintOutWindow : public FormWindow {
public:
    explicit PrintOutWindow(FrmPrintOut& form) : FormWindow(form) {
        SetTopic(HelpTopic::Printing);
        auto* column = Content<QVBoxLayout>(2 * Spacing, Spacing);
        layout()->setSizeConstraint(QLayout::SetFixedSize);
        for (Button* button : {&form.cmdPrint, &form.cmdPrintSetup, &form.cmdOK}) {
            auto* widget = new QPushButton;
            widget->setMinimumWidth(WidthOf(*widget, ButtonWidth));
            binder.Bind(*button, *widget);
            column->addWidget(widget);
        }
        auto* done = findChild<QPushButton*>("cmdOK");
        findChild<QPushButton*>("cmdPrint")->setFocus();
        OnKeys({Qt::Key_Escape}, [done] { done->click(); });
    }
};

class PrinterSelectWindow : public FormWindow {
public:
    explicit PrinterSelectWindow(frmPrinterSelect& form) : FormWindow(form) {
        SetTopic(HelpTopic::Printing);
        auto* column = Content<QVBoxLayout>(2 * Spacing, Spacing);
        layout()->setSizeConstraint(QLayout::SetFixedSize);
        auto* names = new QComboBox;
        binder.Bind(form.cboPrinterNames, *names);
        names->setMinimumWidth(WidthOf(*names, NameWidth));
        names->setAccessibleName("Printer");
        column->addWidget(names);
        auto* select = new QPushButton;
        binder.Bind(form.cmdSelect, *select);
        column->addWidget(select);
        names->setFocus();
        QObject::connect(names->lineEdit(), &QLineEdit::returnPressed, select, &QPushButton::click);
        OnKeys({Qt::Key_Escape}, [this] { close(); });
    }
};

}  // namespace

std::unique_ptr<FormWindow> WindowOf(FrmPrintOut& form) {
    return std::make_unique<PrintOutWindow>(form);
}
std::unique_ptr<FormWindow> WindowOf(frmPrinterSelect& form) {
    return std::make_unique<PrinterSelectWindow>(form);
}

}  // namespace vardel
