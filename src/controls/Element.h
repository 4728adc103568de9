#pragma once

#include <functional>
#include <utility>

#include "controls/HelpTopic.h"
#include "services/Color.h"

namespace vardel {

// What has properties that a user can see: a form or a control. Whoever shows it gives it one view,
// which is notified after every real change of a property and then reads what it needs.
class Element {
public:
    Element() = default;
    Element(const Element&) = delete;
    Element& operator=(const Element&) = delete;

    void SetView(std::function<void()> view) { view_ = std::move(view); }

    bool Visible() const { return visible_; }
    void SetVisible(bool visible) { Assign(visible_, visible); }
    Color BackColor() const { return backColor_; }
    void SetBackColor(Color color) { Assign(backColor_, color); }
    HelpTopic HelpContextID() const { return helpContextID_; }  // None: none of its own
    void SetHelpContextID(HelpTopic topic) { Assign(helpContextID_, topic); }

protected:
    ~Element() = default;

    // True when the property really changed.
    template <class T>
    bool Assign(T& property, T value) {
        if (property == value) return false;
        property = std::move(value);
        if (view_) view_();
        return true;
    }

    Color backColor_ = White;
    bool visible_ = true;

private:
    HelpTopic helpContextID_ = HelpTopic::None;
    std::function<void()> view_;
};

}  // namespace vardel
