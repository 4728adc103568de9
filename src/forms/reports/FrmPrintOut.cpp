#include "forms/reports/FrmPrintOut.h"

#include "forms/Program.h"
#include "forms/graphs/Chart.h"

namespace vardel {

FrmPrintOut::FrmPrintOut(Program& program)
    : Form(program.platform, "FrmPrintOut", "Print Graph"), program_(program) {
    cmdOK.Click = [this] { Hide(); };
    cmdPrint.Click = [this] { cmdPrint_Click(); };
    cmdPrintSetup.Click = [this] { cmdPrintSetup_Click(); };
}

void FrmPrintOut::Form_Load() { SavedOrientation = GetPlatform().printers.Orientation(); }

void FrmPrintOut::Form_Unload() { GetPlatform().printers.SetOrientation(SavedOrientation); }

void FrmPrintOut::cmdPrint_Click() {
    if (program_.ChartToPrint != nullptr) program_.ChartToPrint->PrintChart();
}

void FrmPrintOut::cmdPrintSetup_Click() {
    GetPlatform().printers.SetOrientation(Printers::Landscape);
    if (program_.ChartToPrint != nullptr) program_.ChartToPrint->PrinterSetup();
}

}  // namespace vardel
