#pragma once

class QLineEdit;

namespace vardel {

// On X11 a box takes Ctrl+D as Delete, Ctrl+E as End and some more. Where the menus of its window
// have such a key, it is the menu's, but for undo, clipboard and selection.
void LeaveKeysToMenus(QLineEdit& box);

}  // namespace vardel
