#pragma once

#include "qt/windows/FormWindow.h"

namespace vardel {

class FrmPrintOut;
class frmPrinterSelect;

// The two small forms of printing on the screen. Escape leaves both.
class PrintOutWindow : public FormWindow {
public:
    explicit PrintOutWindow(FrmPrintOut& form);
};

class PrinterSelectWindow : public FormWindow {
public:
    explicit PrinterSelectWindow(frmPrinterSelect& form);
};

}  // namespace vardel
