#pragma once

#include <array>

#include "forms/graphs/chart/Chart.h"

namespace vardel {

struct GraphScales;

// How the user looks at a graph: its distances on a logarithmic axis, ranges of his own for both
// axes, and curves switched off. All is as the graph has it until he asks for something else.
class GraphView {
public:
    GraphView(Form& form, Chart& chart, GraphScales& setting);

    // The setting was changed elsewhere.
    void BringUpToDate();

    MenuItem mnuView;
    MenuItem mnuViewLog{mnuView, "mnuViewLog", "&Logarithmic Distance"};
    MenuItem mnuViewRanges{mnuView, "mnuViewRanges", "&Own Ranges"};
    MenuItem mnuViewCurves{mnuView, "mnuViewCurves", "All &Curves"};
    MenuItem mnuViewValues{mnuView, "mnuViewValues", "&Values as a Table ..."};
    // For each axis from where and to where.
    std::array<Label, 2> lblFrom;
    std::array<TextBox, 2> txtFrom;
    std::array<Label, 2> lblTo;
    std::array<TextBox, 2> txtTo;
    std::array<Label, 2> lblUnit;

private:
    void mnuViewRanges_Click();
    void RangeBox_Change();
    void Show();
    void FillBoxes();

    Chart& chart_;
    GraphScales& setting_;
    bool filling_ = false;
};

}  // namespace vardel
