#include "qt/windows/WindowFactory.h"

#include <stdexcept>

#include "forms/archive/ArchiveForm.h"
#include "forms/graphs/FrmOkumFieldStrength.h"
#include "forms/graphs/GraphForm.h"
#include "forms/graphs/ValuesForm.h"
#include "forms/help/AboutForm.h"
#include "forms/help/frmInfoScreen.h"
#include "forms/main/MainForm.h"
#include "forms/reports/FrmPrintOut.h"
#include "forms/reports/FrmReport.h"
#include "forms/reports/frmLogDistRange.h"
#include "forms/reports/frmPrinterSelect.h"
#include "forms/tools/ExplainForm.h"
#include "forms/tools/MeasuredForm.h"
#include "forms/tools/ReachForm.h"
#include "forms/tools/TerrainForm.h"
#include "qt/windows/AboutWindow.h"
#include "qt/windows/GraphWindow.h"
#include "qt/windows/InfoWindow.h"
#include "qt/windows/MainWindow.h"
#include "qt/windows/PrintWindows.h"
#include "qt/windows/RangeWindow.h"
#include "qt/windows/ReportWindow.h"
#include "qt/windows/ValuesWindow.h"
#include "qt/windows/tools/ArchiveWindow.h"
#include "qt/windows/tools/ExplainWindow.h"
#include "qt/windows/tools/MeasuredWindow.h"
#include "qt/windows/tools/ReachWindow.h"
#include "qt/windows/tools/TerrainWindow.h"

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
    if (auto* reach = dynamic_cast<ReachForm*>(&form)) return std::make_unique<ReachWindow>(*reach);
    if (auto* terrain = dynamic_cast<TerrainForm*>(&form))
        return std::make_unique<TerrainWindow>(*terrain);
    if (auto* explain = dynamic_cast<ExplainForm*>(&form))
        return std::make_unique<ExplainWindow>(*explain);
    if (auto* measured = dynamic_cast<MeasuredForm*>(&form))
        return std::make_unique<MeasuredWindow>(*measured);
    if (auto* archive = dynamic_cast<ArchiveForm*>(&form))
        return std::make_unique<ArchiveWindow>(*archive);
    if (auto* values = dynamic_cast<ValuesForm*>(&form))
        return std::make_unique<ValuesWindow>(*values);
    throw std::logic_error("No window for the form " + form.Name());
}

}  // namespace vardel
