#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "richtext/RichText.h"

namespace vardel {

struct Doors;
struct LogPiece;
struct Platform;

// The report log as the rest of the program writes it. Its text lives in the box of FrmReport,
// which is loaded, hidden, from the making of this object to its end.
class RLogClass {
public:
    static constexpr int UnfoldedMargin = 32000;  // twips; a log line is never that long

    RLogClass(Platform& platform, Doors& doors);
    RLogClass(const RLogClass&) = delete;
    RLogClass& operator=(const RLogClass&) = delete;
    ~RLogClass();

    void Show();

    // Reads rich text in place of what the log holds and sets the caret to its end. False, with the
    // log as it was, when the file cannot be read or holds no rich text; an empty file is an empty
    // log.
    bool ReadFile(const std::string& path);
    // Rich text, readable by the user alone. False when it cannot be written.
    bool SaveFile(const std::string& path);
    // Whether the log was changed since it was last read, saved, or said to need no saving.
    bool HasUnsavedChanges();
    void CountAsSaved();

    // The style of what is added from now on.
    void SetUnderline(bool on);
    void SetItalic(bool on);
    void SetBold(bool on);

    const std::string& Title() const;
    void SetTitle(std::string title);

    // Leaves no header line.
    void Clear();
    // What is added from here on is undone as one in the log's window.
    void BeginStep();
    // Goes in at the caret in place of what is selected, and leaves the caret at the end of the
    // text.
    void Add(std::string_view text = {});
    void AddLine(std::string_view text = {});
    // A line of a calculation, whole as one Add.
    void AddCalculation(const std::vector<LogPiece>& line);
    // The title as a header line.
    void AddTitle();
    // At the caret, also when the box is locked against typing.
    void PasteClipboard();

private:
    void SetStyle(bool TextStyle::*which, bool on);

    Platform& platform_;
    Doors& doors_;
    unsigned long savedChanges_ = 0;  // how many changes the log's file has
};

}  // namespace vardel
