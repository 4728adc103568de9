#pragma once

#include "qt/windows/FormWindow.h"

namespace vardel {

class TerrainForm;

// TerrainForm on the screen: the inputs above the table of azimuths, the map beside them. Escape
// closes it.
class TerrainWindow : public FormWindow {
public:
    explicit TerrainWindow(TerrainForm& form);

private:
    QWidget* MakeInputs(TerrainForm& form);
    QWidget* MakeMap(TerrainForm& form);
    QWidget* MakeTable(TerrainForm& form);
    QWidget* MakeButtons(TerrainForm& form);
};

}  // namespace vardel
