#include "forms/reports/FrmPrintOut.h"

#include "forms/SharedData.h"
#include "forms/graphs/chart/Chart.h"
#include "services/Platform.h"

namespace vardel {

FrmPrintOut::FrmPrintOut(Platform& platform, SharedData& shared)
    : Form(platform, "FrmPrintOut", "Print Graph"), shared_(shared) {
    cmdOK.Click = [this] { Hide(); };
    cmdPrint.Click = [this] { cmdPrint_Click(); };
    cmdPrintSetup.Click = [this] { cmdPrintSetup_Click(); };
}

void FrmPrintOut::Form_Load() { SavedOrientation = GetPlatform().printers.Orientation(); }

void FrmPrintOut::Form_Unload() { GetPlatform().printers.SetOrientation(SavedOrientation); }

void FrmPrintOut::cmdPrint_Click() {
    if (shared_.ChartToPrint != nullptr) shared_.ChartToPrint->PrintChart();
}

void FrmPrintOut::cmdPrintSetup_Click() {
    GetPlatform().printers.SetOrientation(PageOrientation::Landscape);
    if (shared_.ChartToPrint != nullptr) shared_.ChartToPrint->PrinterSetup();
}

}  // namespace vardel
