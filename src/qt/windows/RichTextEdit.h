#pragma once

#include <QTextEdit>
#include <map>
#include <memory>

#include "qt/windows/Binder.h"
#include "richtext/RichTextBox.h"

namespace vardel {

// The editor of a rich text box. It holds the text only while its window is shown: a hidden log
// costs no layout, however long it grows.
class RichTextEdit : public QTextEdit {
public:
    static constexpr int Margin = 8;  // around the text, in points

    RichTextEdit(RichTextBox& box, Binder& binder);

    // The text from the box, and the user's edits back to it from now on.
    void TakeOver();
    // Hands everything back and forgets it.
    void Leave();

protected:
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;
    QMimeData* createMimeDataFromSelection() const override;

private:
    void ReadBox();
    void ShowAfresh(const RichText& content);
    void ShowAsEdit(const RichText& content);
    // In place of what the cursor has selected; undone as one.
    void InsertAt(QTextCursor& cursor, const RichText& content);
    void InsertPicture(QTextCursor& cursor, const std::shared_ptr<const Picture>& picture,
                       const QTextCharFormat& style);
    RichTextBox::Edit UsersEdit();
    RichText ContentOf(const QTextDocument& document) const;

    RichTextBox& box_;
    Binder& binder_;
    bool editing_ = false;
    unsigned long revision_ = 0;  // of the box when it was last read, as is the next
    unsigned long textWrites_ = 0;
    std::map<QString, std::shared_ptr<const Picture>> pictures_;
};

}  // namespace vardel
