#include "qt/binder/Binder.h"

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
#include <QProgressBar>
#include <QSignalBlocker>
#include <QTimer>
#include <cmath>
#include <utility>

#include "qt/binder/ControlFilters.h"
#include "qt/input/DecimalKey.h"
#include "qt/input/MenuKeys.h"
#include "qt/look/Announcement.h"
#include "qt/look/DesktopColors.h"
#include "qt/look/MenuIcons.h"
#include "qt/services/Convert.h"

namespace vardel {

namespace {

void SetColors(QWidget& widget, const Control& control) {
    const QPalette colors = ColorsOf(control, widget.palette());
    if (widget.palette() != colors) widget.setPalette(colors);
}

// What gives a screen reader the state of a control, and what described the widget before once it
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
    FollowFocus(edit, box, alive_);
    LeaveKeysToMenus(edit);
    if (box.HoldsNumber()) TakeCommaAsPoint(edit);
}

void Binder::Bind(ComboBox& list, QComboBox& combo) {
    LeaveWheelToGround(combo);
    for (const ComboBox::Item& item : list.Items()) combo.addItem(ToQt(item.text));
    Show(list, [this, &list, &combo] {
        const QSignalBlocker programWrites(combo);
        BindCommon(list, combo);
        SetColors(combo, list);
        combo.setCurrentIndex(list.ListIndex());
        // A screen reader does not get the chosen entry of a list that a label names.
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
    LeaveWheelToGround(combo);
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
    FollowMouse(widget, label, alive_);
}

void Binder::Bind(Button& button, QAbstractButton& widget) {
    PressByKeyAtOnce(widget);
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
