#pragma once

#include "qt/windows/FormWindow.h"

namespace vardel {

class frmLogDistRange;

// frmLogDistRange on the screen. What a run shows stands in the place of what it hides, so that the
// window keeps its size. Enter begins a run, Escape ends it or closes the window.
class RangeWindow : public FormWindow {
public:
    explicit RangeWindow(frmLogDistRange& form);

private:
    QWidget* MakeInputs(frmLogDistRange& form);
    QWidget* MakeDistance(frmLogDistRange& form);
    QWidget* MakeProgress(frmLogDistRange& form);
    QWidget* MakeClearLog(frmLogDistRange& form);
    void SetKeys();

    QPushButton* begin_;
    QPushButton* exit_;
};

}  // namespace vardel
