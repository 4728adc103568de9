#include "forms/reports/FrmReport.h"

#include "engine/LogLine.h"
#include "forms/Doors.h"
#include "forms/SharedData.h"
#include "forms/main/MainForm.h"
#include "forms/reports/frmPrinterSelect.h"
#include "forms/shared/Printing.h"
#include "forms/shared/SaveWithDialog.h"
#include "richtext/Rtf.h"
#include "services/Files.h"
#include "services/Platform.h"

namespace vardel {

namespace {

constexpr int TextFilter = 2;
constexpr int RichTextFilter = 3;
// The caption is the header line once a log was begun.
constexpr const char* LogName = "Calculation Log";

}  // namespace

FrmReport::FrmReport(Platform& platform, Doors& doors)
    : Form(platform, "FrmReport", "Calculation Log"), doors_(doors) {
    lblHeads.SetCaption(LogColumnHeader);
    cmdClear.Click = [this] { cmdClear_Click(); };
    cmdClose.Click = [this] { cmdClose_Click(); };
    cmdFile.Click = [this] { cmdFile_Click(); };
    mnuFileClearLog.Click = [this] { cmdClear_Click(); };
    mnuFileClose.Click = [this] { cmdClose_Click(); };
    mnuFileSaveAs.Click = [this] { cmdFile_Click(); };
    cmdPrint.Click = [this] { cmdPrint_Click(); };
    mnuFilePrint.Click = [this] { cmdPrint_Click(); };
    mnuFilePrinterSetup.Click = [this] { doors_.frmPrinterSelect->ShowModal(this); };
    mnuFileSaveAs.SetShortcut("Ctrl+S");
    mnuFilePrint.SetShortcut("Ctrl+P");
    WireEditMenu();
    ShowFind(false);
}

// Unlike RLogClass::Clear, this leaves the header line. One change, so that the user undoes it as
// one.
void FrmReport::cmdClear_Click() {
    RichText header;
    header.Replace(0, 0, Caption() + "\r\n", {.bold = true, .underline = true});
    rtbLog.SetContent(std::move(header));
    rtbLog.CaretToEnd();
    rtbLog.SetInsertStyle({});
}

void FrmReport::AppendReportText(std::string_view text) {
    rtbLog.BeginStep();
    rtbLog.Insert(text);
    rtbLog.CaretToEnd();
}

void FrmReport::AppendTable(const std::string& table) {
    const std::string_view before =
        std::string_view(rtbLog.Text()).substr(0, rtbLog.Selected().start);
    const bool lineBegins = before.empty() || before.ends_with("\r\n");
    AppendReportText(lineBegins ? table : "\r\n" + table);
}

void FrmReport::cmdClose_Click() {
    lblStatus.SetCaption({});
    Hide();
}

void FrmReport::cmdFile_Click() { SaveAs(TextFilter); }

bool FrmReport::SaveAsRichText() { return SaveAs(RichTextFilter); }

bool FrmReport::SaveAs(int filterIndex) {
    cmdlg = {GetPlatform().programDirectory,
             "All Files (*.*)|*.*|Text Files (*.txt)|*.txt|Rich Text (*.rtf)|*.rtf", filterIndex,
             LogName};
    return SaveWithDialog(*this, cmdlg, [this](const SaveChoice& choice) {
        SaveTo(choice);
        if (doors_.MainForm.Loaded())
            doors_.MainForm->Tell("The log was saved in " + choice.path + '.');
    });
}

// As plain text. The printer keeps the orientation.
void FrmReport::cmdPrint_Click() {
    PrintOnCurrentPrinter(*this, LogName, [this](const std::string& file) {
        Printers& printers = GetPlatform().printers;
        printers.SetFont(rtbLog.Font());
        printers.SetOrientation(PageOrientation::Landscape);
        printers.PrintText({});
        printers.PrintText(rtbLog.Content().PlainText());
        printers.EndDocument(LogName, file);
    });
}

void FrmReport::SaveTo(const SaveChoice& choice) {
    if (choice.filterIndex == RichTextFilter)
        ReplaceFile(choice.path, WriteRtf(rtbLog.Content()));
    else
        ReplaceFile(choice.path, rtbLog.Content().PlainText() + "\r\n");
}

}  // namespace vardel
