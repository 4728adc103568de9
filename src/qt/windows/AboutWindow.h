#pragma once

#include "qt/windows/FormWindow.h"

namespace vardel {

class AboutForm;

// AboutForm on the screen: the picture, and the program's name beside it.
class AboutWindow : public FormWindow {
public:
    explicit AboutWindow(AboutForm& form);
};

}  // namespace vardel
