#include "forms/graphs/GraphActions.h"

#include "forms/Doors.h"
#include "forms/SharedData.h"
#include "forms/reports/FrmPrintOut.h"
#include "forms/reports/RLogClass.h"
#include "forms/shared/SaveWithDialog.h"
#include "services/Platform.h"

namespace vardel {

void SaveGraph(Form& form, FileDialog& dialog, Chart& chart) {
    dialog = {form.GetPlatform().programDirectory, "Windows Meta File (*.wmf)|*.wmf", 1,
              chart.Title[0].Text};
    SaveWithDialog(form, dialog,
                   [&chart](const SaveChoice& choice) { chart.SaveMetafile(2, choice.path); });
}

void CopyGraphToLog(Doors& doors, Chart& chart) {
    doors.platform.clipboard.Clear();
    chart.CopyToClipboard();
    doors.ReportLog().BeginStep();
    doors.ReportLog().PasteClipboard();
    doors.ReportLog().AddLine("[Clip Board Image]");
}

void PrintGraph(SharedData& shared, Doors& doors, Form& form, Chart& chart) {
    shared.ChartToPrint = &chart;
    doors.FrmPrintOut->ShowModal(&form);
}

const char* MeasuredCaption(bool shown) {
    return shown ? "&Hide Measured Data" : "&Show Measured Data";
}

void ToggleMeasuredData(SharedData& shared, MenuItem& entry) {
    shared.ShowMeasuredData = entry.Caption() != MeasuredCaption(true);
    entry.SetCaption(MeasuredCaption(shared.ShowMeasuredData));
}

}  // namespace vardel
