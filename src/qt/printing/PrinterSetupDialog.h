#pragma once

#include <QDialog>

class QComboBox;
class QRadioButton;

namespace vardel {

class QtPrinters;

// Printer, paper and orientation. What is accepted becomes the current printer and its layout.
class PrinterSetupDialog : public QDialog {
public:
    PrinterSetupDialog(QtPrinters& printers, QWidget* parent);

    void accept() override;

private:
    void ShowPapers();

    QtPrinters& printers_;
    QComboBox* printer_;
    QComboBox* paper_;
    QRadioButton* portrait_;
    QRadioButton* landscape_;
};

}  // namespace vardel
