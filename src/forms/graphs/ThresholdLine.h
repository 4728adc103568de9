#pragma once

#include "engine/curves/CurvePlot.h"
#include "forms/graphs/chart/Chart.h"

namespace vardel {

struct GraphThreshold;

// The line at a level that a graph shows once its user asks for it, with the reach of each curve.
// It is dragged in the chart or typed; what it says is of the curves as they were drawn.
class ThresholdLine {
public:
    ThresholdLine(Form& form, Chart& chart, GraphThreshold& setting);

    // Those of a plot, when the chart has its scales.
    void SetCurves(GraphCurves curves);
    // The setting was changed elsewhere.
    void BringUpToDate();

    MenuItem mnuTools;
    MenuItem mnuToolsThreshold{mnuTools, "mnuToolsThreshold", "&Threshold Line"};
    Label lblThreshold;
    TextBox txtThreshold;
    Label lblThresholdUnit;
    Label lblThresholdReach;  // of every curve

private:
    void txtThreshold_Change();
    void Show();

    Chart& chart_;
    GraphThreshold& setting_;
    GraphCurves curves_;
};

}  // namespace vardel
