#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <vector>

#include "controls/Form.h"
#include "services/Platform.h"

namespace vardel {

// Holds the one form of a kind: made and loaded when it is first touched, anew after it was
// unloaded.
template <class T>
class FormSlot {
public:
    struct Made {
        std::unique_ptr<Form> form;
        T* typed;
    };

    FormSlot(std::function<Made()> make) : make_(std::move(make)) {}
    FormSlot(const FormSlot&) = delete;
    FormSlot& operator=(const FormSlot&) = delete;
    ~FormSlot() {
        Drop(made_.form);
        for (auto& form : retired_) Drop(form);
    }

    T& operator*() {
        // A yield while it loads may close the form again.
        while (!made_.form) Load();
        return *made_.typed;
    }
    T* operator->() { return &**this; }
    bool Loaded() const { return made_.form != nullptr; }
    // At a yield of its loading, when there is no window of it as yet.
    bool Loading() const { return loading_ > 0; }

private:
    void Load() {
        made_ = make_();
        Form& form = *made_.form;
        form.onUnloaded_ = [this] {
            retired_.push_back(std::move(made_.form));
            made_ = {};
        };
        form.onIdle_ = [this, gone = &form] {
            const auto it = std::find_if(retired_.begin(), retired_.end(),
                                         [gone](const auto& held) { return held.get() == gone; });
            if (it == retired_.end()) return;
            std::unique_ptr<Form> last = std::move(*it);
            retired_.erase(it);
            Drop(last);
        };
        ++loading_;
        form.Run([&form] { form.Form_Load(); });
        --loading_;
    }

    static void Drop(std::unique_ptr<Form>& form) {
        if (!form) return;
        Windows& windows = form->GetPlatform().windows;
        windows.Forget(std::move(form));
    }

    std::function<Made()> make_;
    Made made_{};
    int loading_ = 0;
    std::vector<std::unique_ptr<Form>> retired_;  // unloaded while a routine of theirs is running
};

}  // namespace vardel
