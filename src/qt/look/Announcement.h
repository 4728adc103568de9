#pragma once

#include <QWidget>

namespace vardel {

// What a screen reader says at once, wherever the focus is: a notification that comes up in the
// window, too small to be seen.
class Announcement : public QWidget {
public:
    // In the active window; in none, nobody listens.
    static void Make(const QString& text);

private:
    explicit Announcement(QWidget& window);
};

}  // namespace vardel
