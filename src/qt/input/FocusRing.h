#pragma once

#include <QFocusFrame>

namespace vardel {

// Rings the control of a window that has the focus, in white or black, with a little of the ground
// between. On a coloured ground the style's own signs of the focus can hardly be seen.
class FocusRing : public QFocusFrame {
public:
    // Beyond the control on all its sides, in points of the screen.
    static constexpr int Width = 4;

    explicit FocusRing(QWidget& window);
};

}  // namespace vardel
