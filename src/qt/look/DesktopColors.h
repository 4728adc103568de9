#pragma once

#include <QPalette>

namespace vardel {

class Control;
class Form;

// The look of the desktop as far as the forms leave it open: those on white ground are dark where
// the desktop is, and texts are never smaller than the desktop's.

// Once, before the application gets its own style.
void LearnDesktop();
QPalette ApplicationPalette();
double ApplicationPoints();  // the size of its font

// What a form's ground, or a control's widget, shows.
QColor GroundOf(const Form& form);
QPalette ColorsOf(const Control& control, QPalette colors);

}  // namespace vardel
