#include "controls/Controls.h"

#include <algorithm>

#include "services/Platform.h"

namespace vardel {

void Event::Raise() {
    if (!routine_ || form_.GetPlatform().windows.IsEnding()) return;
    const auto routine = routine_;  // the control, and this with it, may be gone before it ends
    form_.Run(routine);
}

TextBox::TextBox(Form& form, std::string name, std::string text)
    : Control(form, std::move(name)), Change(form), LostFocus(form), text_(std::move(text)) {}

void TextBox::SetText(std::string text) {
    if (Assign(text_, std::move(text))) Change.Raise();
}

ComboBox::ComboBox(Form& form, std::string name, std::vector<Item> items, int listIndex)
    : Control(form, std::move(name)),
      Click(form),
      items_(std::move(items)),
      listIndex_(listIndex) {}

void ComboBox::SetListIndex(int index) {
    if (index < 0 || index >= static_cast<int>(items_.size())) return;
    if (Assign(listIndex_, index)) Click.Raise();
}

void ComboBox::SetText(std::string_view text) {
    const auto it = std::find_if(items_.begin(), items_.end(),
                                 [text](const Item& item) { return item.text == text; });
    if (it != items_.end()) SetListIndex(static_cast<int>(it - items_.begin()));
}

void TextComboBox::AddItem(std::string item) {
    std::vector<std::string> items = items_;
    items.push_back(std::move(item));
    Assign(items_, std::move(items));
}

void TextComboBox::Clear() {
    SetText({});
    Assign(items_, {});
}

Label::Label(Form& form, std::string name, std::string caption)
    : Control(form, std::move(name)),
      Click(form),
      MouseDown(form),
      MouseUp(form),
      DblClick(form),
      caption_(std::move(caption)) {}

Button::Button(Form& form, std::string name, std::string caption)
    : Control(form, std::move(name)), Click(form), caption_(std::move(caption)) {}

void Button::Press() {
    if (Enabled() && Visible()) Click.Raise();
}

Frame::Frame(Form& form, std::string name, std::string caption)
    : Control(form, std::move(name)), caption_(std::move(caption)) {}

CheckBox::CheckBox(Form& form, std::string name, std::string caption, bool checked)
    : Control(form, std::move(name)),
      Click(form),
      caption_(std::move(caption)),
      checked_(checked) {}

void CheckBox::SetChecked(bool checked) {
    if (Assign(checked_, checked)) Click.Raise();
}

ProgressBar::ProgressBar(Form& form, std::string name, float min, float max)
    : Control(form, std::move(name)), min_(min), max_(max), value_(min) {}

double ProgressBar::Filled() const {
    if (max_ <= min_) return 1.0;
    return std::clamp((double{value_} - min_) / (double{max_} - min_), 0.0, 1.0);
}

MenuItem::MenuItem(Form& form, std::string name, std::string caption)
    : Control(form, std::move(name)), Click(form), caption_(std::move(caption)) {
    form.menuBar_.push_back(this);
}

MenuItem::MenuItem(MenuItem& menu, std::string name, std::string caption)
    : Control(menu.Owner(), std::move(name)), Click(menu.Owner()), caption_(std::move(caption)) {
    menu.entries_.push_back(this);
}

void MenuItem::Pick() {
    if (Enabled() && Visible()) Click.Raise();
}

}  // namespace vardel
