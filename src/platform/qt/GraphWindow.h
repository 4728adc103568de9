#pragma once

#include "platform/qt/FormWindow.h"

namespace vardel {

class GraphForm;

// GraphForm on the screen: the inputs at the left, the chart beside them.
class GraphWindow : public FormWindow {
public:
    explicit GraphWindow(GraphForm& form);

private:
    QWidget* MakeInputs(GraphForm& form);
};

}  // namespace vardel
