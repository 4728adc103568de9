#include "engine/measured/MeasuredData.h"
#include "forms/SharedData.h"
#include "forms/graphs/FrmOkumFieldStrength.h"
#include "forms/graphs/chart/ChartSetup.h"
#include "forms/shared/BoxRule.h"
#include "models/Primitives.h"
#include "services/Platform.h"
#include "text/NumberText.h"

namespace vardel {

bool FrmOkumFieldStrength::PlotFieldStrength(bool RedrawChart) { return Plot(RedrawChart); }

GraphCurves FrmOkumFieldStrength::CurvesOf(const ModelInputs& inputs) {
    return FieldStrengthCurves(shared_.GraphMode, inputs, GetPowerWatts());
}

void FrmOkumFieldStrength::AddToPlot(CurvePlot& plot, const ModelInputs& inputs) {
    if (shared_.GraphMode != FieldStrengthGraph::Comparison || !shared_.ShowMeasuredData) return;
    const MeasuredMatch match = FindMeasuredSegment(inputs.f, inputs.hb, inputs.hm, inputs.area,
                                                    inputs.pctTime / 100.0, shared_.MeasuredTable);
    if (match.found)
        AddMeasured(plot, shared_.MeasuredTable[static_cast<std::size_t>(match.segment)],
                    match.column);
}

void FrmOkumFieldStrength::SetScalesAndTitles() {
    SetChartScales(CTWXfs, MaxDist, -10.0, 110.0);
    SetTitles();
}

// The boxes as they stand, with metric unit letters also where they show feet. In a family the base
// height stands with each curve instead.
void FrmOkumFieldStrength::SetTitles() {
    const bool urban = IsUrban(cmbareatype);
    std::string line = "Frq:" + TrimmedText(txtFreq) + "MHz,";
    if (shared_.GraphMode == FieldStrengthGraph::Comparison)
        line += " Ant Hb:" + TrimmedText(txthb) + "m,";
    line += " Ant Hm:" + TrimmedText(txthm) + "m, Area:" + cmbareatype.Text() + ", ";
    if (urban) line += "City Size:" + cmbcitysize.Text() + ", ";
    line += "Power:" + FormatNumber(GetPowerWatts() / 1000.0, "###.##") + "kW e.r.p.,";
    line += urban ? txtPctTime.Text() + "%time," + txtPctLoc.Text() + "%Loc"
                  : ' ' + txtPctTime.Text() + "% of Time," + txtPctLoc.Text() + "% of Loc";
    const std::string title = TitleOf(shared_.GraphMode);
    SetChartTitles(CTWXfs, title + ", " + FormatDateTime(GetPlatform().clock.Now()), line);
}

}  // namespace vardel
