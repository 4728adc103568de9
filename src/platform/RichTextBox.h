#pragma once

#include "platform/Controls.h"
#include "platform/RichText.h"

namespace vardel {

// A box of rich text with a caret and a selection. Its view takes the text over while the user
// sees it and hands the edited text back.
class RichTextBox : public Control {
public:
    RichTextBox(Form& form, std::string name);

    const RichText& Content() const { return content_; }
    // With the caret at the start and nothing selected.
    void SetContent(RichText content);
    const std::string& Text() const { return content_.Text(); }

    // Bytes of the text. The caret stands at the start of what is selected, and a start or length
    // beyond the text counts as at its end.
    std::size_t SelStart() const { return selStart_; }
    std::size_t SelLength() const { return selLength_; }
    void Select(std::size_t start, std::size_t length = 0);
    void CaretToEnd() { Select(content_.Length()); }

    // The style of what is put in from now on.
    TextStyle InsertStyle() const { return style_; }
    void SetInsertStyle(TextStyle style) { style_ = style; }

    // Puts the text in at the caret in place of what is selected; the caret comes behind it.
    void Insert(std::string_view text);
    void InsertPicture(Picture picture);
    void Clear();

    bool Locked() const { return locked_; }
    void SetLocked(bool locked) { Assign(locked_, locked); }
    // Where lines are folded, in twips; 0 folds them at the window's edge.
    int RightMargin() const { return rightMargin_; }
    void SetRightMargin(int twips) { Assign(rightMargin_, twips); }

    // Counts the changes of the content, so that a view knows when it has to read it again.
    unsigned long Revision() const { return revision_; }

private:
    void Changed(std::size_t caret);

    RichText content_;
    std::size_t selStart_ = 0;
    std::size_t selLength_ = 0;
    TextStyle style_;
    bool locked_ = false;
    int rightMargin_ = 0;
    unsigned long revision_ = 0;
};

}  // namespace vardel
