#include "forms/reports/frmLogDistRange.h"

#include "engine/LogLine.h"
#include "forms/Doors.h"
#include "forms/SharedData.h"
#include "forms/main/MainForm.h"
#include "forms/reports/RLogClass.h"
#include "forms/shared/BoxRule.h"
#include "forms/shared/Palette.h"
#include "services/Platform.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

struct CheckedBox {
    TextBox frmLogDistRange::*box;
    const char* message;
    const char* replacement;
};

constexpr std::array<CheckedBox, 3> CheckedBoxes = {{
    {&frmLogDistRange::txtStart, "Start Value Must be Numeric", "0.1"},
    {&frmLogDistRange::txtEnd, "End Value Must be Numeric", "300"},
    {&frmLogDistRange::txtStep, "StStep Value Must be Numeric", "0.1"},
}};

void Correct(TextBox& box, double x) { box.SetText(FormatNumber(x, "####0.00")); }

}  // namespace

frmLogDistRange::frmLogDistRange(Platform& platform, SharedData& shared, Doors& doors)
    : Form(platform, "frmLogDistRange", "Report Distance Range"), shared_(shared), doors_(doors) {
    SetAppearance();
    WireEvents();
}

void frmLogDistRange::SetAppearance() {
    SetBackColor(Turquoise);
    for (Control* control : {static_cast<Control*>(&lblStart), static_cast<Control*>(&lblEnd),
                             static_cast<Control*>(&lblStep), static_cast<Control*>(&lblKm[0]),
                             static_cast<Control*>(&lblKm[1]), static_cast<Control*>(&lblKm[2]),
                             static_cast<Control*>(&lblDist), static_cast<Control*>(&chkClearLog),
                             static_cast<Control*>(&shpClearLog)})
        control->SetBackColor(Turquoise);
    cmdExitCalc.SetToolTipText("Retains Calculations in the Log");
}

void frmLogDistRange::WireEvents() {
    for (const CheckedBox& checked : CheckedBoxes) {
        TextBox& box = this->*checked.box;
        box.LostFocus = [this, &box, &checked] {
            // A box that a run has hidden with the focus in it is not one that the user leaves.
            if (!box.Visible() || WholeTextNumber(box.Text())) return;
            GetPlatform().windows.ShowMessage({.text = checked.message, .title = "Warning"});
            box.SetText(checked.replacement);
        };
    }
    cmdLogDistRange.Click = [this] { cmdLogDistRange_Click(); };
    cmdExitCalc.Click = [this] { cmdExitCalc_Click(); };
}

void frmLogDistRange::Form_Load() {
    RunRunning = false;
    ShowRunning(false);
    pgbDist.SetValue(pgbDist.Min());
    chkClearLog.SetChecked(true);
}

void frmLogDistRange::ShowRunning(bool running) {
    for (Control* input : {static_cast<Control*>(&lblStart), static_cast<Control*>(&lblEnd),
                           static_cast<Control*>(&lblStep), static_cast<Control*>(&txtStart),
                           static_cast<Control*>(&txtEnd), static_cast<Control*>(&txtStep),
                           static_cast<Control*>(&lblKm[0]), static_cast<Control*>(&lblKm[1]),
                           static_cast<Control*>(&lblKm[2]), static_cast<Control*>(&chkClearLog)}) {
        input->SetVisible(!running);
        input->SetEnabled(!running);
    }
    shpClearLog.SetVisible(!running);
    lblDist.SetVisible(running);
    lblDist.SetEnabled(running);
    cmdExitCalc.SetCaption(running ? "Exit Calculations" : "Exit");
    cmdExitCalc.SetEnabled(running);
    cmdExitCalc.SetVisible(running);
    cmdLogDistRange.SetCaption(running ? "Restart Sending Distance Range to Log"
                                       : "Begin Sending Distance Range to Log");
}

frmLogDistRange::Range frmLogDistRange::ReadRange() const {
    return {LeadingNumber(txtStart.Text()), LeadingNumber(txtEnd.Text()),
            LeadingNumber(txtStep.Text())};
}

