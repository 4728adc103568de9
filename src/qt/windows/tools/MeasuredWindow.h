#pragma once

#include "qt/windows/FormWindow.h"

namespace vardel {

class MeasuredForm;

// The measured data against the models on the screen: the table of errors, and their chart below.
class MeasuredWindow : public FormWindow {
public:
    explicit MeasuredWindow(MeasuredForm& form);
};

}  // namespace vardel
