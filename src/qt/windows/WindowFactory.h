#pragma once

#include <memory>

#include "qt/windows/FormWindow.h"

namespace vardel {

// The window class for each form: the one place that knows both.
std::unique_ptr<FormWindow> MakeWindow(Form& form);

}  // namespace vardel
