#pragma once

#include "qt/windows/FormWindow.h"

namespace vardel {

class ExplainForm;

// ExplainForm on the screen. Escape closes it.
class ExplainWindow : public FormWindow {
public:
    explicit ExplainWindow(ExplainForm& form);
};

}  // namespace vardel
