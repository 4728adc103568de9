#pragma once

#include "qt/windows/FormWindow.h"

namespace vardel {

class ArchiveForm;

// The archive on the screen: the list of runs, and the chart of the one that is selected.
class ArchiveWindow : public FormWindow {
public:
    explicit ArchiveWindow(ArchiveForm& form);

private:
    QWidget* MakeHead(ArchiveForm& form);
    QWidget* MakeButtons(ArchiveForm& form);
};

}  // namespace vardel
