#pragma once

#include <string_view>

#include "richtext/RichTextBox.h"
#include "services/Platform.h"

namespace vardel {

struct Doors;
struct Platform;

// The window of the report log. Its box holds the log's text for as long as the program runs;
// closing the window, by its button or its frame, only hides it.
class FrmReport : public Form {
public:
    FrmReport(Platform& platform, Doors& doors);

    void CloseByFrame() override { cmdClose_Click(); }
    // Asks for a file, proposing rich text, and saves the log there. True when it has.
    bool SaveAsRichText();

    RichTextBox rtbLog{*this, "rtbLog"};
    Button cmdClose{*this, "cmdClose", "Close"};
    Button cmdFile{*this, "cmdFile", "Save to File"};
    Button cmdPrint{*this, "cmdPrint", "Print"};
    Button cmdClear{*this, "cmdClear", "Clear Log"};

    // Shown by Find.
    Label lblFind{*this, "lblFind", "Find"};
    TextBox txtFind{*this, "txtFind"};
    Button cmdFindNext{*this, "cmdFindNext", "&Next"};
    Button cmdFindPrevious{*this, "cmdFindPrevious", "P&revious"};
    // The heads of the columns, which stay in view.
    Label lblHeads{*this, "lblHeads"};
    // What came of a search, of inputs that were taken back.
    Label lblStatus{*this, "lblStatus"};

    FileDialog cmdlg;  // as it was asked for last

    MenuItem mnuFile{*this, "mnuFile", "&File"};
    MenuItem mnuFileClearLog{mnuFile, "mnuFileClearLog", "&Clear Log"};
    MenuItem mnuFileSaveAs{mnuFile, "mnuFileSaveAs", "&Save As ..."};
    MenuItem mnuFilePrinterSetup{mnuFile, "mnuFilePrinterSetup", "Printer Setup"};
    MenuItem mnuFilePrint{mnuFile, "mnuFilePrint", "&Print"};
    MenuItem mnuFileClose{mnuFile, "mnuFileClose", "&Close"};

    MenuItem mnuEdit{*this, "mnuEdit", "&Edit"};
    MenuItem mnuEditUndo{mnuEdit, "mnuEditUndo", "&Undo"};
    MenuItem mnuEditRedo{mnuEdit, "mnuEditRedo", "&Redo"};
    MenuItem mnuEditSep1{mnuEdit, "mnuEditSep1", "-"};
    MenuItem mnuEditFind{mnuEdit, "mnuEditFind", "&Find ..."};
    MenuItem mnuEditFindNext{mnuEdit, "mnuEditFindNext", "Find &Next"};
    MenuItem mnuEditFindPrevious{mnuEdit, "mnuEditFindPrevious", "Find &Previous"};
    MenuItem mnuEditSep2{mnuEdit, "mnuEditSep2", "-"};
    MenuItem mnuEditTake{mnuEdit, "mnuEditTake", "&Take These Inputs"};
    MenuItem mnuEditSaveCsv{mnuEdit, "mnuEditSaveCsv", "Save as &CSV ..."};

    void ShowFind(bool show);
    // At the caret in place of what is selected, with the caret at the log's end then; one step of
    // undoing. The window need not be open.
    void AppendReportText(std::string_view text);
    // Likewise on lines of its own.
    void AppendTable(const std::string& table);

private:
    void cmdClear_Click();
    void cmdClose_Click();
    void cmdFile_Click();
    void cmdPrint_Click();

    bool SaveAs(int filterIndex);
    void SaveTo(const SaveChoice& choice);

    // FrmReportEdit.cpp
    enum class Search { FromHere, Next, Previous };
    void WireEditMenu();
    void Find(Search search);
    void mnuEditTake_Click();
    void mnuEditSaveCsv_Click();
    std::string_view LineAtCaret();

    Doors& doors_;
};

}  // namespace vardel
