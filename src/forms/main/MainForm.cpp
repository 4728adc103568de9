#include "forms/main/MainForm.h"

#include "forms/Doors.h"
#include "forms/SharedData.h"
#include "forms/archive/ArchiveForm.h"
#include "forms/graphs/FrmOkumFieldStrength.h"
#include "forms/graphs/GraphActions.h"
#include "forms/graphs/GraphForm.h"
#include "forms/help/AboutForm.h"
#include "forms/help/ContextIDs.h"
#include "forms/help/frmInfoScreen.h"
#include "forms/main/UnitSwitch.h"
#include "forms/reports/RLogClass.h"
#include "forms/reports/frmLogDistRange.h"
#include "forms/shared/Palette.h"
#include "forms/tools/ExplainForm.h"
#include "forms/tools/MeasuredForm.h"
#include "forms/tools/ReachForm.h"
#include "forms/tools/TerrainForm.h"
#include "models/ModelRanges.h"
#include "services/Platform.h"

namespace vardel {

const std::array<MainForm::ModelLabels, 3> MainForm::LabelsOfModels = {{
    {ModelNumber::Itu529, &MainForm::lblLITU529, &MainForm::lblOH529dBLoss, &MainForm::lblFITU529},
    {ModelNumber::Davidson, &MainForm::lblLDavidson, &MainForm::lblDavidson,
     &MainForm::lblPalvernDavFS},
    {ModelNumber::Cost231, &MainForm::lblLCost231, &MainForm::lblcost231, &MainForm::lblFCost231},
}};

MainForm::MainForm(Platform& platform, SharedData& shared, Doors& doors)
    : Form(platform, "MainForm", "Okumura-Hata Field Strength / Loss Calculations"),
      shared_(shared),
      doors_(doors),
      tempLog_(platform.stateDirectory) {
    SetAppearance();
    SetHelpTopics();
    WireEvents();
}

void MainForm::SetAppearance() {
    SetBackColor(Teal);
    for (Control* onTeal :
         {static_cast<Control*>(&Frame1), static_cast<Control*>(&Frame2),
          static_cast<Control*>(&cmbPowerUnit), static_cast<Control*>(&lblHelpRange)}) {
        onTeal->SetBackColor(Teal);
        onTeal->SetForeColor(White);
    }
    for (Label* caption :
         {&Label1,  &Label9, &Label2,  &Label12, &Label3,  &Label10,   &Label4,
          &Label11, &Label6, &Label13, &Label17, &Label5,  &Label35,   &Label27,
          &Label15, &Label7, &Label32, &Label8,  &Label24, &lblStatus, &lblArchive}) {
        caption->SetBackColor(Teal);
        caption->SetForeColor(White);
    }
    for (const ModelLabels& labels : LabelsOfModels) {
        for (Label& head : this->*labels.heads) {
            head.SetBackColor(Teal);
            head.SetForeColor(White);
            head.SetToolTipText("Hold for the model's range, and press F1 for its formula");
        }
    }
    for (Label* head : {&Label28, &lblFieldStrength}) {
        head->SetBackColor(DeepTeal);
        head->SetForeColor(Turquoise);
    }
    Line2.SetForeColor(DeepTeal);

    txtFreq.SetToolTipText("Range 30MHz - 2000 MHz");
    txtDist.SetToolTipText("1 km < Distance <= 300 km");
    txthb.SetToolTipText("Range 1m - 2500m");
    txthm.SetToolTipText("Range 1m - 30m");
    cmbareatype.SetToolTipText("Select From List");
    cmbcitysize.SetToolTipText("Select From List");
    txtPctTime.SetToolTipText("Range: 1-99");
    txtPctLoc.SetToolTipText("Range: 1-99");
    cmdLossCalc.SetToolTipText("Calculate Losses and Field Strengths");

    mnuUnitsMetric.SetCheckable(true);
    mnuUnitsEnglish.SetCheckable(true);
}

void MainForm::SetHelpTopics() {
    SetHelpContextID(HelpTopic::Inputs);
    for (Control* inputs : {static_cast<Control*>(&Frame1), static_cast<Control*>(&Frame2),
                            static_cast<Control*>(&txtFreq), static_cast<Control*>(&txtDist),
                            static_cast<Control*>(&txthb), static_cast<Control*>(&txthm)})
        inputs->SetHelpContextID(HelpTopic::Inputs);
    cmbareatype.SetHelpContextID(HelpTopic::Area);
    cmbcitysize.SetHelpContextID(HelpTopic::Area);
    txtPctTime.SetHelpContextID(HelpTopic::PercentTime);
    txtPctLoc.SetHelpContextID(HelpTopic::PercentLocation);
    cmdLossCalc.SetHelpContextID(HelpTopic::Calculation);
    mnuFile.SetHelpContextID(HelpTopic::FileMenu);
    mnuUnits.SetHelpContextID(HelpTopic::UnitsMenu);
    mnuCalculation.SetHelpContextID(HelpTopic::Calculation);
    mnuHelp.SetHelpContextID(HelpTopic::HelpMenu);
}

void MainForm::WireEvents() {
    WireInputRules();
    WireRangeHints();
    cmdLossCalc.Click = [this] { cmdLossCalc_Click(); };

    mnuFileNew.Click = [this] { SetDefaultInputs(); };
    mnuFileExit.Click = [this] { mnuFileExit_Click(); };
    mnuUnitsMetric.Click = [this] { SetMetricUnits(doors_); };
    mnuUnitsEnglish.Click = [this] { SetEnglishUnits(doors_); };
    mnuGraphdBloss.Click = [this] { ShowLossGraph(); };
    mnuOkumGraphFieldStrength.Click = [this] {
        ShowFieldStrengthGraph(FieldStrengthGraph::Davidson);
    };
    mnuOkum529GraphFieldStrength.Click = [this] {
        ShowFieldStrengthGraph(FieldStrengthGraph::Itu529);
    };
    mnuGraphCost231FieldStrength.Click = [this] {
        ShowFieldStrengthGraph(FieldStrengthGraph::Cost231);
    };
    mnuGraphCompare.Click = [this] { ShowFieldStrengthGraph(FieldStrengthGraph::Comparison); };
    mnuGraphMeasured.Click = [this] { ToggleMeasuredData(shared_, mnuGraphMeasured); };
    mnuFileExit.SetShortcut("Ctrl+Q");
    mnuToolsReach.Click = [this] { doors_.ReachForm->Show(); };
    mnuToolsReach.SetShortcut("Ctrl+R");
    mnuToolsTerrain.Click = [this] { doors_.TerrainForm->Show(); };
    mnuToolsTerrain.SetShortcut("Ctrl+T");
    mnuToolsExplain.Click = [this] { doors_.ExplainForm->Show(); };
    mnuToolsExplain.SetShortcut("Ctrl+E");
    mnuToolsMeasured.Click = [this] { doors_.MeasuredForm->Show(); };
    mnuToolsMeasured.SetShortcut("Ctrl+M");
    mnuToolsArchive.Click = [this] { doors_.ArchiveForm->Show(); };
    mnuToolsArchive.SetShortcut("Ctrl+D");
    mnuHelpInfo.Click = [this] { doors_.frmInfoScreen->ShowModal(this); };
    mnuHelpAbout.Click = [this] { doors_.AboutForm->ShowModal(); };
    mnuHelpVardel.Click = [this] { OpenManual(GetPlatform()); };
    lblFieldStrength.DblClick = [this] { lblFieldStrength_DblClick(); };
    mnuHideShow.Click = [this] { mnuHideShow_Click(); };
    mnuCalculationLog.Click = [this] { doors_.ReportLog().Show(); };
    mnuCalculationLogDist.Click = [this] { doors_.frmLogDistRange->ShowModal(this); };
    mnuCalculationCalculate.Click = [this] { cmdLossCalc_Click(); };
}

namespace {

// The program may be closed while the form loads, and under its message.
template <class Graph>
void OpenGraph(Doors& doors, FormSlot<Graph>& slot) {
    Graph& form = *slot;
    if (!doors.MainForm.Loaded()) return;
    form.TellRefusal();
    if (doors.MainForm.Loaded() && slot.Loaded()) slot->ShowModal();
}

}  // namespace

// A first plot yields, when an impatient second pick or the end of the program may come.
void MainForm::ShowLossGraph() {
    if (doors_.GraphForm.Loading()) return;
    if (doors_.GraphForm.Loaded()) doors_.GraphForm->BringUpToDate();
    if (!doors_.MainForm.Loaded()) return;
    OpenGraph(doors_, doors_.GraphForm);
}

// A form that a unit switch has made stands ready with its inputs, but with the graph of its
// making.
void MainForm::ShowFieldStrengthGraph(FieldStrengthGraph graph) {
    if (doors_.FrmOkumFieldStrength.Loading()) return;
    const bool made = doors_.FrmOkumFieldStrength.Loaded();
    shared_.GraphMode = graph;
    if (made) doors_.FrmOkumFieldStrength->BringUpToDate();
    if (!doors_.MainForm.Loaded()) return;
    OpenGraph(doors_, doors_.FrmOkumFieldStrength);
}

}  // namespace vardel
