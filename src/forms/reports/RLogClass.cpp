#include "forms/reports/RLogClass.h"

#include <system_error>

#include "engine/LogLine.h"
#include "forms/Doors.h"
#include "forms/reports/FrmReport.h"
#include "richtext/Rtf.h"
#include "services/Files.h"
#include "services/Platform.h"

namespace vardel {

RLogClass::RLogClass(Platform& platform, Doors& doors) : platform_(platform), doors_(doors) {
    SetTitle("Report Log");
}

RLogClass::~RLogClass() { doors_.FrmReport->Unload(); }

void RLogClass::Show() { doors_.FrmReport->ShowModal(); }

bool RLogClass::ReadFile(const std::string& path) {
    const auto file = ReadWholeFile(path);
    if (!file) return false;
    auto content = file->empty() ? RichText() : ReadRtf(*file);
    if (!content) return false;
    doors_.FrmReport->rtbLog.SetContent(std::move(*content));
    Add();
    CountAsSaved();
    return true;
}

bool RLogClass::SaveFile(const std::string& path) {
    try {
        ReplaceFile(path, WriteRtf(doors_.FrmReport->rtbLog.Content()), Access::OwnerOnly);
        CountAsSaved();
        return true;
    } catch (const std::system_error&) {
        return false;
    }
}

bool RLogClass::HasUnsavedChanges() { return doors_.FrmReport->rtbLog.Changes() != savedChanges_; }

void RLogClass::CountAsSaved() { savedChanges_ = doors_.FrmReport->rtbLog.Changes(); }

void RLogClass::SetStyle(bool TextStyle::*which, bool on) {
    RichTextBox& box = doors_.FrmReport->rtbLog;
    TextStyle style = box.InsertStyle();
    style.*which = on;
    box.SetInsertStyle(style);
}

void RLogClass::SetUnderline(bool on) { SetStyle(&TextStyle::underline, on); }
void RLogClass::SetItalic(bool on) { SetStyle(&TextStyle::italic, on); }
void RLogClass::SetBold(bool on) { SetStyle(&TextStyle::bold, on); }

const std::string& RLogClass::Title() const { return doors_.FrmReport->Caption(); }
void RLogClass::SetTitle(std::string title) { doors_.FrmReport->SetCaption(std::move(title)); }

void RLogClass::Clear() {
    doors_.FrmReport->rtbLog.Clear();
    doors_.FrmReport->rtbLog.SetRightMargin(UnfoldedMargin);
}

void RLogClass::BeginStep() { doors_.FrmReport->rtbLog.BeginStep(); }

void RLogClass::Add(std::string_view text) {
    RichTextBox& box = doors_.FrmReport->rtbLog;
    box.Insert(text);
    box.CaretToEnd();
}

void RLogClass::AddLine(std::string_view text) { Add(std::string(text) + "\r\n"); }

void RLogClass::AddCalculation(const std::vector<LogPiece>& line) {
    RichTextBox& box = doors_.FrmReport->rtbLog;
    TextStyle style = box.InsertStyle();
    RichText whole;
    for (const LogPiece& piece : line) {
        style.underline = piece.underlined;
        whole.Replace(whole.Length(), 0, piece.text, style);
    }
    box.Insert(whole);
    box.CaretToEnd();
    SetUnderline(false);
}

void RLogClass::AddTitle() {
    doors_.FrmReport->rtbLog.SetRightMargin(UnfoldedMargin);
    SetUnderline(true);
    SetBold(true);
    AddLine(Title());
    SetUnderline(false);
    SetBold(false);
}

void RLogClass::PasteClipboard() {
    RichTextBox& box = doors_.FrmReport->rtbLog;
    Clipboard& clipboard = platform_.clipboard;
    const bool locked = box.Locked();
    box.SetLocked(false);
    if (auto picture = clipboard.GetPicture())
        box.InsertPicture(std::move(*picture));
    else
        box.Insert(clipboard.GetText());
    box.SetLocked(locked);
}

}  // namespace vardel
