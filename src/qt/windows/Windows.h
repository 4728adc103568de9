#pragma once

#include <memory>

#include "qt/windows/FormWindow.h"

namespace vardel {

class AboutForm;
class ArchiveForm;
class ExplainForm;
class frmInfoScreen;
class frmLogDistRange;
class FrmOkumFieldStrength;
class frmPrinterSelect;
class FrmPrintOut;
class FrmReport;
class GraphForm;
class MainForm;
class MeasuredForm;
class ReachForm;
class TerrainForm;
class ValuesForm;

// The window of each form. What it is made of is its own file's matter.
std::unique_ptr<FormWindow> WindowOf(MainForm& form);
std::unique_ptr<FormWindow> WindowOf(FrmReport& form);
std::unique_ptr<FormWindow> WindowOf(GraphForm& form);
std::unique_ptr<FormWindow> WindowOf(FrmOkumFieldStrength& form);
std::unique_ptr<FormWindow> WindowOf(frmLogDistRange& form);
std::unique_ptr<FormWindow> WindowOf(frmInfoScreen& form);
std::unique_ptr<FormWindow> WindowOf(AboutForm& form);
std::unique_ptr<FormWindow> WindowOf(FrmPrintOut& form);
std::unique_ptr<FormWindow> WindowOf(frmPrinterSelect& form);
std::unique_ptr<FormWindow> WindowOf(ValuesForm& form);
std::unique_ptr<FormWindow> WindowOf(ArchiveForm& form);
std::unique_ptr<FormWindow> WindowOf(ExplainForm& form);
std::unique_ptr<FormWindow> WindowOf(MeasuredForm& form);
std::unique_ptr<FormWindow> WindowOf(ReachForm& form);
std::unique_ptr<FormWindow> WindowOf(TerrainForm& form);

// That of any of these forms. Throws std::logic_error for another.
std::unique_ptr<FormWindow> MakeWindow(Form& form);

}  // namespace vardel
