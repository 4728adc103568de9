#include "platform/RichTextBox.h"

#include <algorithm>

namespace vardel {

RichTextBox::RichTextBox(Form& form, std::string name) : Control(form, std::move(name)) {}

void RichTextBox::SetContent(RichText content) {
    content_ = std::move(content);
    Changed(0);
}

void RichTextBox::Select(std::size_t start, std::size_t length) {
    selStart_ = std::min(start, content_.Length());
    selLength_ = std::min(length, content_.Length() - selStart_);
}

void RichTextBox::Insert(std::string_view text) {
    Changed(selStart_ + content_.Replace(selStart_, selLength_, text, style_));
}

void RichTextBox::InsertPicture(Picture picture) {
    Changed(selStart_ +
            content_.ReplaceByPicture(selStart_, selLength_, std::move(picture), style_));
}

void RichTextBox::Clear() {
    content_ = {};
    Changed(0);
}

void RichTextBox::Changed(std::size_t caret) {
    Select(caret);
    Assign(revision_, revision_ + 1);
}

}  // namespace vardel
