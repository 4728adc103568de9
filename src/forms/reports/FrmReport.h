#pragma once

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

    void CloseByFrame() override { Hide(); }
    // Asks for a file, proposing rich text, and saves the log there. True when it has.
    bool SaveAsRichText();

    RichTextBox rtbLog{*this, "rtbLog"};
    Button cmdClose{*this, "cmdClose", "Close"};
    Button cmdFile{*this, "cmdFile", "Save to File"};
    Button cmdPrint{*this, "cmdPrint", "Print"};
    Button cmdClear{*this, "cmdClear", "Clear Log"};

    MenuItem mnuFile{*this, "mnuFile", "&File"};
    MenuItem mnuFileClearLog{mnuFile, "mnuFileClearLog", "&Clear Log"};
    MenuItem mnuFileSaveAs{mnuFile, "mnuFileSaveAs", "&Save As ..."};
    MenuItem mnuFilePrinterSetup{mnuFile, "mnuFilePrinterSetup", "Printer Setup"};
    MenuItem mnuFilePrint{mnuFile, "mnuFilePrint", "&Print"};
    MenuItem mnuFileClose{mnuFile, "mnuFileClose", "&Close"};

private:
    void cmdClear_Click();
    void cmdClose_Click();
    void cmdFile_Click();
    void cmdPrint_Click();

    bool SaveAs(int filterIndex);
    void SaveTo(const SaveChoice& choice);
};

}  // namespace vardel
