#include "qt/windows/Binder.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QBitmap>
#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QProgressBar>
#include <QSignalBlocker>
#include <QTimer>
#include <cmath>
#include <utility>

#include "qt/services/Convert.h"
#include "qt/windows/Announcement.h"
#include "qt/windows/DecimalKey.h"
#include "qt/windows/DesktopColors.h"
#include "qt/windows/MenuIcons.h"
#include "qt/windows/MenuKeys.h"

namespace vardel {

namespace {

using Alive = std::shared_ptr<bool>;

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

// Raises LostFocus when the focus goes to another control of the window. A menu, a pop-up list, a
// message box or another program only borrows it, with what is selected.
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

// The key of a button presses it at once. By itself it would be clicked a tenth of a second later,
// and not at all where the next key closes the window.
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

// A turn of the wheel that passes over a list scrolls what the list lies on, and picks no entry.
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

void SetColors(QWidget& widget, const Control& control) {
    const QPalette colors = ColorsOf(control, widget.palette());
    if (widget.palette() != colors) widget.setPalette(colors);
}

// What tells a screen reader the state of a control, and what described the widget before once it
// has none.
std::function<void()> StateTeller(const Control& control, QWidget& widget) {
    return [&control, &widget, told = std::string(), before = QString()]() mutable {
        if (control.StateText() == told) return;
        if (told.empty()) before = widget.accessibleDescription();
        told = control.StateText();
        widget.setAccessibleDescription(told.empty() ? before : ToQt(told));
    };
}

}  // namespace

Binder::Binder() = default;
Binder::~Binder() { Release(); }

void Binder::Release() {
    if (!*alive_) return;
    *alive_ = false;
    for (Control* control : controls_) control->SetView({});
}

void Binder::Show(Control& control, std::function<void()> show) {
    controls_.push_back(&control);
    show();
    control.SetView(std::move(show));
}

void Binder::BindCommon(Control& control, QWidget& widget) {
    widget.setObjectName(ToQt(control.Name()));
    widget.setEnabled(control.Enabled());
    // Not for a widget that never was hidden: before it has a parent, it would become a window.
    const bool hidden = widget.testAttribute(Qt::WA_WState_ExplicitShowHide) && widget.isHidden();
    if (hidden == control.Visible()) widget.setVisible(control.Visible());
    widget.setToolTip(ToQt(control.ToolTipText()));
    widget.setProperty("helpTopic", static_cast<int>(control.HelpContextID()));
}

void Binder::Bind(TextBox& box, QLineEdit& edit) {
    Show(box, [this, &box, &edit, tellState = StateTeller(box, edit)] {
        BindCommon(box, edit);
        SetColors(edit, box);
        tellState();
        const QString text = ToQt(box.Text());
        if (edit.text() != text) edit.setText(text);
    });
    QObject::connect(&edit, &QLineEdit::textEdited, &edit,
                     [&box, alive = alive_](const QString& text) {
                         if (*alive) box.SetText(FromQt(text));
                     });
    edit.installEventFilter(new FocusFilter(box, alive_, edit));
    LeaveKeysToMenus(edit);
    if (box.HoldsNumber()) TakeCommaAsPoint(edit);
}

void Binder::Bind(ComboBox& list, QComboBox& combo) {
    new WheelFilter(combo);
    for (const ComboBox::Item& item : list.Items()) combo.addItem(ToQt(item.text));
    Show(list, [this, &list, &combo] {
        const QSignalBlocker programWrites(combo);
        BindCommon(list, combo);
        SetColors(combo, list);
        combo.setCurrentIndex(list.ListIndex());
        // A screen reader is not told the chosen entry of a list that a label names.
        if (combo.accessibleDescription() != combo.currentText())
            combo.setAccessibleDescription(combo.currentText());
    });
    QObject::connect(&combo, &QComboBox::currentIndexChanged, &combo,
                     [&list, &combo, alive = alive_](int index) {
                         if (!*alive) return;
                         Announcement::Make(combo.itemText(index));
                         list.SetListIndex(index);
                     });
}

std::function<void()> Binder::AtPace(Pace pace, QWidget& widget, std::function<void()> show) {
    if (pace == Pace::AtOnce) return show;
    constexpr int ScreenPicture = 16;  // ms
    auto* timer = new QTimer(&widget);
    timer->setSingleShot(true);
    timer->setInterval(ScreenPicture);
    QObject::connect(timer, &QTimer::timeout, &widget, [show = std::move(show), alive = alive_] {
        if (*alive) show();
    });
    return [timer] {
        if (!timer->isActive()) timer->start();
    };
}

void Binder::Bind(TextComboBox& list, QComboBox& combo) {
    new WheelFilter(combo);
    combo.setEditable(true);
    combo.setInsertPolicy(QComboBox::NoInsert);
    Show(list, [this, &list, &combo] {
        const QSignalBlocker programWrites(combo);
        BindCommon(list, combo);
        SetColors(combo, list);
        QStringList items;
        for (const std::string& item : list.Items()) items << ToQt(item);
        QStringList shown;
        for (int i = 0; i < combo.count(); ++i) shown << combo.itemText(i);
        if (shown != items) {
            combo.clear();
            combo.addItems(items);
        }
        if (combo.currentText() != ToQt(list.Text())) combo.setCurrentText(ToQt(list.Text()));
    });
    QObject::connect(&combo, &QComboBox::editTextChanged, &combo,
                     [&list, alive = alive_](const QString& text) {
                         if (*alive) list.SetText(FromQt(text));
                     });
}

void Binder::Bind(Label& label, QLabel& widget, Pace pace) {
    BindLabel(label, widget, pace, [] {});
}

void Binder::BindValue(Label& value, QLabel& widget, const std::string& what, const Label* unit) {
    BindLabel(value, widget, Pace::AtOnce, [&value, &widget, unit, what = ToQt(what)] {
        const QString shown =
            ToQt(value.Caption() + (unit != nullptr ? ' ' + unit->Caption() : "")).simplified();
        widget.setAccessibleName(value.Caption().empty() ? what : what + ": " + shown);
    });
}

void Binder::BindLabel(Label& label, QLabel& widget, Pace pace, std::function<void()> alsoShow) {
    widget.setTextFormat(Qt::PlainText);
    widget.setAutoFillBackground(true);
    const auto showCaption = [&label, &widget] {
        widget.setText(ToQt(label.Caption()).trimmed());  // the layout does the spacing
    };
    showCaption();
    Show(label, [this, &label, &widget, captionChanged = AtPace(pace, widget, showCaption),
                 alsoShow = std::move(alsoShow), tellState = StateTeller(label, widget)] {
        BindCommon(label, widget);
        SetColors(widget, label);
        captionChanged();
        alsoShow();
        tellState();
    });
    widget.installEventFilter(new MouseFilter(label, alive_, widget));
}

void Binder::Bind(Button& button, QAbstractButton& widget) {
    new ButtonKeyFilter(widget);
    widget.setPalette(QApplication::palette());  // not the colours of the form behind it
    Show(button, [this, &button, &widget] {
        BindCommon(button, widget);
        QPixmap picture(ToQt(button.PictureFile()));
        const bool shown = !picture.isNull();
        // The button shows through what surrounds the picture's motif.
        if (shown) picture.setMask(picture.createHeuristicMask());
        widget.setIcon(picture);
        if (shown) widget.setIconSize(picture.size());
        const QString state = ToQt(button.StateText());
        const bool tellsState = !shown && !state.isEmpty();
        widget.setText(ToQt(button.Caption()) + (tellsState ? " (" + state + ')' : QString()));
        widget.setAccessibleDescription(state);
    });
    QObject::connect(&widget, &QAbstractButton::clicked, &widget, [&button, alive = alive_] {
        if (*alive) button.Press();
    });
}

void Binder::Bind(Frame& frame, QGroupBox& group) {
    Show(frame, [this, &frame, &group] {
        BindCommon(frame, group);
        SetColors(group, frame);
        group.setTitle(ToQt(frame.Caption()));
    });
}

void Binder::BindLine(Control& control, QFrame& widget) {
    Show(control, [this, &control, &widget] {
        BindCommon(control, widget);
        SetColors(widget, control);
    });
}

void Binder::Bind(Line& line, QFrame& widget) { BindLine(line, widget); }
void Binder::Bind(Shape& shape, QFrame& widget) { BindLine(shape, widget); }

void Binder::Bind(CheckBox& box, QCheckBox& widget) {
    Show(box, [this, &box, &widget] {
        const QSignalBlocker programWrites(widget);
        BindCommon(box, widget);
        SetColors(widget, box);
        QPalette colors = widget.palette();
        colors.setColor(QPalette::Base, Qt::white);  // the square, on whatever ground
        widget.setPalette(colors);
        widget.setText(ToQt(box.Caption()));
        widget.setChecked(box.Checked());
    });
    QObject::connect(&widget, &QCheckBox::toggled, &widget, [&box, alive = alive_](bool checked) {
        if (*alive) box.SetChecked(checked);
    });
}

void Binder::Bind(ProgressBar& bar, QProgressBar& widget) {
    widget.setRange(0, 10'000);
    const auto showValue = [&bar, &widget] {
        widget.setValue(static_cast<int>(std::lround(bar.Filled() * widget.maximum())));
    };
    showValue();
    Show(bar, [this, &bar, &widget, changed = AtPace(Pace::OfTheScreen, widget, showValue)] {
        BindCommon(bar, widget);
        changed();
    });
}

void Binder::Bind(Image& image, QLabel& widget) {
    Show(image, [this, &image, &widget] {
        BindCommon(image, widget);
        widget.setPixmap(QPixmap(ToQt(image.PictureFile())));
        widget.setAccessibleDescription(ToQt(image.StateText()));
    });
}

void Binder::BindMenu(MenuItem& menu, QMenuBar& bar) { BindEntries(menu, *bar.addMenu(QString())); }

void Binder::BindEntries(MenuItem& menu, QMenu& shown) {
    QMenu* widget = &shown;
    Show(menu, [&menu, widget] {
        widget->setObjectName(ToQt(menu.Name()));
        widget->setTitle(ToQt(menu.Caption()));
        widget->setProperty("helpTopic", static_cast<int>(menu.HelpContextID()));
        widget->menuAction()->setVisible(menu.Visible());
        widget->setEnabled(menu.Enabled());
    });
    for (MenuItem* entry : menu.Entries()) {
        if (entry->Entries().empty())
            BindEntry(*entry, shown);
        else
            BindEntries(*entry, *shown.addMenu(QString()));
    }
}

void Binder::BindEntry(MenuItem& entry, QMenu& menu) {
    QAction* action = entry.IsSeparator() ? menu.addSeparator() : menu.addAction(QString());
    action->setIcon(MenuIconOf(entry.Name()));
    Show(entry, [&entry, action] {
        action->setObjectName(ToQt(entry.Name()));
        if (!entry.IsSeparator()) action->setText(ToQt(entry.Caption()));
        action->setEnabled(entry.Enabled());
        action->setVisible(entry.Visible());
        action->setShortcut(QKeySequence(ToQt(entry.Shortcut())));
        action->setAutoRepeat(false);
        action->setCheckable(entry.Checkable());
        action->setChecked(entry.Checked());
    });
    QObject::connect(action, &QAction::triggered, action, [&entry, action, alive = alive_] {
        if (!*alive) return;
        // Qt has turned the mark over by itself; it is the program's to set.
        action->setChecked(entry.Checked());
        entry.Pick();
    });
}

}  // namespace vardel
