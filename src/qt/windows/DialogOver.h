#pragma once

#include <QApplication>
#include <QDialog>
#include <QPointer>

#include "qt/windows/FormWindow.h"
#include "qt/windows/HelpWindow.h"

namespace vardel {

// The window that is worked in; worked in again when what came over it has gone. Most window
// managers see to that, but not all.
class ActiveWindow {
public:
    // Null stands for the one that is worked in now, which right after a start is none.
    explicit ActiveWindow(QWidget* window = nullptr)
        : window_(window != nullptr ? window : WorkedIn()) {}
    ActiveWindow(const ActiveWindow&) = delete;
    ActiveWindow& operator=(const ActiveWindow&) = delete;
    ~ActiveWindow() {
        if (window_ && window_->isVisible()) window_->activateWindow();
    }
    QWidget* Get() const { return window_; }

private:
    // An open list is a window as well, and so is the help, but neither is worked in; and between
    // two dialogs no window has the focus until the desktop has given it back.
    static QWidget* WorkedIn() {
        QWidget* active = QApplication::activeWindow();
        while (active != nullptr && active->windowType() == Qt::Popup)
            active = active->parentWidget() != nullptr ? active->parentWidget()->window() : nullptr;
        if (active != nullptr && !dynamic_cast<HelpWindow*>(active)) return active;
        if (QWidget* modal = QApplication::activeModalWidget()) return modal;
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->isVisible() && dynamic_cast<FormWindow*>(window)) return window;
        return nullptr;
    }

    QPointer<QWidget> window_;
};

// A dialog over the window that is worked in. Should that window go while the dialog waits, it
// takes the dialog along.
template <class Dialog>
class DialogOver {
public:
    // With what the dialog is made of, before its parent.
    template <class... Parts>
    explicit DialogOver(Parts&... parts) : dialog_(new Dialog(parts..., before_.Get())) {
        // Of the windows that are worked in; the help stays open beside it.
        if (before_.Get() != nullptr) dialog_->setWindowModality(Qt::WindowModal);
    }
    ~DialogOver() { delete dialog_; }
    Dialog* operator->() const { return dialog_; }
    Dialog& operator*() const { return *dialog_; }
    // What QDialog::exec gives; a dialog that went was rejected.
    int Exec() {
        const int result = dialog_->exec();
        return dialog_ ? result : static_cast<int>(QDialog::Rejected);
    }

private:
    ActiveWindow before_;
    QPointer<Dialog> dialog_;
};

}  // namespace vardel
