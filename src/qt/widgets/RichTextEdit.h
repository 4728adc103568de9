#pragma once

#include <QTextEdit>
#include <QTimer>
#include <chrono>
#include <map>
#include <memory>

#include "qt/binder/Binder.h"
#include "qt/widgets/TextPositions.h"
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
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    void ReadBox();
    void ShowAfresh(const RichText& content);
    void ShowAsEdit(const RichText& content);
    // Of a long text that has just been shown, the styles come after it: from its end to its
    // beginning, for as long as allowed; all of them before they are seen or the text is edited.
    void StyleFor(std::chrono::milliseconds time);
    void StyleRest();
    // What the program wrote into the text while it was hidden: taken out of a document that has
    // so many units in front of it, and, once undoing is on, written into what is behind them.
    std::vector<TextPlace> TakeBackUnseen(QTextDocument& document, const RichText& text,
                                          int unitsBefore);
    void WriteUnseenAgain(QTextDocument& document, const RichText& text,
                          const std::vector<TextPlace>& places);
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
    RichText unstyled_;                  // a copy of the text; empty when all is styled
    std::size_t unstyledStretches_ = 0;  // of its front
    int unstyledUnits_ = 0;              // of the document, which these stretches are
    QTimer styling_;
    std::map<QString, std::shared_ptr<const Picture>> pictures_;
};

}  // namespace vardel
