#include "forms/graphs/GraphActions.h"

#include "forms/Program.h"
#include "forms/reports/FrmPrintOut.h"
#include "forms/reports/RLogClass.h"
#include "forms/shared/SaveWithDialog.h"
#include "services/Platform.h"

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
