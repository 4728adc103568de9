#include "forms/graphs/PlotForm.h"

#include <array>
#include <utility>

#include "controls/Hourglass.h"
#include "engine/Units.h"
#include "forms/Doors.h"
#include "forms/SharedData.h"
#include "forms/archive/ArchiveForm.h"
#include "forms/archive/ArchiveRun.h"
#include "forms/graphs/GraphActions.h"
#include "forms/graphs/ValuesForm.h"
#include "forms/graphs/chart/ChartSetup.h"
#include "forms/help/ContextIDs.h"
#include "forms/main/MainForm.h"
#include "forms/main/UnitSwitch.h"
#include "forms/shared/BoxRule.h"
#include "models/Primitives.h"
#include "services/Platform.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

struct RuledBox {
    TextBox PlotForm::*box;
    BoxRule rule;
};

// Narrower than the main form's rules in places; the base height's message names another limit.
constexpr std::array<RuledBox, 5> RuledBoxes = {{
    {&PlotForm::txtFreq,
     {150, 2000, 150, "Valid Frequency Range 150 MHz to 2000 MHz", InputPattern}},
    {&PlotForm::txthb,
     {30, 2500, 30, "Valid Height of Base Station Antenna is 30m to 200m", InputPattern}},
    {&PlotForm::txthm, {1, 30, 1, "Valid Height of Mobile Antenna is 1m to 30m", InputPattern}},
    {&PlotForm::txtPctTime, {1, 99, 50, "Percent Range 1 to 99", "#0"}},
    {&PlotForm::txtPctLoc, {1, 99, 50, "Percent Range 1 to 99", "#0"}},
}};

}  // namespace

PlotForm::PlotForm(Platform& platform, SharedData& shared, Doors& doors, const Names& names)
    : Form(platform, names.form, names.caption),
      shared_(shared),
      doors_(doors),
      chart_(*this, names.chart, names.chartTitle, names.distanceTitle, names.valueTitle),
      baseAntenna_(*this, names.baseAntennaLabel, "Base Antenna"),
      archive_(*this, names.archiveButton, "Add to Archive") {
    lblStatus.SetVisible(false);
    lblHandBack.SetVisible(false);
    SetAppearance();
    WireEvents();
}

void PlotForm::Form_Unload() {
    if (shared_.ChartToPrint == &chart_) shared_.ChartToPrint = nullptr;
}

void PlotForm::SetAppearance() {
    txtPctLoc.SetToolTipText("Range: 1 - 99");
    txtPctTime.SetToolTipText("Range: 1 - 99");
    cmdUpdateGraph.SetToolTipText("Replot The Graph ");
    cmbcitysize.SetToolTipText("Select From List");
    cmbareatype.SetToolTipText("Select From List");
    txtFreq.SetToolTipText("Range 150MHz - 2000 MHz");
    txthb.SetToolTipText("Range 30m - 200m");
    txthm.SetToolTipText("Range 1m - 30m");
    mnuUnitsMetric.SetCheckable(true);
    mnuUnitsEnglish.SetCheckable(true);

    for (TextBox* box : {&txtFreq, &txthb, &txthm}) box->SetHelpContextID(HelpTopic::Inputs);
    cmbareatype.SetHelpContextID(HelpTopic::Area);
    cmbcitysize.SetHelpContextID(HelpTopic::Area);
    txtPctTime.SetHelpContextID(HelpTopic::PercentTime);
    txtPctLoc.SetHelpContextID(HelpTopic::PercentLocation);
}

void PlotForm::WireEvents() {
    for (const RuledBox& ruled : RuledBoxes) {
        TextBox& box = this->*ruled.box;
        box.LostFocus = [this, &box, &rule = ruled.rule] {
            ApplyBoxRule(box, rule, *this);
            MarkStale();
        };
        box.Change = [this] { ShowHandBack(); };
    }
    cmbareatype.Click = [this] { cmbareatype_Click(); };
    cmbcitysize.Click = [this] { cmbcitysize_Click(); };
    cmdPrintGraph.Click = [this] { cmdPrintGraph_Click(); };
    cmdUpdateGraph.Click = [this] { cmdUpdateGraph_Click(); };
    mnuFileSave.Click = [this] { SaveGraph(*this, cmdlg, chart_); };
    mnuFileSave.SetShortcut("Ctrl+S");
    mnuUnitsMetric.Click = [this] { SetMetricUnits(doors_); };
    mnuUnitsEnglish.Click = [this] { SetEnglishUnits(doors_); };
}

