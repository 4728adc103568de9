#pragma once

#include "qt/windows/FormWindow.h"

namespace vardel {

class ReachForm;

// ReachForm on the screen: what is wanted, the table, the station on the map. Escape closes it.
class ReachWindow : public FormWindow {
public:
    explicit ReachWindow(ReachForm& form);

private:
    QWidget* MakeWanted(ReachForm& form);
    QWidget* MakeTable(ReachForm& form);
    QWidget* MakeMap(ReachForm& form);
    QWidget* MakeButtons(ReachForm& form);
    void AddCell(Label& cell, const std::string& what, QGridLayout& grid, int row, int column);
};

}  // namespace vardel
