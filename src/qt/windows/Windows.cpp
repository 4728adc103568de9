#include "qt/windows/Windows.h"

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

namespace vardel {

namespace {

template <class... Forms>
std::unique_ptr<FormWindow> WindowOfOne(Form& form) {
    std::unique_ptr<FormWindow> window;
    const auto make = [&](auto* kind) {
        if (kind != nullptr) window = WindowOf(*kind);
        return kind != nullptr;
    };
    (make(dynamic_cast<Forms*>(&form)) || ...);
    return window;
}

}  // namespace

std::unique_ptr<FormWindow> MakeWindow(Form& form) {
    auto window = WindowOfOne<MainForm, FrmReport, GraphForm, FrmOkumFieldStrength, frmLogDistRange,
                              frmInfoScreen, AboutForm, FrmPrintOut, frmPrinterSelect, ValuesForm,
                              ArchiveForm, ExplainForm, MeasuredForm, ReachForm, TerrainForm>(form);
    if (!window) throw std::logic_error("No window for the form " + form.Name());
    return window;
}

}  // namespace vardel
