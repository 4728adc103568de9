#include "forms/tools/MeasuredForm.h"

#include <algorithm>
#include <cmath>

#include "engine/PathText.h"
#include "engine/measured/MeasuredMatchText.h"
#include "forms/Doors.h"
#include "forms/SharedData.h"
#include "forms/graphs/chart/ChartSetup.h"
#include "forms/main/MainForm.h"
#include "forms/reports/FrmReport.h"
#include "forms/shared/BoxMark.h"
#include "forms/shared/SaveWithDialog.h"
#include "services/Files.h"
#include "services/Platform.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

constexpr std::size_t MostPercents = 5;

// The least multiple of ten that holds it.
double Tens(double x) { return std::max(10.0, std::ceil(x / 10.0) * 10.0); }

std::string WithCarriageReturns(const std::string& text) {
    std::string lines;
    for (const char c : text) lines += c == '\n' ? std::string("\r\n") : std::string(1, c);
    return lines;
}

}  // namespace

MeasuredForm::MeasuredForm(Platform& platform, SharedData& shared, Doors& doors)
    : Form(platform, "MeasuredForm", "Measured Data"), shared_(shared), doors_(doors) {
    SetHelpContextID(HelpTopic::MeasuredData);
    txtPercents.SetHoldsNumber(false);
    txtPercents.SetToolTipText("One or several, such as 50 90 95");
    cmdCopy.SetToolTipText("As text and as CSV");
    WireEvents();
}

void MeasuredForm::WireEvents() {
    txtPercents.Change = [this] { BringUpToDate(); };
    cmdAdd.Click = [this] { cmdAdd_Click(); };
    cmdCopy.Click = [this] {
        if (!fits_.empty()) GetPlatform().clipboard.SetText(FitTable(fits_), FitCsv(fits_));
    };
    cmdSave.Click = [this] { cmdSave_Click(); };
    cmdClose.Click = [this] { Unload(); };
}

void MeasuredForm::Form_Load() { BringUpToDate(); }

void MeasuredForm::cmdAdd_Click() {
    if (fits_.empty()) return;
    doors_.FrmReport->AppendTable(WithCarriageReturns("Measured data: " + lblPath.Caption() + '\n' +
                                                      lblMatch.Caption() + '\n' + FitTable(fits_)));
}

void MeasuredForm::cmdSave_Click() {
    if (fits_.empty()) return;
    SaveWithDialog(
        *this, "CSV Files (*.csv)|*.csv", 1,
        [this](const SaveChoice& choice) { ReplaceFile(choice.path, FitCsv(fits_)); },
        "measured against models.csv");
}

// None where one of them is no percentage.
std::vector<double> MeasuredForm::ReadPercents() {
    std::vector<double> percents;
    std::string text = txtPercents.Text();
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == ',' || c == ';'; }, ' ');
    std::string_view rest = Trimmed(text);
    bool good = !rest.empty();
    while (good && !rest.empty()) {
        const auto end = std::min(rest.find(' '), rest.size());
        const auto number = WholeTextNumber(rest.substr(0, end));
        good = number && 1.0 <= *number && *number <= 99.0 && percents.size() < MostPercents;
        if (good) percents.push_back(*number);
        rest = Trimmed(rest.substr(end));
    }
    const char* const rule = "Enter up to five percentages of locations from 1 to 99.";
    lblProblem.SetCaption(good ? "" : rule);
    return MarkBox(txtPercents, good, rule) ? percents : std::vector<double>();
}

void MeasuredForm::BringUpToDate() {
    if (!doors_.MainForm.Loaded()) return;
    const std::vector<double> percents = ReadPercents();
    const auto path = doors_.MainForm->ReadPathQuietly();
    if (path) {
        lblPath.SetCaption(PathText(*path));
    } else {
        lblPath.SetCaption("");
        lblMatch.SetCaption("");
        lblProblem.SetCaption("Every box of the main window must hold a number above zero.");
    }
    ShowFits(path ? &*path : nullptr, percents);
}

void MeasuredForm::ShowFits(const PathInputs* path, const std::vector<double>& percents) {
    fits_.clear();
    if (path != nullptr) {
        const ModelInputs in = MetricInputs(*path);
        const MeasuredMatch match = FindMeasuredSegment(in.f, in.hb, in.hm, in.area,
                                                        in.pctTime / 100.0, shared_.MeasuredTable);
        lblMatch.SetCaption(MatchText(*path, shared_.MeasuredTable, match));
        if (match.found)
            fits_ = FitsOf(*path, shared_.MeasuredTable[static_cast<std::size_t>(match.segment)],
                           match.column, percents);
    }
    lblFit.SetCaption(fits_.empty() ? "There is nothing to compare." : FitTable(fits_));
    for (Button* button : {&cmdAdd, &cmdCopy, &cmdSave}) button->SetEnabled(!fits_.empty());
    ShowErrors(percents.empty() ? 0.0 : percents.front());
}

void MeasuredForm::ShowErrors(double pctLoc) {
    double farthest = 0.0, greatest = 0.0;
    for (const MeasuredFit& fit : fits_)
        for (const MeasuredFit::Point& point : fit.points) {
            farthest = std::max(farthest, point.km);
            if (fit.pctLoc == pctLoc) greatest = std::max(greatest, std::abs(point.Error()));
        }
    CTWXErrors.HideSeries();
    const CurvePlot plot = ErrorPlot(fits_, pctLoc);
    ShowPlot(CTWXErrors, plot);
    CTWXErrors.Legend.Visible = !plot.empty();
    // The legend has its place behind the last point.
    SetChartScales(CTWXErrors, Tens(1.3 * farthest), -Tens(1.2 * greatest), Tens(1.2 * greatest));
    CTWXErrors.Axis[0].MajorStep = 0.0;
    SetChartTitles(CTWXErrors, plot.empty() ? "" : PercentText(pctLoc) + " of locations",
                   lblPath.Caption());
    CTWXErrors.Redraw();
}

}  // namespace vardel
