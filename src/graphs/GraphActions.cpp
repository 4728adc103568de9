#include "graphs/GraphActions.h"

#include "platform/Platform.h"
#include "platform/SaveWithDialog.h"
#include "reports/FrmPrintOut.h"
#include "reports/RLogClass.h"
#include "workbench/Program.h"

namespace vardel {

void SaveGraph(Form& form, Chart& chart) {
    SaveWithDialog(
        form, "Windows Meta File (*.wmf)|*.wmf", 1,
        [&chart](const SaveChoice& choice) { chart.SaveMetafile(2, choice.path); },
        chart.Title[0].Text);
}

void CopyGraphToLog(Program& program, Chart& chart) {
    program.platform.clipboard.Clear();
    chart.CopyToClipboard();
    program.ReportLog().PasteClipboard();
    program.ReportLog().AddLine("[Clip Board Image]");
}

void PrintGraph(Program& program, Form& form, Chart& chart) {
    program.ChartToPrint = &chart;
    program.FrmPrintOut->ShowModal(&form);
}

const char* MeasuredCaption(bool shown) {
    return shown ? "&Hide Measured Data" : "&Show Measured Data";
}

void ToggleMeasuredData(Program& program, MenuItem& entry) {
    program.ShowMeasuredData = entry.Caption() != MeasuredCaption(true);
    entry.SetCaption(MeasuredCaption(program.ShowMeasuredData));
}

}  // namespace vardel
