#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/Element.h"
#include "controls/Form.h"

// The controls that forms are made of. Setting a property notifies the view; the text of a box and
// the selection of a list raise their change event when they really change, whoever set them.

namespace vardel {

// An event of a control: at most one routine of the form answers to it.
class Event {
public:
    explicit Event(Form& form) : form_(form) {}
    void operator=(std::function<void()> routine) { routine_ = std::move(routine); }
    bool Handled() const { return static_cast<bool>(routine_); }
    // The control may be gone when this returns.
    void Raise();

private:
    Form& form_;
    std::function<void()> routine_;
};

class Control : public Element {
public:
    Control(Form& owner, std::string name) : owner_(owner), name_(std::move(name)) {}

    Form& Owner() const { return owner_; }
    const std::string& Name() const { return name_; }
    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled) { Assign(enabled_, enabled); }
    Color ForeColor() const { return foreColor_; }
    void SetForeColor(Color color) { Assign(foreColor_, color); }
    const std::string& ToolTipText() const { return toolTipText_; }
    void SetToolTipText(std::string text) { Assign(toolTipText_, std::move(text)); }
    // In words what a colour or a picture shows, for those who do not see it.
    const std::string& StateText() const { return stateText_; }
    void SetStateText(std::string text) { Assign(stateText_, std::move(text)); }

protected:
    ~Control() = default;

private:
    Form& owner_;
    std::string name_;
    std::string toolTipText_;
    std::string stateText_;
    Color foreColor_ = Black;
    bool enabled_ = true;
};

class TextBox : public Control {
public:
    TextBox(Form& form, std::string name, std::string text = {});

    const std::string& Text() const { return text_; }
    void SetText(std::string text);
    // Whether a comma typed in it can only mean a decimal point.
    bool HoldsNumber() const { return holdsNumber_; }
    void SetHoldsNumber(bool holdsNumber) { holdsNumber_ = holdsNumber; }

    Event Change;
    Event LostFocus;

private:
    std::string text_;
    bool holdsNumber_ = true;
};

// A list from which one entry is picked.
class ComboBox : public Control {
public:
    struct Item {
        std::string text;
        int itemData = 0;
    };

    ComboBox(Form& form, std::string name, std::vector<Item> items, int listIndex = 0);

    const std::vector<Item>& Items() const { return items_; }
    int ListIndex() const { return listIndex_; }
    // An index outside the list changes nothing.
    void SetListIndex(int index);
    const std::string& Text() const { return SelectedItem().text; }
    // Picks the entry with this text; a text that is no entry changes nothing.
    void SetText(std::string_view text);
    int SelectedItemData() const { return SelectedItem().itemData; }

    Event Click;  // another entry was picked

private:
    const Item& SelectedItem() const { return items_[static_cast<std::size_t>(listIndex_)]; }

    std::vector<Item> items_;
    int listIndex_;
};

// A list of texts with a box for its text, which need be none of them.
class TextComboBox : public Control {
public:
    using Control::Control;

    const std::vector<std::string>& Items() const { return items_; }
    void AddItem(std::string item);
    void Clear();  // the text with the items
    const std::string& Text() const { return text_; }
    void SetText(std::string text) { Assign(text_, std::move(text)); }

private:
    std::vector<std::string> items_;
    std::string text_;
};

class Label : public Control {
public:
    Label(Form& form, std::string name, std::string caption = {});

    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string caption) { Assign(caption_, std::move(caption)); }

    Event Click;
    Event MouseDown;
    Event MouseUp;
    Event DblClick;

private:
    std::string caption_;
};

class Button : public Control {
public:
    Button(Form& form, std::string name, std::string caption);

    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string caption) { Assign(caption_, std::move(caption)); }
    // A file; where it cannot be shown, the caption and the state text stand for it. Empty: none.
    const std::string& PictureFile() const { return pictureFile_; }
    void SetPictureFile(std::string path) { Assign(pictureFile_, std::move(path)); }
    // What a user's press does: nothing on a button that is disabled or hidden.
    void Press();

    Event Click;

private:
    std::string caption_;
    std::string pictureFile_;
};

class Frame : public Control {
public:
    Frame(Form& form, std::string name, std::string caption);
    const std::string& Caption() const { return caption_; }

private:
    std::string caption_;
};

// A ruling line, drawn in its fore colour.
class Line : public Control {
public:
    using Control::Control;
};

// An outline around other controls, drawn in its fore colour.
class Shape : public Control {
public:
    using Control::Control;
};

class CheckBox : public Control {
public:
    CheckBox(Form& form, std::string name, std::string caption, bool checked = false);

    const std::string& Caption() const { return caption_; }
    bool Checked() const { return checked_; }
    void SetChecked(bool checked);

    Event Click;  // the mark really changed

private:
    std::string caption_;
    bool checked_;
};

class ProgressBar : public Control {
public:
    ProgressBar(Form& form, std::string name, float min, float max);

    float Min() const { return min_; }
    void SetMin(float min) { Assign(min_, min); }
    float Max() const { return max_; }
    void SetMax(float max) { Assign(max_, max); }
    float Value() const { return value_; }
    void SetValue(float value) { Assign(value_, value); }
    // How much of the bar is filled, 0 to 1. Where Min and Max coincide, there is nothing left to
    // go: it is full.
    double Filled() const;

private:
    float min_;
    float max_;
    float value_;
};

// A picture from a file; nothing where that cannot be shown.
class Image : public Control {
public:
    using Control::Control;

    const std::string& PictureFile() const { return pictureFile_; }
    void SetPictureFile(std::string path) { Assign(pictureFile_, std::move(path)); }

private:
    std::string pictureFile_;
};

// An entry of a menu, or a menu when it has entries of its own. In the caption an & stands before
// the accelerator; "-" is a separator.
class MenuItem : public Control {
public:
    MenuItem(Form& form, std::string name, std::string caption);
    MenuItem(MenuItem& menu, std::string name, std::string caption);

    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string caption) { Assign(caption_, std::move(caption)); }
    bool Checked() const { return checked_; }
    void SetChecked(bool checked) { Assign(checked_, checked); }
    // Whether a user reads the entry as one that is switched on or off.
    bool Checkable() const { return checkable_; }
    void SetCheckable(bool checkable) { Assign(checkable_, checkable); }
    // A key that picks the entry anywhere in the window, such as "Ctrl+R"; empty: none.
    const std::string& Shortcut() const { return shortcut_; }
    void SetShortcut(std::string keys) { Assign(shortcut_, std::move(keys)); }
    bool IsSeparator() const { return caption_ == "-"; }
    const std::vector<MenuItem*>& Entries() const { return entries_; }
    // What a user's pick does: nothing on an entry that is disabled or hidden.
    void Pick();

    Event Click;

private:
    std::string caption_;
    std::string shortcut_;
    bool checked_ = false;
    bool checkable_ = false;
    std::vector<MenuItem*> entries_;
};

}  // namespace vardel
