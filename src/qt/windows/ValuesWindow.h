#pragma once

#include "qt/windows/FormWindow.h"

namespace vardel {

class ValuesForm;

// The values of a chart on the screen, as a table.
class ValuesWindow : public FormWindow {
public:
    explicit ValuesWindow(ValuesForm& form);
};

}  // namespace vardel