void PlotForm::LoadInputs(const MainForm& main) {
    archive_.SetVisible(false);
    GoodPicture = GetPlatform().programDirectory + "/goodbutton.bmp";
    BadPicture = GetPlatform().programDirectory + "/badbutton.bmp";
    txthm.SetText(main.txthm.Text());
    txthb.SetText(main.txthb.Text());
    txtFreq.SetText(main.txtFreq.Text());
    txtPctTime.SetText(main.txtPctTime.Text());
    txtPctLoc.SetText(main.txtPctLoc.Text());
    cmbareatype.SetText(main.cmbareatype.Text());
    cmbcitysize.SetText(main.cmbcitysize.Text());
    mnuUnitsMetric.SetChecked(main.mnuUnitsMetric.Checked());
    mnuUnitsEnglish.SetChecked(main.mnuUnitsEnglish.Checked());
    for (Label* unit : {&Label10, &Label11}) unit->SetCaption(main.Label10.Caption());
    ApplyAreaRule(cmbareatype, cmbcitysize);
    ShowHandBack();
    MarkStale();  // until the first plot is drawn
}

bool PlotForm::TakeUnitsAfresh() {
    const MainForm& main = *doors_.MainForm;
    if (mnuUnitsEnglish.Checked() == main.mnuUnitsEnglish.Checked()) return false;
    LoadInputs(main);
    return true;
}

void PlotForm::TellRefusal() {
    if (std::exchange(refusalUntold_, false)) Run([this] { ReadInputs(); });
}

void PlotForm::HandBackInputs(MainForm& main) {
    main.txthm.SetText(txthm.Text());
    main.txthb.SetText(txthb.Text());
    main.txtFreq.SetText(txtFreq.Text());
    main.cmbareatype.SetText(cmbareatype.Text());
    main.cmbcitysize.SetText(cmbcitysize.Text());
    main.txtPctTime.SetText(txtPctTime.Text());
    main.txtPctLoc.SetText(txtPctLoc.Text());
}

void PlotForm::ShowValues() {
    shared_.ChartToRead = &chart_;
    doors_.ValuesForm->ShowModal(this);
}

void PlotForm::StoreInArchive(Quantity quantity) {
    ArchiveRun(shared_, doors_.dbOperations, *this, quantity);
    if (doors_.MainForm.Loaded()) doors_.MainForm->Tell(lblStatus.Caption());
    if (doors_.ArchiveForm.Loaded()) doors_.ArchiveForm->BringUpToDate();
}

void PlotForm::cmdPrintGraph_Click() { PrintGraph(shared_, doors_, *this, chart_); }

void PlotForm::ShowStatus(std::string text) {
    lblStatus.SetVisible(!text.empty());
    lblStatus.SetCaption(std::move(text));
}

void PlotForm::ShowHandBack() {
    if (!doors_.MainForm.Loaded()) return;
    const MainForm& main = *doors_.MainForm;
    std::string changes;
    const auto compare = [&changes](const Label& caption, const auto& here, const auto& there) {
        if (here.Text() == there.Text()) return;
        changes += (changes.empty() ? "" : ", ") + caption.Caption() + ' ' +
                   std::string(Trimmed(here.Text())) + " instead of " +
                   std::string(Trimmed(there.Text()));
    };
    compare(Label3, txtFreq, main.txtFreq);
    compare(baseAntenna_, txthb, main.txthb);
    compare(Label9, txthm, main.txthm);
    compare(Label6, cmbareatype, main.cmbareatype);
    compare(Label13, cmbcitysize, main.cmbcitysize);
    compare(Label1, txtPctTime, main.txtPctTime);
    compare(Label7, txtPctLoc, main.txtPctLoc);
    lblHandBack.SetVisible(!changes.empty());
    lblHandBack.SetCaption(
        changes.empty() ? "" : "When this window closes, the main window takes: " + changes);
}

