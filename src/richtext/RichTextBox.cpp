#include "richtext/RichTextBox.h"

#include <algorithm>
#include <utility>

namespace vardel {

RichTextBox::RichTextBox(Form& form, std::string name) : Control(form, std::move(name)) {}

void RichTextBox::SetEditor(Editor editor) {
    FetchEdit();
    if (editor_.edit) {
        cleared_.clear();
        unseen_.clear();
    }
    editor_ = std::move(editor);
}

void RichTextBox::FetchEdit() {
    if (!editor_.edit) return;
    Edit edit = editor_.edit();
    if (edit.content) {
        content_ = std::move(*edit.content);
        ++usersEdits_;
    }
    selection_ = Within(edit.selection);
}

const RichText& RichTextBox::Content() {
    FetchEdit();
    return content_;
}

void RichTextBox::SetContent(RichText content) {
    content_ = std::move(content);
    unseen_.clear();
    Changed(0);
}

void RichTextBox::Undo() {
    if (editor_.undo) editor_.undo();
}

void RichTextBox::Redo() {
    if (editor_.redo) editor_.redo();
}

void RichTextBox::Clear() {
    if (!editor_.edit && content_.Length() > 0) {
        if (!content_.Text().ends_with("\r\n")) content_.Replace(content_.Length(), 0, "\r\n", {});
        cleared_.push_back(std::move(content_));
    }
    SetContent({});
}

RichTextBox::Selection RichTextBox::Within(Selection selection) const {
    const std::size_t start = std::min(selection.start, content_.Length());
    return {start, std::min(selection.length, content_.Length() - start)};
}

RichTextBox::Selection RichTextBox::Selected() {
    FetchEdit();
    return selection_;
}

void RichTextBox::Select(Selection selection) {
    FetchEdit();
    selection_ = Within(selection);
    Assign(revision_, revision_ + 1);
}

void RichTextBox::Insert(std::string_view text) {
    RichText content;
    content.Replace(0, 0, text, style_);
    Insert(content);
}

void RichTextBox::InsertPicture(Picture picture) {
    RichText content;
    content.ReplaceByPicture(0, 0, std::move(picture), style_);
    Insert(content);
}

void RichTextBox::Insert(const RichText& content) {
    FetchEdit();
    NoteWrite(content.Length());
    const auto [start, length] = selection_;
    Changed(start + content_.Replace(start, length, content));
}

void RichTextBox::NoteWrite(std::size_t length) {
    constexpr std::size_t MostWrites = 1000;
    const bool begins = std::exchange(stepBegins_, false);
    if (editor_.edit) return;
    const auto [start, replaced] = selection_;
    if (!unseen_.empty() && start < unseen_.back().End()) unseen_.clear();
    if (unseen_.empty() && !begins) return;
    if (!begins && replaced == 0 && start == unseen_.back().End()) {
        unseen_.back().length += length;
        return;
    }
    unseen_.push_back({start, content_.Part(start, replaced), length, begins});
    if (unseen_.size() <= MostWrites) return;
    do unseen_.pop_front();
    while (!unseen_.front().beginsStep);
}

unsigned long RichTextBox::Changes() {
    FetchEdit();
    return textWrites_ + usersEdits_;
}

void RichTextBox::Changed(std::size_t caret) {
    ++textWrites_;
    selection_ = Within({caret, 0});
    Assign(revision_, revision_ + 1);
}

}  // namespace vardel
