#include "forms/graphs/GraphForm.h"

#include "forms/Doors.h"
#include "forms/SharedData.h"
#include "forms/graphs/GraphActions.h"
#include "forms/help/ContextIDs.h"
#include "forms/main/MainForm.h"

namespace vardel {

GraphForm::GraphForm(Platform& platform, SharedData& shared, Doors& doors)
    : PlotForm(platform, shared, doors,
               {.form = "GraphForm",
                .caption = "dB Loss Graph",
                .chart = "CTWX1",
                .chartTitle = "dB Loss Calculation",
                .distanceTitle = "Distance (Km)",
                .valueTitle = "dB",
                .baseAntennaLabel = "lblBaseAntenna",
                .archiveButton = "cmdArchiveData"}) {
    SetHelpContextID(HelpTopic::Inputs);
    mnuGraph100.SetCheckable(true);
    mnuGraph300.SetCheckable(true);

    lblBaseAntenna.Click = [this] { cmdArchiveData.SetVisible(!cmdArchiveData.Visible()); };
    cmdArchiveData.Click = [this] { cmdArchiveData_Click(); };
    mnuFileCopyToReportLog.Click = [this] { CopyGraphToLog(doors_, CTWX1); };
    mnuFileClose.Click = [this] { Unload(); };
    mnuGraph100.Click = [this] { SetMaxDist(100.0, mnuGraph100, mnuGraph300); };
    mnuGraph300.Click = [this] { SetMaxDist(300.0, mnuGraph100, mnuGraph300); };
    mnuFilePrint.SetShortcut("Ctrl+P");
    view_.mnuViewValues.Click = [this] { ShowValues(); };
    mnuFilePrint.Click = [this] { cmdPrintGraph_Click(); };
    mnuFilePrintSetup.Click = [this] { CTWX1.PrinterSetup(); };
}

void GraphForm::Form_Load() {
    SetMaxDist(100.0, mnuGraph100, mnuGraph300);
    LoadInputs(*doors_.MainForm);
    if (PlotLossGraph(false)) MarkGood();
}

void GraphForm::BringUpToDate() {
    threshold_.BringUpToDate();
    view_.BringUpToDate();
    TakeUnitsAfresh();
    ShowHandBack();
    cmdUpdateGraph.Press();
}

void GraphForm::Form_Unload() {
    PlotForm::Form_Unload();
    if (!doors_.MainForm.Loaded()) return;
    MainForm& main = *doors_.MainForm;
    HandBackInputs(main);
    main.mnuUnitsMetric.SetChecked(mnuUnitsMetric.Checked());
    main.mnuUnitsEnglish.SetChecked(mnuUnitsEnglish.Checked());
}

void GraphForm::cmdArchiveData_Click() { StoreInArchive(Quantity::Loss); }

}  // namespace vardel
