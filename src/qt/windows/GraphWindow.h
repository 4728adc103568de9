#pragma once

#include "qt/windows/FormWindow.h"

namespace vardel {

class FrmOkumFieldStrength;
class GraphForm;
class GraphView;
class PlotForm;
class ThresholdLine;

// The graph forms on the screen: the inputs at the left, the chart beside them.
class GraphWindow : public FormWindow {
public:
    explicit GraphWindow(GraphForm& form);
    explicit GraphWindow(FrmOkumFieldStrength& form);

private:
    void LayOut(PlotForm& form, QGridLayout& inputs);
    QGridLayout* AddInputs(PlotForm& form);
    void AddButtons(PlotForm& form, QGridLayout& inputs);
    QWidget* MakeThreshold(ThresholdLine& threshold);
    QWidget* MakeRanges(GraphView& view);
    void UncoverByKeys(Label& label);
};

}  // namespace vardel
