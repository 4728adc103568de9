#include "forms/graphs/ValuesForm.h"

#include <cmath>

#include "forms/SharedData.h"
#include "forms/graphs/chart/ChartText.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

std::vector<RowList::Column> ColumnsOf(const Chart& chart) {
    constexpr int ValueWidth = 20;
    std::vector<RowList::Column> columns{{chart.Axis[0].Title, 12, false, true}};
    for (const std::string& curve : ChartCurves(chart))
        columns.push_back({curve + ", " + chart.Axis[1].Title, ValueWidth, false, true});
    return columns;
}

}  // namespace

ValuesForm::ValuesForm(Platform& platform, const SharedData& shared)
    : Form(platform, "ValuesForm", "Values"),
      lstValues(*this, "lstValues", ColumnsOf(*shared.ChartToRead)),
      chart_(*shared.ChartToRead) {
    SetHelpContextID(HelpTopic::FieldStrengthGraphs);
    std::string title;
    for (const ChartTitle& part : chart_.Title)
        if (!part.Text.empty()) title += (title.empty() ? "" : "\n") + part.Text;
    lblTitle.SetCaption(title);
    const double farthest = chart_.Axis[0].Maximum;
    lstValues.SetRows(static_cast<std::size_t>(std::lround(farthest)),
                      [this](std::size_t i) { return RowAt(i); });
    if (lstValues.Count() > 0) lstValues.Select(0);
    cmdClose.Click = [this] { Unload(); };
}

RowList::Row ValuesForm::RowAt(std::size_t index) const {
    const auto km = static_cast<double>(index + 1);
    RowList::Row row{.cells = {FormatNumber(km, "0")}};
    const std::vector<ChartValue> values = ChartValues(chart_, km);
    for (const std::string& curve : ChartCurves(chart_)) {
        row.cells.emplace_back();
        for (const ChartValue& value : values)
            if (value.curve == curve)
                row.cells.back() =
                    FormatNumber(value.value, "0.00") + (value.outOfRange ? " (out of range)" : "");
    }
    return row;
}

}  // namespace vardel
