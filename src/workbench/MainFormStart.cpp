#include "models/Primitives.h"
#include "platform/Files.h"
#include "reports/FrmReport.h"
#include "reports/LogLine.h"
#include "reports/RLogClass.h"
#include "workbench/MainForm.h"
#include "workbench/Program.h"
#include "workbench/Units.h"

namespace vardel {

void MainForm::Form_Load() {
    SetDefaultInputs();
    program_.ReportLog().SetTitle(LogColumnHeader);
    program_.FrmReport->rtbLog.SetRightMargin(32000);
    program_.TempLogFile = NewUniqueFile(GetPlatform().stateDirectory);
    program_.ReportLog().AddTitle();
}

// The percentages are not among the defaults.
void MainForm::SetDefaultInputs() {
    program_.PowerUnit = 1;
    cmbPowerUnit.SetText("kW e.r.p.");
    PowerWatts = 1000.0;
    txtPowerUnit.SetText("1");
    txtFreq.SetText("450.0");
    txtDist.SetText("10.0");
    txthb.SetText("100.0");
    txthm.SetText("1.5");
    cmbareatype.SetText("Urban");
    cmbcitysize.SetText("Small/Medium");
    Label10.SetCaption("m");
    Label11.SetCaption("m");
    Label12.SetCaption("Km");
    mnuUnitsMetric.SetChecked(true);
    mnuUnitsEnglish.SetChecked(false);
    for (Label* value : {&lblcost231, &lblFITU529, &lblFCost231}) value->SetBackColor(Black);
    // Metric is marked already, so the other forms keep their units until they are next opened.
    SetMetricUnits(program_);
}

void MainForm::mnuFileExit_Click() {
    const Answer answer =
        GetPlatform().windows.ShowMessage({.text = "This Concludes the Loss Calculation Program",
                                           .title = "Loss Calculation Program",
                                           .buttons = Message::Buttons::OkCancel});
    if (answer == Answer::Ok) Unload();
}

void MainForm::Form_Unload() { GetPlatform().windows.EndProgram(); }

}  // namespace vardel
