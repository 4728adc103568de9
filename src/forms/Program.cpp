#include "forms/Program.h"

#include "forms/archive/ArchiveForm.h"
#include "forms/graphs/FrmOkumFieldStrength.h"
#include "forms/graphs/GraphForm.h"
#include "forms/graphs/ValuesForm.h"
#include "forms/help/AboutForm.h"
#include "forms/help/frmInfoScreen.h"
#include "forms/main/MainForm.h"
#include "forms/reports/FrmPrintOut.h"
#include "forms/reports/FrmReport.h"
#include "forms/reports/RLogClass.h"
#include "forms/reports/frmLogDistRange.h"
#include "forms/reports/frmPrinterSelect.h"
#include "forms/tools/ExplainForm.h"
#include "forms/tools/MeasuredForm.h"
#include "forms/tools/ReachForm.h"
#include "forms/tools/TerrainForm.h"

namespace vardel {

namespace {

template <class T, class... With>
typename FormSlot<T>::Made Make(With&... with) {
    auto form = std::make_unique<T>(with...);
    T* typed = form.get();
    return {std::move(form), typed};
}

// One that a unit switch has made, hidden, has no inputs that the user has seen there.
template <class Graph>
void HandBackIfOpen(FormSlot<Graph>& slot, MainForm& main) {
    if (slot.Loaded() && slot->Visible()) slot->HandBackInputs(main);
}

}  // namespace

Program::Program(Platform services)
    : Doors{
          .dbOperations = vardel::dbOperations(services.windows),
          .platform = std::move(services),
          .MainForm{[this] { return Make<vardel::MainForm>(platform, *this, *this); }},
          .FrmReport{[this] { return Make<vardel::FrmReport>(platform, *this); }},
          .GraphForm{[this] { return Make<vardel::GraphForm>(platform, *this, *this); }},
          .FrmOkumFieldStrength{
              [this] { return Make<vardel::FrmOkumFieldStrength>(platform, *this, *this); }},
          .frmLogDistRange{
              [this] { return Make<vardel::frmLogDistRange>(platform, *this, *this); }},
          .frmInfoScreen{[this] { return Make<vardel::frmInfoScreen>(platform); }},
          .AboutForm{[this] { return Make<vardel::AboutForm>(platform); }},
          .FrmPrintOut{[this] { return Make<vardel::FrmPrintOut>(platform, *this); }},
          .frmPrinterSelect{[this] { return Make<vardel::frmPrinterSelect>(platform); }},
          .ReachForm{[this] { return Make<vardel::ReachForm>(platform, *this, *this); }},
          .TerrainForm{[this] { return Make<vardel::TerrainForm>(platform, *this); }},
          .ExplainForm{[this] { return Make<vardel::ExplainForm>(platform, *this); }},
          .MeasuredForm{[this] { return Make<vardel::MeasuredForm>(platform, *this, *this); }},
          .ArchiveForm{[this] { return Make<vardel::ArchiveForm>(platform, *this, *this); }},
          .ValuesForm{[this] { return Make<vardel::ValuesForm>(platform, *this); }},
          .ReportLog = [this]() -> RLogClass& { return TheReportLog(); },
      } {}

Program::~Program() = default;

void Program::Start() { MainForm->Show(); }

void Program::Introduce() {
    if (MainForm.Loaded()) MainForm->ShowIntroduction();
}

void Program::EndSession() {
    ++SessionEnds;
    if (!MainForm.Loaded()) return;
    MainForm->Run([this] {
        if (frmLogDistRange.Loaded()) frmLogDistRange->EndSession();
        HandBackIfOpen(GraphForm, *MainForm);
        HandBackIfOpen(FrmOkumFieldStrength, *MainForm);
        MainForm->EndSession();
    });
}

void Program::EndWithoutDisplay() {
    DisplayLost = true;
    EndSession();
}

RLogClass& Program::TheReportLog() {
    if (!reportLog_) reportLog_ = std::make_unique<RLogClass>(platform, *this);
    return *reportLog_;
}

}  // namespace vardel
