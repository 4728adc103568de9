#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <vector>

#include "controls/Controls.h"
#include "richtext/RichText.h"
#include "services/TextFont.h"

namespace vardel {

// A box of rich text with a caret and a selection. While the user sees it, its view has the text
// over and is its editor: whatever the user has made of it is fetched from there before the program
// reads or writes anything here.
class RichTextBox : public Control {
public:
    // Bytes of the text. The caret stands at the start of what is selected.
    struct Selection {
        std::size_t start = 0;
        std::size_t length = 0;

        friend bool operator==(const Selection&, const Selection&) = default;
    };

    struct Edit {
        std::optional<RichText> content;  // nothing: the user changed nothing
        Selection selection;
    };

    // What the program wrote while there was no editor: where, over what, and how long it became.
    // In their order, none of them goes into another.
    struct UnseenWrite {
        std::size_t start = 0;
        RichText removed;
        std::size_t length = 0;
        bool beginsStep = false;  // else undone with the one before

        std::size_t End() const { return start + length; }
    };

    // What a view lends while it has the text over.
    struct Editor {
        std::function<Edit()> edit;  // the user's, since it last read what is held here
        std::function<void()> undo;
        std::function<void()> redo;
    };

    RichTextBox(Form& form, std::string name);

    const RichText& Content();
    const std::string& Text() { return Content().Text(); }
    // With the caret at the start and nothing selected.
    void SetContent(RichText content);

    Selection Selected();
    // What lies beyond the text counts as at its end.
    void Select(Selection selection);
    void CaretToEnd() { Select({Content().Length(), 0}); }

    // The style of what is put in from now on.
    TextStyle InsertStyle() const { return style_; }
    void SetInsertStyle(TextStyle style) { style_ = style; }

    // What is put in from here on, up to the next step, is undone as one in the next editor where
    // there is none now. Without any step, it cannot be undone there.
    void BeginStep() { stepBegins_ = true; }
    // Puts the text in at the caret in place of what is selected; the caret comes behind it.
    void Insert(std::string_view text);
    void Insert(const RichText& content);
    void InsertPicture(Picture picture);
    // Of the user's edits, in their editor; nothing where there is none.
    void Undo();
    void Redo();
    // The user can undo this, also where the text is not seen at the time: see Cleared.
    void Clear();

    // Of all the text; of a fixed pitch, so that columns stay columns.
    const TextFont& Font() const { return font_; }

    bool Locked() const { return locked_; }
    void SetLocked(bool locked) { Assign(locked_, locked); }
    // Where lines are folded, in twips; 0 folds them at the window's edge.
    int RightMargin() const { return rightMargin_; }
    void SetRightMargin(int twips) { Assign(rightMargin_, twips); }

    // For the view, which ends being the editor with an empty one.
    void SetEditor(Editor editor);
    const RichText& HeldContent() const { return content_; }
    Selection HeldSelection() const { return selection_; }
    // What was cleared away while there was no editor, in its order and each with a line end: the
    // next editor brings it back in front of the text by one undo, and takes it along when it goes.
    const std::vector<RichText>& Cleared() const { return cleared_; }
    // Likewise what was written behind that, the last steps only.
    const std::deque<UnseenWrite>& Unseen() const { return unseen_; }
    // Grows with every write of the program, so that the view knows when to read again.
    unsigned long Revision() const { return revision_; }
    // Grows with those of them that are not of the selection alone.
    unsigned long TextWrites() const { return textWrites_; }

    // Grows with every change of the text, by the program or the user.
    unsigned long Changes();

private:
    void FetchEdit();
    void NoteWrite(std::size_t length);
    Selection Within(Selection selection) const;
    void Changed(std::size_t caret);

    RichText content_;
    std::vector<RichText> cleared_;
    std::deque<UnseenWrite> unseen_;
    bool stepBegins_ = false;
    Selection selection_;
    TextStyle style_;
    TextFont font_{"Courier New", 8.25};
    bool locked_ = false;
    int rightMargin_ = 0;
    unsigned long revision_ = 0;
    unsigned long textWrites_ = 0;
    unsigned long usersEdits_ = 0;
    Editor editor_;
};

}  // namespace vardel
