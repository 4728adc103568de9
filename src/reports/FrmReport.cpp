#include "reports/FrmReport.h"

#include <exception>

#include "platform/Files.h"
#include "platform/Rtf.h"
#include "workbench/Program.h"

namespace vardel {

namespace {

constexpr int TextFilter = 2;
constexpr int RichTextFilter = 3;

}  // namespace

FrmReport::FrmReport(Program& program) : Form(program.platform, "FrmReport", "Calculation Log") {
    cmdClear.Click = [this] { cmdClear_Click(); };
    cmdClose.Click = [this] { cmdClose_Click(); };
    cmdFile.Click = [this] { cmdFile_Click(); };
    mnuFileClearLog.Click = [this] { cmdClear_Click(); };
    mnuFileClose.Click = [this] { cmdClose_Click(); };
    mnuFileSaveAs.Click = [this] { cmdFile_Click(); };

    // Printing is not there yet.
    cmdPrint.SetEnabled(false);
    mnuFilePrint.SetEnabled(false);
    mnuFilePrinterSetup.SetEnabled(false);
}

// Unlike RLogClass::Clear, this leaves the header line.
void FrmReport::cmdClear_Click() {
    rtbLog.Clear();
    rtbLog.SetInsertStyle({.bold = true, .underline = true});
    rtbLog.Insert(Caption() + "\r\n");
    rtbLog.CaretToEnd();
    rtbLog.SetInsertStyle({});
}

void FrmReport::cmdClose_Click() { Hide(); }

void FrmReport::cmdFile_Click() {
    const auto choice = GetPlatform().windows.AskSaveFile(
        {.folder = GetPlatform().programDirectory,
         .filters = "All Files (*.*)|*.*|Text Files (*.txt)|*.txt|Rich Text (*.rtf)|*.rtf",
         .filterIndex = TextFilter});
    if (!choice || choice->path.empty()) return;
    if (FileExists(choice->path) &&
        GetPlatform().windows.ShowMessage({.text = "File already exits.  Overwrite It?",
                                           .buttons = Message::Buttons::YesNo}) == Answer::No)
        return;
    SetMousePointer(Pointer::Hourglass);
    try {
        SaveTo(*choice);
        SetMousePointer(Pointer::Normal);
    } catch (const std::exception&) {
        SetMousePointer(Pointer::Normal);
        GetPlatform().windows.ShowMessage({.text = "Error in saving file " + choice->path,
                                           .title = "File Save",
                                           .icon = Message::Icon::Critical});
    }
}

void FrmReport::SaveTo(const SaveChoice& choice) {
    if (choice.filterIndex == RichTextFilter)
        ReplaceFile(choice.path, WriteRtf(rtbLog.Content()));
    else
        ReplaceFile(choice.path, rtbLog.Content().PlainText() + "\r\n");
}

}  // namespace vardel
