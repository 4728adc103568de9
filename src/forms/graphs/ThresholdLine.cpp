#include "forms/graphs/ThresholdLine.h"

#include <algorithm>
#include <cmath>

#include "engine/reach/CurveReach.h"
#include "forms/SharedData.h"
#include "forms/shared/BoxMark.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

std::string LevelText(double value) { return FormatNumber(value, "0.0####"); }

// A number stays on the line of its unit.
std::string WithoutBreaks(const std::string& text) {
    std::string whole;
    for (const char c : text) whole += c == ' ' ? std::string("\u00a0") : std::string(1, c);
    return whole;
}

// What is dragged stops at tenths of a decibel.
double Tenths(double value) { return std::round(value * 10.0) / 10.0; }

void AddCrossing(ChartThreshold& line, const GraphCurves::Curve& curve, const char* what,
                 double km) {
    ModelInputs at = curve.in;
    at.d = km;
    const bool covered = curve.model == nullptr || InRange(*curve.model, at);
    line.Crossings.push_back({km, curve.color,
                              curve.name + ": " + what + FormatNumber(km, "0.000") + " km" +
                                  (covered ? "" : " (out of range)")});
}

// Where service begins and ends, as far as the curve is drawn.
void AddCrossings(ChartThreshold& line, const GraphCurves::Curve& curve, const Reach& reach,
                  double maxDist) {
    const double last = std::min(maxDist, FarthestReach);
    for (const auto& [from, to] : reach.served) {
        if (from > std::max(ShortestReach, curve.from) && from <= last)
            AddCrossing(line, curve, "from ", from);
        if (to >= curve.from && to <= last && to < FarthestReach) AddCrossing(line, curve, "", to);
    }
}

}  // namespace

ThresholdLine::ThresholdLine(Form& form, Chart& chart, GraphThreshold& setting)
    : mnuTools(form, "mnuTools", "&Tools"),
      lblThreshold(form, "lblThreshold", "Threshold"),
      txtThreshold(form, "txtThreshold"),
      lblThresholdUnit(form, "lblThresholdUnit", chart.Axis[1].Title),
      lblThresholdReach(form, "lblThresholdReach"),
      chart_(chart),
      setting_(setting) {
    mnuToolsThreshold.SetCheckable(true);
    mnuToolsThreshold.SetShortcut("Ctrl+T");
    txtThreshold.SetToolTipText("The line can be dragged, too");
    txtThreshold.SetHelpContextID(HelpTopic::Reach);
    mnuToolsThreshold.Click = [this] {
        setting_.shown = !setting_.shown;
        Show();
    };
    txtThreshold.Change = [this] { txtThreshold_Change(); };
    chart.ThresholdMove = [this] {
        txtThreshold.SetText(
            LevelText(std::clamp(Tenths(chart_.WantedThreshold()), LowestWanted, HighestWanted)));
    };
    BringUpToDate();
}

void ThresholdLine::SetCurves(GraphCurves curves) {
    curves_ = std::move(curves);
    Show();
}

void ThresholdLine::BringUpToDate() {
    txtThreshold.SetText(LevelText(setting_.value));
    Show();
}

void ThresholdLine::txtThreshold_Change() {
    const auto value = ReadMarked(txtThreshold, LowestWanted, HighestWanted, WantedRule);
    if (!value) return;
    setting_.value = *value;
    Show();
}

void ThresholdLine::Show() {
    mnuToolsThreshold.SetChecked(setting_.shown);
    for (Control* control :
         {static_cast<Control*>(&lblThreshold), static_cast<Control*>(&txtThreshold),
          static_cast<Control*>(&lblThresholdUnit), static_cast<Control*>(&lblThresholdReach)})
        control->SetVisible(setting_.shown);
    if (!setting_.shown || curves_.curves.empty()) return chart_.SetThreshold(std::nullopt);

    ChartThreshold line{.Value = setting_.value,
                        .Text = LevelText(setting_.value) + ' ' + chart_.Axis[1].Title,
                        .Falling = curves_.quantity == Quantity::FieldStrength};
    const std::vector<CurveReach> reaches = ReachesOf(curves_, setting_.value);
    std::string told;
    for (std::size_t i = 0; i < reaches.size(); ++i) {
        AddCrossings(line, curves_.curves[i], reaches[i].reach, chart_.Axis[0].Maximum);
        line.Reaches.push_back(CurveReachText(reaches[i]));
        told += (i == 0 ? "" : ",  ") + WithoutBreaks(line.Reaches.back());
    }
    std::stable_sort(line.Crossings.begin(), line.Crossings.end(),
                     [](const auto& a, const auto& b) { return a.X < b.X; });
    lblThresholdReach.SetCaption(told);
    chart_.SetThreshold(std::move(line));
}

}  // namespace vardel
