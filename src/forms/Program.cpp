#include "forms/Program.h"

#include "forms/graphs/FrmOkumFieldStrength.h"
#include "forms/graphs/GraphForm.h"
#include "forms/help/AboutForm.h"
#include "forms/help/frmInfoScreen.h"
#include "forms/main/MainForm.h"
#include "forms/reports/FrmPrintOut.h"
#include "forms/reports/FrmReport.h"
#include "forms/reports/RLogClass.h"
#include "forms/reports/frmLogDistRange.h"
#include "forms/reports/frmPrinterSelect.h"

namespace vardel {

namespace {

template <class T>
typename FormSlot<T>::Made Make(Program& program) {
    auto form = std::make_unique<T>(program);
    T* typed = form.get();
    return {std::move(form), typed};
}

}  // namespace

Program::Program(Platform services)
    : platform(std::move(services)),
      MainForm([this] { return Make<vardel::MainForm>(*this); }),
      FrmReport([this] { return Make<vardel::FrmReport>(*this); }),
      GraphForm([this] { return Make<vardel::GraphForm>(*this); }),
      FrmOkumFieldStrength([this] { return Make<vardel::FrmOkumFieldStrength>(*this); }),
      frmLogDistRange([this] { return Make<vardel::frmLogDistRange>(*this); }),
      frmInfoScreen([this] { return Make<vardel::frmInfoScreen>(*this); }),
      AboutForm([this] { return Make<vardel::AboutForm>(*this); }),
      FrmPrintOut([this] { return Make<vardel::FrmPrintOut>(*this); }),
      frmPrinterSelect([this] { return Make<vardel::frmPrinterSelect>(*this); }) {}

Program::~Program() = default;

void Program::Start() { MainForm->Show(); }

void Program::Introduce() {
    if (MainForm.Loaded()) MainForm->ShowIntroduction();
}

void Program::EndSession() {
    if (!MainForm.Loaded()) return;
    MainForm->Run([this] {
        if (frmLogDistRange.Loaded()) frmLogDistRange->EndSession();
        if (GraphForm.Loaded()) GraphForm->HandBackInputs(*MainForm);
        if (FrmOkumFieldStrength.Loaded()) FrmOkumFieldStrength->HandBackInputs(*MainForm);
        MainForm->EndSession();
    });
}

RLogClass& Program::ReportLog() {
    if (!reportLog_) reportLog_ = std::make_unique<RLogClass>(*this);
    return *reportLog_;
}

}  // namespace vardel
