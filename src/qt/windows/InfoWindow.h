#pragma once

#include "qt/windows/FormWindow.h"

namespace vardel {

class frmInfoScreen;

// frmInfoScreen on the screen: a title, the text, the table, and the choice at the foot.
class InfoWindow : public FormWindow {
public:
    explicit InfoWindow(frmInfoScreen& form);

private:
    QWidget* MakeTable(frmInfoScreen& form);
};

}  // namespace vardel