bool frmLogDistRange::CheckDistanceRange() {
    const Range entered = ReadRange();
    Range range = entered;
    if (range.end <= 0.0) range.end = 299.9;
    const bool descending = range.end < range.start;
    if (!descending && range.start < 0.1) range.start = 0.1;
    if (range.step == 0.0) range.step = descending ? -0.1 : 0.1;
    if (descending == (range.step > 0.0)) range.step = -range.step;

    if (range.start != entered.start) Correct(txtStart, range.start);
    if (range.end != entered.end) Correct(txtEnd, range.end);
    if (range.step != entered.step) Correct(txtStep, range.step);
    return range.start != entered.start || range.end != entered.end || range.step != entered.step;
}

// The click of a run's own yield only leaves word: the run that is going takes it up, so that the
// stack does not grow however often it comes.
void frmLogDistRange::cmdLogDistRange_Click() {
    if (RunRunning) {
        restartWanted_ = true;
        return;
    }
    Outcome outcome = Outcome::ToBeRestarted;
    try {
        while (outcome == Outcome::ToBeRestarted) outcome = RunOnce();
    } catch (...) {
        RunRunning = false;
        ShowRunning(false);
        throw;
    }
    RunRunning = false;
    if (outcome != Outcome::Ended) ShowRunning(false);
    if (outcome == Outcome::Finished) SaveLog();
    if (outcome != Outcome::Refused) Unload();
}

// What can refuse a run comes before anything is changed.
frmLogDistRange::Outcome frmLogDistRange::RunOnce() {
    if (CheckDistanceRange()) {
        GetPlatform().windows.ShowMessage({.text = "Invalid Range Entered", .title = "ERROR"});
        return Outcome::Refused;
    }
    const Range range = ReadRange();
    const auto path = doors_.MainForm->ReadInputs(ReadPositiveBox);
    if (!path) return Outcome::Refused;

    DescendingRun = range.end <= range.start;
    pgbDist.SetMax(static_cast<float>(DescendingRun ? range.start : range.end));
    pgbDist.SetMin(static_cast<float>(DescendingRun ? range.end : range.start));
    ShowRunning(true);
    if (chkClearLog.Checked())
        doors_.ReportLog().Clear();
    else
        doors_.ReportLog().BeginStep();
    RunRunning = true;
    restartWanted_ = false;
    const Outcome outcome = WriteLines(range, *path);
    if (outcome == Outcome::Finished) doors_.ReportLog().Add("\r\n");
    return outcome;
}

// The end of the range is compared as it stands: what the additions have rounded may leave it out.
frmLogDistRange::Outcome frmLogDistRange::WriteLines(const Range& range, PathInputs path) {
    ModelInputs inputs = MetricInputs(path);
    for (double d = range.start; range.Holds(d); d += range.step) {
        GetPlatform().windows.Yield();
        // The form, or the whole program, may have been closed meanwhile.
        if (!RunRunning || !doors_.MainForm.Loaded()) return Outcome::Ended;
        if (restartWanted_) return Outcome::ToBeRestarted;
        ShowProgress(d);
        path.distance = inputs.d = d;
        doors_.ReportLog().AddCalculation(
            LogLine(path, Calculation(inputs, path.powerWatts), GetPlatform().clock.Now()));
    }
    return Outcome::Finished;
}

void frmLogDistRange::ShowProgress(double d) {
    const double min = pgbDist.Min(), max = pgbDist.Max();
    pgbDist.SetValue(static_cast<float>(DescendingRun ? max - (d - min) : d));
    lblDist.SetCaption(FormatNumber(d, "####.0") + " Km");
}

void frmLogDistRange::cmdExitCalc_Click() {
    if (RunRunning) SaveLog();
    Unload();
}

void frmLogDistRange::EndSession() {
    if (RunRunning) cmdExitCalc_Click();
}

// A click that is still on its way begins nothing any more.
void frmLogDistRange::Form_Unload() {
    RunRunning = false;
    cmdLogDistRange.SetEnabled(false);
    cmdExitCalc.SetEnabled(false);
}

void frmLogDistRange::SaveLog() {
    if (!shared_.TempLogFile.empty()) doors_.ReportLog().SaveFile(shared_.TempLogFile);
}

}  // namespace vardel
