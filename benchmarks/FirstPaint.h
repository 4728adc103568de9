#pragma once

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

namespace vardel {

// Ends the event loop once a window was painted.
class FirstPaint : public QObject {
public:
    explicit FirstPaint(QApplication& application) { application.installEventFilter(this); }

private:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const auto* widget = qobject_cast<QWidget*>(watched);
        if (event->type() == QEvent::Paint && widget != nullptr && widget->window()->isVisible())
            QTimer::singleShot(0, qApp, &QApplication::quit);
        return false;
    }
};

}  // namespace vardel
