#pragma once

#include <QObject>
#include <memory>

class QAbstractButton;
class QComboBox;
class QLabel;
class QLineEdit;

// What a widget's events mean to its control, as event filters that the widgets own.

namespace vardel {

class Label;
class TextBox;

// Whether the controls are still there: they may go before the widgets.
using Alive = std::shared_ptr<bool>;

// Raises LostFocus when the focus goes to another control of the window. A menu, a pop-up list, a
// message box or another program only borrows it, with what is selected.
void FollowFocus(QLineEdit& edit, TextBox& box, Alive alive);

// The key of a button presses it at once. By itself it would be clicked a tenth of a second later,
// and not at all where the next key closes the window.
void PressByKeyAtOnce(QAbstractButton& button);

// Raises the mouse's events of a label that answers any.
void FollowMouse(QLabel& widget, Label& label, Alive alive);

// A turn of the wheel that passes over a list scrolls what the list lies on, and picks no entry.
void LeaveWheelToGround(QComboBox& list);

}  // namespace vardel
