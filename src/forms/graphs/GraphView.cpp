#include "forms/graphs/GraphView.h"

#include <algorithm>
#include <utility>

#include "forms/SharedData.h"
#include "forms/shared/BoxMark.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

struct AxisLimits {
    double lowest;
    double highest;
    const char* rule;
};

constexpr std::array<AxisLimits, 2> Limits = {{
    {0.0, FarthestPoint, "A distance must be a number from 0 to 300."},
    {LowestWanted, HighestWanted, "A value must be a number from -300 to 400."},
}};
constexpr const char* OrderRule = "An axis must end beyond its start.";

}  // namespace

GraphView::GraphView(Form& form, Chart& chart, GraphScales& setting)
    : mnuView(form, "mnuView", "&View"),
      lblFrom{{{form, "lblFrom(0)", "Distance from"}, {form, "lblFrom(1)", "Value from"}}},
      txtFrom{{{form, "txtFrom(0)"}, {form, "txtFrom(1)"}}},
      lblTo{{{form, "lblTo(0)", "to"}, {form, "lblTo(1)", "to"}}},
      txtTo{{{form, "txtTo(0)"}, {form, "txtTo(1)"}}},
      lblUnit{{{form, "lblUnit(0)", "km"}, {form, "lblUnit(1)", chart.Axis[1].Title}}},
      chart_(chart),
      setting_(setting) {
    mnuViewLog.SetCheckable(true);
    mnuViewLog.SetShortcut("Ctrl+G");
    mnuViewRanges.SetCheckable(true);
    mnuViewRanges.SetShortcut("Ctrl+N");
    mnuViewLog.Click = [this] {
        setting_.logDistance = !setting_.logDistance;
        Show();
    };
    mnuViewRanges.Click = [this] { mnuViewRanges_Click(); };
    mnuViewCurves.Click = [this] {
        ChartLook look = chart_.Look();
        look.Off.clear();
        chart_.SetLook(std::move(look));
    };
    for (auto* boxes : {&txtFrom, &txtTo})
        for (TextBox& box : *boxes) box.Change = [this] { RangeBox_Change(); };
    BringUpToDate();
}

void GraphView::BringUpToDate() {
    FillBoxes();
    Show();
}

// Begins with what the screen shows, which is often what is wanted.
void GraphView::mnuViewRanges_Click() {
    if (setting_.ranges) {
        setting_.ranges.reset();
        return Show();
    }
    ChartRanges ranges = chart_.View();
    for (std::size_t i = 0; i < ranges.size(); ++i) {
        ranges.at(i).From = std::max(ranges.at(i).From, Limits.at(i).lowest);
        ranges.at(i).To = std::min(ranges.at(i).To, Limits.at(i).highest);
    }
    setting_.ranges = ranges;
    BringUpToDate();
}

void GraphView::RangeBox_Change() {
    if (filling_ || !setting_.ranges) return;
    ChartRanges ranges{};
    bool good = true;
    for (std::size_t i = 0; i < ranges.size(); ++i) {
        const auto& [lowest, highest, rule] = Limits.at(i);
        const auto from = ReadMarked(txtFrom.at(i), lowest, highest, rule);
        const auto to = ReadMarked(txtTo.at(i), lowest, highest, rule);
        good = good && from && to && MarkBox(txtTo.at(i), *from < *to, OrderRule);
        if (good) ranges.at(i) = {*from, *to};
    }
    if (!good) return;
    setting_.ranges = ranges;
    Show();
}

void GraphView::FillBoxes() {
    if (!setting_.ranges) return;
    filling_ = true;
    for (std::size_t i = 0; i < Limits.size(); ++i) {
        txtFrom.at(i).SetText(FormatNumber(setting_.ranges->at(i).From, "0.0###"));
        txtTo.at(i).SetText(FormatNumber(setting_.ranges->at(i).To, "0.0###"));
    }
    filling_ = false;
    RangeBox_Change();
}

void GraphView::Show() {
    mnuViewLog.SetChecked(setting_.logDistance);
    mnuViewRanges.SetChecked(setting_.ranges.has_value());
    const auto setVisible = [this](auto& controls) {
        for (Control& control : controls) control.SetVisible(setting_.ranges.has_value());
    };
    setVisible(lblFrom);
    setVisible(txtFrom);
    setVisible(lblTo);
    setVisible(txtTo);
    setVisible(lblUnit);
    ChartLook look = chart_.Look();
    look.LogDistance = setting_.logDistance;
    look.Ranges = setting_.ranges;
    chart_.SetLook(std::move(look));
}

}  // namespace vardel
