#pragma once

#include <QObject>
#include <memory>
#include <vector>

#include "platform/Controls.h"

class QAbstractButton;
class QComboBox;
class QFrame;
class QGroupBox;
class QLabel;
class QLineEdit;
class QMenu;
class QMenuBar;
class QWidget;

namespace vardel {

// Ties controls to widgets, both ways: a property that is set shows on the widget, what the user
// does raises the control's events. What the program itself writes comes back as no user event.
// Every widget gets its control's name.
class Binder {
public:
    Binder();
    Binder(const Binder&) = delete;
    Binder& operator=(const Binder&) = delete;
    ~Binder();

    void Bind(TextBox& box, QLineEdit& edit);
    void Bind(ComboBox& list, QComboBox& combo);
    void Bind(Label& label, QLabel& widget);
    void Bind(Button& button, QAbstractButton& widget);
    void Bind(Frame& frame, QGroupBox& group);
    void Bind(Line& line, QFrame& widget);
    void BindMenu(MenuItem& menu, QMenuBar& bar);

    // For a control that is tied elsewhere: runs show now and at every change of a property.
    void Show(Control& control, std::function<void()> show);
    // Whether the controls are still there.
    bool IsAlive() const { return *alive_; }

    void Release();

private:
    void BindCommon(Control& control, QWidget& widget);
    void BindEntry(MenuItem& entry, QMenu& menu);

    std::vector<Control*> controls_;
    // Outlives the binder in the lambdas and filters that look at it.
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace vardel
