#include <array>

#include "engine/Calculation.h"
#include "engine/LogLine.h"
#include "forms/Doors.h"
#include "forms/SharedData.h"
#include "forms/main/MainForm.h"
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
    doors_.ReportLog().AddCalculation(LogLine(*path, calculation, GetPlatform().clock.Now()));
    ShowResults(calculation);
    computed_ = *path;
    recent_.Add(*path);
    valuesStale_ = false;
    Tell({});
    GetPlatform().windows.Yield();
    // The program may have been closed meanwhile, and its log with it.
    if (!shared_.TempLogFile.empty()) doors_.ReportLog().SaveFile(shared_.TempLogFile);
}

std::optional<PathInputs> MainForm::ReadInputs(BoxReader read) {
    std::array<double, 3> numbers{};
    std::size_t n = 0;
    for (const auto& [box, head] :
         {std::pair(&txtFreq, &Label1), std::pair(&txthb, &Label3), std::pair(&txthm, &Label4)}) {
        const auto number = read(*box, *head, *this);
        if (!number) return std::nullopt;
        numbers[n++] = *number;
    }
    const auto [frequency, hb, hm] = numbers;
    return PathInputs{.frequency = frequency,
                      .hb = hb,
                      .hm = hm,
                      .units = mnuUnitsEnglish.Checked() ? Units::English : Units::Metric,
                      .area = cmbareatype.Text(),
                      .city = cmbcitysize.Text(),
                      .pctTime = LeadingNumber(txtPctTime.Text()),
                      .pctLoc = LeadingNumber(txtPctLoc.Text()),
                      .powerWatts = GetPowerWatts()};
}

std::optional<PathInputs> MainForm::ReadPathQuietly() { return ReadPath(ReadPositiveBoxQuietly); }

std::optional<PathInputs> MainForm::ReadPath(BoxReader read) {
    auto path = ReadInputs(read);
    if (!path) return std::nullopt;
    const auto distance = read(txtDist, Label2, *this);
    if (!distance) return std::nullopt;
    path->distance = *distance;
    return path;
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