void PlotForm::MarkGood() {
    cmdUpdateGraph.SetPictureFile(GoodPicture);
    cmdUpdateGraph.SetStateText("The graph shows the inputs");
}

void PlotForm::MarkStale() {
    cmdUpdateGraph.SetPictureFile(BadPicture);
    cmdUpdateGraph.SetStateText("The inputs may have changed since the graph was drawn");
}

void PlotForm::cmbareatype_Click() {
    MarkStale();
    ApplyAreaRule(cmbareatype, cmbcitysize);
    ShowHandBack();
}

void PlotForm::cmbcitysize_Click() {
    MarkStale();
    ShowHandBack();
}

void PlotForm::cmdUpdateGraph_Click() {
    ShowStatus({});
    MarkGood();
    if (!Replot()) MarkStale();
}

void PlotForm::SetMaxDist(double maxDist, MenuItem& at100, MenuItem& at300) {
    MaxDist = maxDist;
    MarkStale();
    at100.SetChecked(maxDist == 100.0);
    at300.SetChecked(maxDist == 300.0);
}

std::optional<ModelInputs> PlotForm::ReadInputs(BoxReader read) {
    const auto f = read(txtFreq, Label3, *this);
    const auto hb = f ? read(txthb, baseAntenna_, *this) : f;
    const auto hm = hb ? read(txthm, Label9, *this) : hb;
    if (!hm) return std::nullopt;
    const double height = mnuUnitsEnglish.Checked() ? MetresPerFoot : 1.0;
    return ModelInputs{.f = *f,
                       .d = 0.0,
                       .hb = *hb * height,
                       .hm = *hm * height,
                       .area = cmbareatype.Text(),
                       .city = cmbcitysize.Text(),
                       .pctTime = LeadingNumber(txtPctTime.Text()),
                       .pctLoc = LeadingNumber(txtPctLoc.Text())};
}

// Their heights as they were typed.
PathInputs PlotForm::PathOf(const ModelInputs& inputs) const {
    const Units units = mnuUnitsEnglish.Checked() ? Units::English : Units::Metric;
    const auto height = [&](const TextBox& box, double metric) {
        return WholeTextNumber(box.Text()).value_or(metric / MetresPerHeight(units));
    };
    return {.frequency = inputs.f,
            .hb = height(txthb, inputs.hb),
            .hm = height(txthm, inputs.hm),
            .units = units,
            .area = inputs.area,
            .city = inputs.city,
            .pctTime = inputs.pctTime,
            .pctLoc = inputs.pctLoc,
            .powerWatts = GetPowerWatts()};
}

void PlotForm::AddLaidRuns(CurvePlot& plot, Quantity quantity) {
    for (const LaidRun& run : shared_.LaidRuns)
        if (run.quantity == quantity) plot.insert(plot.end(), run.curves.begin(), run.curves.end());
}

bool PlotForm::Plot(bool RedrawChart) {
    const Hourglass hourglass(*this);
    Windows& windows = GetPlatform().windows;
    // Not yet to be seen, the form may be made in the middle of a unit switch, whose half of new
    // units no calculation must meet.
    RedrawChart ? windows.Yield() : windows.YieldWithoutInput();
    const auto inputs = ReadInputs(RedrawChart ? ReadPositiveBox : ReadPositiveBoxQuietly);
    refusalUntold_ = !inputs && !RedrawChart;
    if (!inputs) return false;
    if (RedrawChart) chart_.HideSeries();
    GraphCurves curves = CurvesOf(*inputs);
    CurvePlot plot = PlotOf(curves, MaxDist);
    AddToPlot(plot, *inputs);
    AddLaidRuns(plot, curves.quantity);
    ShowPlot(chart_, plot);
    chart_.Inputs = PathOf(*inputs);
    SetScalesAndTitles();
    Threshold().SetCurves(std::move(curves));
    if (RedrawChart) chart_.Redraw();
    return true;
}

}  // namespace vardel
