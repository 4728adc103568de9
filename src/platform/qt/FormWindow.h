#pragma once

#include <QMainWindow>
#include <functional>

#include "platform/Form.h"
#include "platform/qt/Binder.h"

namespace vardel {

// What all windows have in common: caption, pointer and menu bar of their form, and a frame whose
// closing the form decides about. Derived classes lay the form's controls out.
class FormWindow : public QMainWindow {
public:
    explicit FormWindow(Form& form);
    ~FormWindow() override;

    // Cuts every tie to the form, which is about to be destroyed, and hides the window.
    void Release();

    // Called whenever the window has been hidden.
    void SetOnHidden(std::function<void()> onHidden) { onHidden_ = std::move(onHidden); }

protected:
    void closeEvent(QCloseEvent* event) override;
    void hideEvent(QHideEvent* event) override;

    Binder binder;

private:
    void ShowProperties();
    void AddMenuBar();

    Form* form_;
    std::function<void()> onHidden_;
};

}  // namespace vardel
