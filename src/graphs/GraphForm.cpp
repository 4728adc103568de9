#include "graphs/GraphForm.h"

#include <array>

#include "graphs/GraphActions.h"
#include "help/ContextIDs.h"
#include "platform/Platform.h"
#include "workbench/BoxRule.h"
#include "workbench/MainForm.h"
#include "workbench/Program.h"
#include "workbench/Units.h"

namespace vardel {

namespace {

struct RuledBox {
    TextBox GraphForm::*box;
    BoxRule rule;
};

// Narrower than the main form's rules in places; the base height's message tells another limit.
constexpr std::array<RuledBox, 5> RuledBoxes = {{
    {&GraphForm::txtFreq,
     {150, 2000, 150, "Valid Frequency Range 150 MHz to 2000 MHz", InputPattern}},
    {&GraphForm::txthb,
     {30, 2500, 30, "Valid Height of Base Station Antenna is 30m to 200m", InputPattern}},
    {&GraphForm::txthm, {1, 30, 1, "Valid Height of Mobile Antenna is 1m to 30m", InputPattern}},
    {&GraphForm::txtPctTime, {1, 99, 50, "Percent Range 1 to 99", "#0"}},
    {&GraphForm::txtPctLoc, {1, 99, 50, "Percent Range 1 to 99", "#0"}},
}};

}  // namespace

GraphForm::GraphForm(Program& program)
    : Form(program.platform, "GraphForm", "dB Loss Graph"), program_(program) {
    SetAppearance();
    WireEvents();
}

void GraphForm::SetAppearance() {
    txtPctLoc.SetToolTipText("Range: 1 - 99");
    txtPctTime.SetToolTipText("Range: 1 - 99");
    cmdUpdateGraph.SetToolTipText("Replot The Graph ");
    cmbcitysize.SetToolTipText("Select From List");
    cmbareatype.SetToolTipText("Select From List");
    txtFreq.SetToolTipText("Range 150MHz - 2000 MHz");
    txthb.SetToolTipText("Range 30m - 200m");
    txthm.SetToolTipText("Range 1m - 30m");
    for (MenuItem* mark : {&mnuUnitsMetric, &mnuUnitsEnglish, &mnuGraph100, &mnuGraph300})
        mark->SetCheckable(true);

    SetHelpContextID(TopicInputs);
    for (TextBox* box : {&txtFreq, &txthb, &txthm}) box->SetHelpContextID(TopicInputs);
    cmbareatype.SetHelpContextID(TopicArea);
    cmbcitysize.SetHelpContextID(TopicArea);
    txtPctTime.SetHelpContextID(TopicPercentTime);
    txtPctLoc.SetHelpContextID(TopicPercentLocation);
}

void GraphForm::WireEvents() {
    for (const RuledBox& ruled : RuledBoxes) {
        TextBox& box = this->*ruled.box;
        box.LostFocus = [this, &box, &rule = ruled.rule] {
            ApplyBoxRule(box, rule, *this);
            MarkStale();
        };
    }
    cmbareatype.Click = [this] { cmbareatype_Click(); };
    cmbcitysize.Click = [this] { MarkStale(); };
    cmdUpdateGraph.Click = [this] { cmdUpdateGraph_Click(); };
    lblBaseAntenna.Click = [this] { cmdArchiveData.SetVisible(!cmdArchiveData.Visible()); };

    mnuFileSave.Click = [this] { SaveGraph(*this, CTWX1); };
    mnuFileCopyToReportLog.Click = [this] { CopyGraphToLog(program_, CTWX1); };
    mnuFileClose.Click = [this] { Unload(); };
    mnuUnitsMetric.Click = [this] { SetMetricUnits(program_); };
    mnuUnitsEnglish.Click = [this] { SetEnglishUnits(program_); };
    mnuGraph100.Click = [this] { SetMaxDist(100.0); };
    mnuGraph300.Click = [this] { SetMaxDist(300.0); };

    // What these lead to is not there yet.
    cmdPrintGraph.SetEnabled(false);
    cmdArchiveData.SetEnabled(false);
    mnuFilePrint.SetEnabled(false);
    mnuFilePrintSetup.SetEnabled(false);
}

void GraphForm::Form_Load() {
    MaxDist = 100.0;
    mnuGraph100.SetChecked(true);
    mnuGraph300.SetChecked(false);
    cmdArchiveData.SetVisible(false);
    GoodPicture = GetPlatform().programDirectory + "/goodbutton.bmp";
    BadPicture = GetPlatform().programDirectory + "/badbutton.bmp";

    const MainForm& main = *program_.MainForm;
    txthm.SetText(main.txthm.Text());
    txthb.SetText(main.txthb.Text());
    txtFreq.SetText(main.txtFreq.Text());
    txtPctTime.SetText(main.txtPctTime.Text());
    txtPctLoc.SetText(main.txtPctLoc.Text());
    cmbareatype.SetText(main.cmbareatype.Text());
    cmbcitysize.SetText(main.cmbcitysize.Text());
    mnuUnitsMetric.SetChecked(main.mnuUnitsMetric.Checked());
    mnuUnitsEnglish.SetChecked(main.mnuUnitsEnglish.Checked());
    for (Label* unit : {&Label10, &Label11}) unit->SetCaption(main.Label10.Caption());
    cmbcitysize.SetEnabled(cmbareatype.Text() == "Urban");
    if (PlotLossGraph(false))
        MarkGood();
    else
        MarkStale();
}

// Each of these writes is an edit of the main form's control.
void GraphForm::Form_Unload() {
    MainForm& main = *program_.MainForm;
    main.txthm.SetText(txthm.Text());
    main.txthb.SetText(txthb.Text());
    main.txtFreq.SetText(txtFreq.Text());
    main.cmbareatype.SetText(cmbareatype.Text());
    main.cmbcitysize.SetText(cmbcitysize.Text());
    main.txtPctTime.SetText(txtPctTime.Text());
    main.txtPctLoc.SetText(txtPctLoc.Text());
    main.mnuUnitsMetric.SetChecked(mnuUnitsMetric.Checked());
    main.mnuUnitsEnglish.SetChecked(mnuUnitsEnglish.Checked());
}

void GraphForm::MarkGood() { ShowGraphState(cmdUpdateGraph, GoodPicture, true); }
void GraphForm::MarkStale() { ShowGraphState(cmdUpdateGraph, BadPicture, false); }

void GraphForm::cmbareatype_Click() {
    MarkStale();
    ApplyAreaRule(cmbareatype, cmbcitysize);
}

void GraphForm::cmdUpdateGraph_Click() {
    MarkGood();
    if (!PlotLossGraph(true)) MarkStale();
}

void GraphForm::SetMaxDist(double maxDist) {
    MaxDist = maxDist;
    MarkStale();
    mnuGraph100.SetChecked(maxDist == 100.0);
    mnuGraph300.SetChecked(maxDist == 300.0);
}

}  // namespace vardel
