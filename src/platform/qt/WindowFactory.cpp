#include "platform/qt/WindowFactory.h"

#include <stdexcept>

#include "graphs/FrmOkumFieldStrength.h"
#include "graphs/GraphForm.h"
#include "help/AboutForm.h"
#include "help/frmInfoScreen.h"
#include "platform/qt/AboutWindow.h"
#include "platform/qt/GraphWindow.h"
#include "platform/qt/InfoWindow.h"
#include "platform/qt/MainWindow.h"
#include "platform/qt/PrintWindows.h"
#include "platform/qt/RangeWindow.h"
#include "platform/qt/ReportWindow.h"
#include "reports/FrmPrintOut.h"
#include "reports/FrmReport.h"
#include "reports/frmLogDistRange.h"
#include "reports/frmPrinterSelect.h"
#include "workbench/MainForm.h"

namespace vardel {

std::unique_ptr<FormWindow> MakeWindow(Form& form) {
    if (auto* mainForm = dynamic_cast<MainForm*>(&form))
        return std::make_unique<MainWindow>(*mainForm);
    if (auto* report = dynamic_cast<FrmReport*>(&form))
        return std::make_unique<ReportWindow>(*report);
    if (auto* graph = dynamic_cast<GraphForm*>(&form)) return std::make_unique<GraphWindow>(*graph);
    if (auto* graph = dynamic_cast<FrmOkumFieldStrength*>(&form))
        return std::make_unique<GraphWindow>(*graph);
    if (auto* range = dynamic_cast<frmLogDistRange*>(&form))
        return std::make_unique<RangeWindow>(*range);
    if (auto* info = dynamic_cast<frmInfoScreen*>(&form))
        return std::make_unique<InfoWindow>(*info);
    if (auto* about = dynamic_cast<AboutForm*>(&form)) return std::make_unique<AboutWindow>(*about);
    if (auto* printOut = dynamic_cast<FrmPrintOut*>(&form))
        return std::make_unique<PrintOutWindow>(*printOut);
    if (auto* select = dynamic_cast<frmPrinterSelect*>(&form))
        return std::make_unique<PrinterSelectWindow>(*select);
    throw std::logic_error("No window for the form " + form.Name());
}

}  // namespace vardel
