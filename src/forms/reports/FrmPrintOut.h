#pragma once

#include "controls/Controls.h"
#include "services/Platform.h"

namespace vardel {

struct SharedData;

// Prints the chart that the program's ChartToPrint names. Done only hides the form; closed by its
// frame it puts back the orientation that the printer had when the form was loaded.
class FrmPrintOut : public Form {
public:
    FrmPrintOut(Platform& platform, SharedData& shared);

    Button cmdOK{*this, "cmdOK", "Done"};
    Button cmdPrint{*this, "cmdPrint", "Print"};
    Button cmdPrintSetup{*this, "cmdPrintSetup", "Printer Setup"};

private:
    void Form_Load() override;
    void Form_Unload() override;
    void cmdPrint_Click();
    void cmdPrintSetup_Click();

    SharedData& shared_;
    PageOrientation SavedOrientation = PageOrientation::Portrait;
};

}  // namespace vardel
