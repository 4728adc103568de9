#pragma once

#include <QObject>
#include <memory>
#include <vector>

#include "controls/Controls.h"

class QAbstractButton;
class QCheckBox;
class QComboBox;
class QFrame;
class QGroupBox;
class QLabel;
class QLineEdit;
class QMenu;
class QMenuBar;
class QProgressBar;
class QWidget;

namespace vardel {

// Ties controls to widgets, both ways: a property that is set shows on the widget, what the user
// does raises the control's events. What the program itself writes comes back as no user event.
// Every widget gets its control's name.
class Binder {
public:
    // How soon what a control shows comes to the screen: a value that changes thousands of times a
    // second costs a painting for each of the screen's own pictures and no more.
    enum class Pace { AtOnce, OfTheScreen };

    Binder();
    Binder(const Binder&) = delete;
    Binder& operator=(const Binder&) = delete;
    ~Binder();

    void Bind(TextBox& box, QLineEdit& edit);
    void Bind(ComboBox& list, QComboBox& combo);
    // The list becomes one that can be typed into.
    void Bind(TextComboBox& list, QComboBox& combo);
    void Bind(Label& label, QLabel& widget, Pace pace = Pace::AtOnce);
    // A screen reader hears what the value is of, the value and its unit, if it has one.
    void BindValue(Label& value, QLabel& widget, const std::string& what, const Label* unit);
    void Bind(Button& button, QAbstractButton& widget);
    void Bind(Frame& frame, QGroupBox& group);
    void Bind(Line& line, QFrame& widget);
    void Bind(Shape& shape, QFrame& widget);
    void Bind(CheckBox& box, QCheckBox& widget);
    void Bind(ProgressBar& bar, QProgressBar& widget);  // as often as the screen can show
    void Bind(Image& image, QLabel& widget);
    void BindMenu(MenuItem& menu, QMenuBar& bar);

    // For a control that is tied elsewhere: runs show now and at every change of a property.
    void Show(Control& control, std::function<void()> show);
    // Whether the controls are still there.
    bool IsAlive() const { return *alive_; }

    void Release();

private:
    void BindCommon(Control& control, QWidget& widget);
    // Shows the label, and says by alsoShow what it shows.
    void BindLabel(Label& label, QLabel& widget, Pace pace, std::function<void()> alsoShow);
    void BindEntries(MenuItem& menu, QMenu& shown);
    void BindEntry(MenuItem& entry, QMenu& menu);
    void BindLine(Control& control, QFrame& widget);
    // What asks for show, which then runs at the pace for as long as the controls are there.
    std::function<void()> AtPace(Pace pace, QWidget& widget, std::function<void()> show);

    std::vector<Control*> controls_;
    // Outlives the binder in the lambdas and filters that look at it.
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace vardel
