#pragma once

#include "forms/SharedData.h"
#include "forms/graphs/GraphExport.h"
#include "forms/graphs/PlotForm.h"

namespace vardel {

// The window of the loss graph: the three models and free space.
class GraphForm : public PlotForm {
public:
    GraphForm(Platform& platform, SharedData& shared, Doors& doors);

    // False where a box holds no number: the chart is as it was then. A redraw says so.
    bool PlotLossGraph(bool RedrawChart);
    // Before it is shown where it was made earlier, hidden: with the graph of its inputs as they
    // stand, which a unit switch may have written since.
    void BringUpToDate();

    Chart& CTWX1 = chart_;
    Label& lblBaseAntenna = baseAntenna_;
    Button& cmdArchiveData = archive_;

    MenuItem mnuFileCopyToReportLog{mnuFile, "mnuFileCopyToReportLog", "Copy to &Report Log"};
    MenuItem mnuFilePrint{mnuFile, "mnuFilePrint", "Print"};
    MenuItem mnuFilePrintSetup{mnuFile, "mnuFilePrintSetup", "&Printer Setup"};
    MenuItem mnuFileClose{mnuFile, "mnuFileClose", "&Close"};
    MenuItem mnuGraph{*this, "mnuGraph", "&Graph"};
    MenuItem mnuGraph100{mnuGraph, "mnuGraph100", "Max Dist &100 Km"};
    MenuItem mnuGraph300{mnuGraph, "mnuGraph300", "Max Dist &300 Km"};

    ThresholdLine& Threshold() override { return threshold_; }
    GraphView& View() override { return view_; }
    GraphExport& Export() { return export_; }

private:
    void Form_Load() override;
    void Form_Unload() override;
    void cmdArchiveData_Click();
    bool Replot() override { return PlotLossGraph(true); }
    GraphCurves CurvesOf(const ModelInputs& inputs) override { return LossCurves(inputs); }
    void SetScalesAndTitles() override;
    void SetTitles();

    ThresholdLine threshold_{*this, CTWX1, shared_.LossThreshold};  // behind the fixed menus
    GraphView view_{*this, CTWX1, shared_.LossScales};
    GraphExport export_{mnuFile, CTWX1};
};

}  // namespace vardel
