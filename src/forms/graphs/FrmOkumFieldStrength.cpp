#include "forms/graphs/FrmOkumFieldStrength.h"

#include "controls/Hourglass.h"
#include "forms/Doors.h"
#include "forms/SharedData.h"
#include "forms/graphs/GraphActions.h"
#include "forms/help/ContextIDs.h"
#include "forms/main/MainForm.h"
#include "models/Primitives.h"

namespace vardel {

FrmOkumFieldStrength::FrmOkumFieldStrength(Platform& platform, SharedData& shared, Doors& doors)
    : PlotForm(platform, shared, doors,
               {.form = "FrmOkumFieldStrength",
                .caption = "Field Strength Plot",
                .chart = "CTWXfs",
                .chartTitle = "Field Strength",
                .distanceTitle = "Distance (km)",
                .valueTitle = "dB (uv/m)",
                .baseAntennaLabel = "Label8",
                .archiveButton = "cmdAddToArchive"}),
      // On the main form's unit from the beginning: a change of it would rewrite the power's text.
      cmbPowerUnit(*this, "cmbPowerUnit", PowerUnitEntries(), static_cast<int>(shared.PowerUnit)) {
    SetHelpContextID(HelpTopic::FieldStrengthGraphs);
    for (MenuItem* mark : {&mnuModelPalvernFS, &mnuModelOkum529FS, &mnuModelCost231,
                           &mnuModelCompare, &mnuModelDist100, &mnuModelDist300})
        mark->SetCheckable(true);
    WireEvents();
}

void FrmOkumFieldStrength::WireEvents() {
    lblPower.Click = [this] { cmdAddToArchive.SetVisible(!cmdAddToArchive.Visible()); };
    cmdAddToArchive.Click = [this] { cmdAddToArchive_Click(); };
    txtPowerUnit.LostFocus = [this] { txtPowerUnit_LostFocus(); };
    cmbPowerUnit.Click = [this] { cmbPowerUnit_Click(); };

    mnuFileExit.Click = [this] { Unload(); };
    mnuModelPalvernFS.Click = [this] { SelectPlot(FieldStrengthGraph::Davidson); };
    mnuModelOkum529FS.Click = [this] { SelectPlot(FieldStrengthGraph::Itu529); };
    mnuModelCost231.Click = [this] { SelectPlot(FieldStrengthGraph::Cost231); };
    mnuModelCompare.Click = [this] { SelectPlot(FieldStrengthGraph::Comparison); };
    mnuGraphMeasured.Click = [this] { ToggleMeasuredData(shared_, mnuGraphMeasured); };
    mnuModelDist100.Click = [this] { SelectMaxDist(100.0); };
    mnuModelDist300.Click = [this] { SelectMaxDist(300.0); };
    mnuFilePrint.SetShortcut("Ctrl+P");
    view_.mnuViewValues.Click = [this] { ShowValues(); };
    mnuFilePrint.Click = [this] { cmdPrintGraph_Click(); };
    mnuFilePrinterSetup.Click = [this] { CTWXfs.PrinterSetup(); };
}

void FrmOkumFieldStrength::Form_Load() {
    const MainForm& main = *doors_.MainForm;
    txthb.SetEnabled(shared_.GraphMode == FieldStrengthGraph::Comparison);
    SetMaxDist(100.0, mnuModelDist100, mnuModelDist300);
    mnuGraphMeasured.SetCaption(MeasuredCaption(shared_.ShowMeasuredData));
    LoadInputs(main);
    txtPowerUnit.SetText(main.txtPowerUnit.Text());
    CheckModelMenu();
    if (PlotFieldStrength(false)) MarkGood();
}

void FrmOkumFieldStrength::Form_Unload() {
    PlotForm::Form_Unload();
    if (!doors_.MainForm.Loaded()) return;
    MainForm& main = *doors_.MainForm;
    HandBackInputs(main);
    main.mnuGraphMeasured.SetCaption(mnuGraphMeasured.Caption());
}

void FrmOkumFieldStrength::CheckModelMenu() {
    const FieldStrengthGraph mode = shared_.GraphMode;
    mnuModelPalvernFS.SetChecked(mode == FieldStrengthGraph::Davidson);
    mnuModelOkum529FS.SetChecked(mode == FieldStrengthGraph::Itu529);
    mnuModelCost231.SetChecked(mode == FieldStrengthGraph::Cost231);
    mnuModelCompare.SetChecked(mode == FieldStrengthGraph::Comparison);
}

// A graph that was marked stale stays so, though this takes in all the inputs.
void FrmOkumFieldStrength::ReplotMode(FieldStrengthGraph graph) {
    const Hourglass hourglass(*this);
    shared_.GraphMode = graph;
    CheckModelMenu();
    if (!PlotFieldStrength(true)) MarkStale();
}

// Called from the main form, too, while the form may be closed at the plot's yield.
void FrmOkumFieldStrength::SelectPlot(FieldStrengthGraph graph) {
    Run([this, graph] {
        ReplotMode(graph);
        txthb.SetEnabled(graph == FieldStrengthGraph::Comparison);
    });
}

// The unit's change rewrites the power's text, which is put back.
void FrmOkumFieldStrength::BringUpToDate() {
    Run([this] {
        MainForm& main = *doors_.MainForm;
        const std::string power = main.txtPowerUnit.Text();
        cmbPowerUnit.SetText(main.cmbPowerUnit.Text());
        main.txtPowerUnit.SetText(power);
        txtPowerUnit.SetText(power);
        mnuGraphMeasured.SetCaption(MeasuredCaption(shared_.ShowMeasuredData));
        threshold_.BringUpToDate();
        view_.BringUpToDate();
        const bool anew = TakeUnitsAfresh();
        ShowHandBack();
        SelectPlot(shared_.GraphMode);
        if (anew && !Unloaded()) cmdUpdateGraph.Press();
    });
}

void FrmOkumFieldStrength::SelectUsPlot() { ReplotMode(FieldStrengthGraph::Us); }

void FrmOkumFieldStrength::SelectMaxDist(double maxDist) {
    if (MaxDist != maxDist) SetMaxDist(maxDist, mnuModelDist100, mnuModelDist300);
}

void FrmOkumFieldStrength::cmdAddToArchive_Click() { StoreInArchive(Quantity::FieldStrength); }

// The power goes to the main form at once, not only when the form closes.
void FrmOkumFieldStrength::txtPowerUnit_LostFocus() {
    txtPowerUnit.SetText(CorrectedPowerText(txtPowerUnit.Text(), shared_.PowerUnit));
    doors_.MainForm->txtPowerUnit.SetText(txtPowerUnit.Text());
    PowerWatts = PowerTextToWatts(txtPowerUnit.Text(), shared_.PowerUnit);
    MarkStale();
}

void FrmOkumFieldStrength::cmbPowerUnit_Click() {
    MainForm& main = *doors_.MainForm;
    shared_.PowerUnit = SelectedPowerUnit(cmbPowerUnit);
    txtPowerUnit.SetText(PowerText(PowerWatts, shared_.PowerUnit));
    main.cmbPowerUnit.SetText(cmbPowerUnit.Text());
    main.txtPowerUnit.SetText(txtPowerUnit.Text());
}

}  // namespace vardel
