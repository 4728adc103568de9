#pragma once

#include "forms/SharedData.h"
#include "forms/graphs/GraphExport.h"
#include "forms/graphs/PlotForm.h"
#include "forms/shared/PowerUnitList.h"

namespace vardel {

// The window of the field strength graphs.
class FrmOkumFieldStrength : public PlotForm {
public:
    FrmOkumFieldStrength(Platform& platform, SharedData& shared, Doors& doors);

    // Plots what the program's GraphMode says. False, after a message, where a box holds no number:
    // the chart is as it was then.
    bool PlotFieldStrength(bool RedrawChart);
    // The graph of the variant for the United States, which no menu leads to.
    void SelectUsPlot();
    // Another graph with the inputs as they stand in the boxes.
    void SelectPlot(FieldStrengthGraph graph);
    // Takes what goes across at once while the form is open, and plots what GraphMode says: for a
    // form that was made hidden.
    void BringUpToDate();

    Chart& CTWXfs = chart_;
    Label& Label8 = baseAntenna_;
    Button& cmdAddToArchive = archive_;
    Label lblPower{*this, "lblPower", "Power"};
    TextBox txtPowerUnit{*this, "txtPowerUnit", "1"};
    ComboBox cmbPowerUnit;

    MenuItem mnuFilePrint{mnuFile, "mnuFilePrint", "Print"};
    MenuItem mnuFilePrinterSetup{mnuFile, "mnuFilePrinterSetup", "Printer Setup"};
    MenuItem mnuFileExit{mnuFile, "mnuFileExit", "&Close"};
    MenuItem mnuModel{*this, "mnuModel", "&Model"};
    MenuItem mnuModelPalvernFS{mnuModel, "mnuModelPalvernFS",
                               "Field Strength (&Okum-Hata Davidson)"};
    MenuItem mnuModelOkum529FS{mnuModel, "mnuModelOkum529FS",
                               "Field Strength (ITU-R P.&529 Okum-Hata)"};
    MenuItem mnuModelCost231{mnuModel, "mnuModelCost231", "Field Strength (&Cost 231)"};
    MenuItem mnuModelCompare{mnuModel, "mnuModelCompare", "Compare &Models"};
    MenuItem mnuGraphSep{mnuModel, "mnuGraphSep", "-"};
    MenuItem mnuGraphMeasured{mnuModel, "mnuGraphMeasured", "&Show Measured Data"};
    MenuItem mnuModelDist{mnuModel, "mnuModelDist", "Max &Distance"};
    MenuItem mnuModelDist100{mnuModelDist, "mnuModelDist100", "&100 Km"};
    MenuItem mnuModelDist300{mnuModelDist, "mnuModelDist300", "&300 Km"};

    ThresholdLine& Threshold() override { return threshold_; }
    GraphView& View() override { return view_; }
    GraphExport& Export() { return export_; }

private:
    void Form_Load() override;
    void Form_Unload() override;
    void WireEvents();
    void CheckModelMenu();
    void ReplotMode(FieldStrengthGraph graph);
    void SelectMaxDist(double maxDist);
    void cmdAddToArchive_Click();
    void txtPowerUnit_LostFocus();
    void cmbPowerUnit_Click();

    // FieldStrengthPlot.cpp
    bool Replot() override { return PlotFieldStrength(true); }
    GraphCurves CurvesOf(const ModelInputs& inputs) override;
    void AddToPlot(CurvePlot& plot, const ModelInputs& inputs) override;
    void SetScalesAndTitles() override;
    void SetTitles();

    ThresholdLine threshold_{*this, CTWXfs,
                             shared_.FieldStrengthThreshold};  // behind the fixed menus
    GraphView view_{*this, CTWXfs, shared_.FieldStrengthScales};
    GraphExport export_{mnuFile, CTWXfs};
};

}  // namespace vardel
