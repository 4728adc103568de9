#include "controls/Form.h"

#include <exception>

#include "services/Platform.h"

namespace vardel {

Form::Form(Platform& platform, std::string name, std::string caption)
    : platform_(platform), name_(std::move(name)), caption_(std::move(caption)) {
    visible_ = false;
}

void Form::Show() {
    SetVisible(true);
    platform_.windows.Show(*this);
}

void Form::ShowModal(Form* owner) {
    SetVisible(true);
    platform_.windows.ShowModal(*this, owner);
}

void Form::Unload() {
    if (unloaded_) return;
    unloaded_ = true;
    Run([this] {
        Run([this] { Form_Unload(); });  // where that fails the form goes all the same
        SetVisible(false);
        if (onUnloaded_) onUnloaded_();
    });
}

void Form::Run(const std::function<void()>& routine) {
    ++routinesRunning_;
    try {
        routine();
    } catch (const std::exception& error) {
        SetMousePointer(Pointer::Normal);
        platform_.windows.ShowMessage({.text = error.what(), .icon = Message::Icon::Critical});
    }
    --routinesRunning_;
    if (unloaded_ && routinesRunning_ == 0 && onIdle_) {
        const auto idle = std::move(onIdle_);
        idle();
    }
}

}  // namespace vardel
