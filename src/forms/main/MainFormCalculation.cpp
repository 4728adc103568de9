#include <array>

#include "engine/LogLine.h"
#include "engine/Units.h"
#include "forms/Doors.h"
#include "forms/SharedData.h"
#include "forms/main/MainForm.h"
#include "forms/reports/RLogClass.h"
#include "forms/shared/BoxRule.h"
#include "models/ModCalculations.h"
#include "services/Platform.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

struct Result {
    Label MainForm::*label;
    ModelNumber model;
    ModelFunction function;
};

constexpr std::array<Result, 6> Results = {{
    {&MainForm::lblcost231, ModelCost231, Cost231Loss},
    {&MainForm::lblDavidson, ModelDavidson, DavidsonLoss},
    {&MainForm::lblPalvernDavFS, ModelDavidson, DavidsonFieldStrength},
    {&MainForm::lblFITU529, ModelItu529, Itu529FieldStrength},
    {&MainForm::lblOH529dBLoss, ModelItu529, Itu529Loss},
    {&MainForm::lblFCost231, ModelCost231, Cost231FieldStrength},
}};

}  // namespace

void MainForm::cmdLossCalc_Click() {
    const auto line = ReadRunInputs();
    if (!line || !WithinLimits(*line)) return;
    AddLogLine(doors_.ReportLog(), *line, GetPlatform().clock);
    ShowResults(*line);
    GetPlatform().windows.Yield();
    // The program may have been closed meanwhile, and its log with it.
    if (!shared_.TempLogFile.empty()) doors_.ReportLog().SaveFile(shared_.TempLogFile);
}

std::optional<LogLine> MainForm::ReadInputs(BoxReader read) {
    std::array<double, 3> numbers{};
    std::size_t n = 0;
    for (const auto& [box, head] :
         {std::pair(&txtFreq, &Label1), std::pair(&txthb, &Label3), std::pair(&txthm, &Label4)}) {
        const auto number = read(*box, *head, *this);
        if (!number) return std::nullopt;
        numbers[n++] = *number;
    }
    const auto [frequency, hb, hm] = numbers;
    const bool english = mnuUnitsEnglish.Checked();
    const double heightFactor = english ? MetresPerFoot : 1.0;
    return LogLine{.frequency = frequency,
                   .hb = hb,
                   .hm = hm,
                   .english = english,
                   .inputs = {.f = frequency,
                              .d = 0.0,
                              .hb = hb * heightFactor,
                              .hm = hm * heightFactor,
                              .area = cmbareatype.Text(),
                              .city = cmbcitysize.Text(),
                              .pctTime = LeadingNumber(txtPctTime.Text()),
                              .pctLoc = LeadingNumber(txtPctLoc.Text())},
                   .powerWatts = GetPowerWatts()};
}

std::optional<LogLine> MainForm::ReadRunInputs() {
    auto line = ReadInputs(ReadNumberBox);
    if (!line) return std::nullopt;
    const auto distance = ReadNumberBox(txtDist, Label2, *this);
    if (!distance) return std::nullopt;
    line->distance = *distance;
    line->inputs.d = line->english ? *distance * KmPerMile : *distance;
    return line;
}

// The limits of a run, in metric units. They are wider than the messages say in places.
bool MainForm::WithinLimits(const LogLine& line) {
    const ModelInputs& in = line.inputs;
    const char* message = nullptr;
    if (!(30.0 <= in.f && in.f <= 2000.0))
        message = "Valid Frequency Range 30Mhz to 2000 MHz";
    else if (!(20.0 <= in.hb && in.hb <= 2500.0))
        message = "Valid Height of Base Station Antenna is 30m to 200m";
    else if (!(1.0 <= in.hm && in.hm <= 30.0))
        message = "Valid Height of Mobile Antenna is 1m to 30m";
    else if (!(0.0 < in.d && in.d <= 300.0))
        message = "Valid Range is 0 < Distance <= 300 km";
    if (message == nullptr) return true;
    GetPlatform().windows.ShowMessage({.text = message});
    return false;
}

void MainForm::ShowResults(const LogLine& line) {
    const ModelInputs& in = line.inputs;
    for (const Result& result : Results)
        (this->*result.label).SetCaption(FormatNumber(result.function(in), "###0.00"));
    for (const Result& result : Results) {
        const bool inRange = ModelInRange(result.model, in.f, in.hb, in.hm, in.d, in.area);
        Label& label = this->*result.label;
        label.SetBackColor(inRange ? White : shared_.OutOfRangeColor);
        label.SetStateText(inRange ? "In the model's range" : "Out of the model's range");
    }
}

}  // namespace vardel
