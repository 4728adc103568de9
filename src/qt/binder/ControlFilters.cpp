#include "qt/binder/ControlFilters.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <utility>

#include "controls/Controls.h"

namespace vardel {

namespace {

// A press whose focus change brought up a message box never sees its release, which went to the
// box: the button would stay down and its click be lost.
void CompleteLostPress(const QWidget& window) {
    auto* button = qobject_cast<QAbstractButton*>(window.focusWidget());
    if (button == nullptr) return;
    QMetaObject::invokeMethod(
        button,
        [button] {
            const bool pressed = QGuiApplication::mouseButtons() & Qt::LeftButton;
            if (button->isDown() && !pressed) button->click();
        },
        Qt::QueuedConnection);
}

// The box that Tab has reached is selected as it gets the focus; but where a message box comes
// between, it gets it from that.
void SelectReached(const QWidget& window, Qt::FocusReason reason) {
    if (reason != Qt::TabFocusReason && reason != Qt::BacktabFocusReason) return;
    if (auto* edit = qobject_cast<QLineEdit*>(window.focusWidget())) edit->selectAll();
}

class FocusFilter : public QObject {
public:
    FocusFilter(TextBox& box, Alive alive, QObject& parent)
        : QObject(&parent), box_(box), alive_(std::move(alive)) {}

    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* edit = qobject_cast<QLineEdit*>(watched);
        if (edit == nullptr) return false;  // on its way out it is only a widget
        if (event->type() == QEvent::FocusIn && allSelected_) edit->selectAll();
        if (event->type() != QEvent::FocusOut || !*alive_) return false;
        allSelected_ = edit->hasSelectedText() && edit->selectedText() == edit->text();
        switch (static_cast<QFocusEvent*>(event)->reason()) {
            case Qt::ActiveWindowFocusReason:
            case Qt::PopupFocusReason:
            case Qt::MenuBarFocusReason:
                return false;
            default:
                break;
        }
        allSelected_ = false;
        box_.LostFocus.Raise();
        CompleteLostPress(*edit->window());
        SelectReached(*edit->window(), static_cast<QFocusEvent*>(event)->reason());
        return false;
    }

private:
    TextBox& box_;
    Alive alive_;
    bool allSelected_ = false;  // when the focus was borrowed
};

class ButtonKeyFilter : public QObject {
public:
    explicit ButtonKeyFilter(QAbstractButton& button) : QObject(&button) {
        button.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::Shortcut || static_cast<QShortcutEvent*>(event)->isAmbiguous())
            return false;
        static_cast<QAbstractButton*>(watched)->click();
        return true;
    }
};

class MouseFilter : public QObject {
public:
    MouseFilter(Label& label, Alive alive, QObject& parent)
        : QObject(&parent), label_(label), alive_(std::move(alive)) {}

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (!*alive_ || !AnswersTheMouse()) return false;
        // A widget that takes the press has the mouse until the release, wherever that comes.
        switch (event->type()) {
            case QEvent::MouseButtonPress:
                pressed_ = true;
                doubleClicked_ = false;
                label_.MouseDown.Raise();
                return true;
            case QEvent::MouseButtonRelease: {
                if (!std::exchange(pressed_, false)) return true;
                const bool click = !doubleClicked_ && IsOn(watched, *event);
                label_.MouseUp.Raise();
                if (*alive_ && click) label_.Click.Raise();
                return true;
            }
            case QEvent::MouseButtonDblClick:
                pressed_ = true;
                doubleClicked_ = true;  // its release is no click of its own
                label_.MouseDown.Raise();
                if (*alive_) label_.DblClick.Raise();
                return true;
            // The release comes to what has come up.
            case QEvent::WindowBlocked:
            case QEvent::WindowDeactivate:
                if (std::exchange(pressed_, false)) label_.MouseUp.Raise();
                return false;
            default:
                return false;
        }
    }

private:
    bool AnswersTheMouse() const {
        return label_.Click.Handled() || label_.MouseDown.Handled() || label_.MouseUp.Handled() ||
               label_.DblClick.Handled();
    }

    static bool IsOn(QObject* widget, const QEvent& release) {
        const auto& mouse = static_cast<const QMouseEvent&>(release);
        return mouse.button() == Qt::LeftButton &&
               static_cast<QWidget*>(widget)->rect().contains(mouse.position().toPoint());
    }

    Label& label_;
    Alive alive_;
    bool pressed_ = false;
    bool doubleClicked_ = false;
};

class WheelFilter : public QObject {
public:
    explicit WheelFilter(QComboBox& list) : QObject(&list) {
        list.setFocusPolicy(Qt::StrongFocus);  // which the wheel does not give
        list.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::Wheel || static_cast<QWidget*>(watched)->hasFocus())
            return false;
        event->ignore();
        return true;
    }
};

}  // namespace

void FollowFocus(QLineEdit& edit, TextBox& box, Alive alive) {
    edit.installEventFilter(new FocusFilter(box, std::move(alive), edit));
}

void PressByKeyAtOnce(QAbstractButton& button) { new ButtonKeyFilter(button); }

void FollowMouse(QLabel& widget, Label& label, Alive alive) {
    widget.installEventFilter(new MouseFilter(label, std::move(alive), widget));
}

void LeaveWheelToGround(QComboBox& list) { new WheelFilter(list); }

}  // namespace vardel
