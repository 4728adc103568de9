
#include "engine/Calculation.h"
#include "engine/LogLine.h"
#include "forms/Doors.h"
#include "forms/SharedData.h"
#include "forms/main/MainForm.h"
#include "forms/reports/FrmReport.h"
#include "forms/reports/RLogClass.h"
#include "forms/shared/BoxRule.h"
#include "models/Primitives.h"
#include "services/Platform.h"
#include "text/NumberText.h"

namespace vardel {

void MainForm::cmdLossCalc_Click() {
    const auto path = ReadPath(ReadNumberBox);
    if (!path) return;
    const ModelInputs inputs = MetricInputs(*path);
    if (const auto refusal = RefusalOf(inputs)) {
        GetPlatform().windows.ShowMessage({.text = *refusal});
        return;
    }
    const Calculation calculation(inputs, path->powerWatts);
    const bool replaces = doors_.FrmReport->rtbLog.Selected().length > 0;
    doors_.ReportLog().BeginStep();
    doors_.ReportLog().AddCalculation(LogLine(*path, calculation, GetPlatform().clock.Now()));
    ShowResults(calculation);
    computed_ = *path;
    recent_.Add(*path);
    valuesStale_ = false;
    Tell(replaces ? "The line replaced what was selected in the log. Ctrl+Z there brings "
                    "it back."
                  : "");
    GetPlatform().windows.Yield();
    // The program may have been closed meanwhile, and its log with it.
    if (!shared_.TempLogFile.empty()) doors_.ReportLog().SaveFile(shared_.TempLogFile);
}

std::optional<PathInputs> MainForm::ReadInputs(BoxReader read) { return ReadBoxes(read, false); }

std::optional<PathInputs> MainForm::ReadPath(BoxReader read) { return ReadBoxes(read, true); }

std::optional<PathInputs> MainForm::ReadPathQuietly() { return ReadPath(ReadPositiveBoxQuietly); }

// In the order in which a message names the first that is wrong.
std::optional<PathInputs> MainForm::ReadBoxes(BoxReader read, bool withDistance) {
    const auto f = read(txtFreq, Label1, *this);
    if (!f) return std::nullopt;
    const auto d = withDistance ? read(txtDist, Label2, *this) : 0.0;
    if (!d) return std::nullopt;
    const auto hb = read(txthb, Label3, *this);
    if (!hb) return std::nullopt;
    const auto hm = read(txthm, Label4, *this);
    if (!hm) return std::nullopt;
    return PathInputs{.distance = *d,
                      .frequency = *f,
                      .hb = *hb,
                      .hm = *hm,
                      .units = mnuUnitsEnglish.Checked() ? Units::English : Units::Metric,
                      .area = cmbareatype.Text(),
                      .city = cmbcitysize.Text(),
                      .pctTime = LeadingNumber(txtPctTime.Text()),
                      .pctLoc = LeadingNumber(txtPctLoc.Text()),
                      .powerWatts = GetPowerWatts()};
}

void MainForm::ShowResults(const Calculation& calculation) {
    std::string told;
    for (const ModelLabels& labels : LabelsOfModels) {
        const ModelResult& of = calculation.Of(labels.model);
        for (const auto& [shown, value] :
             {std::pair(labels.loss, of.loss), std::pair(labels.fieldStrength, of.fieldStrength)}) {
            Label& label = this->*shown;
            label.SetCaption(FormatNumber(value, "###0.00"));
            label.SetBackColor(of.inRange ? White : shared_.OutOfRangeColor);
            label.SetToolTipText(of.inRange ? "" : "Out of the model's range");
            label.SetStateText(of.inRange ? "In the model's range" : "Out of the model's range");
        }
        told += (this->*labels.heads)[0].Caption() + ": " + (this->*labels.loss).Caption() +
                " dB, " + (this->*labels.fieldStrength).Caption() + " dB(µV/m)" +
                (of.inRange ? ". " : ", out of the model's range. ");
    }
    GetPlatform().windows.Announce(told);
}

}  // namespace vardel
