#pragma once

#include "controls/Controls.h"

namespace vardel {

struct Platform;

// Chooses the program's current printer.
class frmPrinterSelect : public Form {
public:
    explicit frmPrinterSelect(Platform& platform);

    Button cmdSelect{*this, "cmdSelect", "Select Printer"};
    TextComboBox cboPrinterNames{*this, "cboPrinterNames"};

private:
    void Form_Load() override;
    void cmdSelect_Click();
};

}  // namespace vardel
