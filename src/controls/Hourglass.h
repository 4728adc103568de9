#pragma once

#include "controls/Form.h"

namespace vardel {

// The waiting pointer over a form, for as long as this lives. The form has to live longer, as it
// does within its own routines.
class Hourglass {
public:
    explicit Hourglass(Form& form) : form_(form), before_(form.MousePointer()) {
        form_.SetMousePointer(Form::Pointer::Hourglass);
    }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;
    ~Hourglass() { form_.SetMousePointer(before_); }

private:
    Form& form_;
    Form::Pointer before_;
};

}  // namespace vardel
