#include "forms/reports/frmPrinterSelect.h"

#include "services/Platform.h"

namespace vardel {

frmPrinterSelect::frmPrinterSelect(Platform& platform)
    : Form(platform, "frmPrinterSelect", "Printer Selection") {
    cmdSelect.Click = [this] { cmdSelect_Click(); };
}

void frmPrinterSelect::Form_Load() {
    Printers& printers = GetPlatform().printers;
    const std::string current = printers.CurrentPrinter();
    cboPrinterNames.Clear();
    for (const std::string& name : printers.PrinterNames()) {
        cboPrinterNames.AddItem(name);
        if (name == current) cboPrinterNames.SetText(name);
    }
}

// A text that names no printer leaves the current one.
void frmPrinterSelect::cmdSelect_Click() {
    Printers& printers = GetPlatform().printers;
    for (const std::string& name : printers.PrinterNames()) {
        if (name != cboPrinterNames.Text()) continue;
        printers.SetCurrentPrinter(name);
        break;
    }
    Unload();
}

}  // namespace vardel
