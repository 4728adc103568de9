#include "forms/graphs/GraphForm.h"
#include "forms/graphs/chart/ChartSetup.h"
#include "forms/shared/BoxRule.h"
#include "services/Platform.h"
#include "text/NumberText.h"

namespace vardel {

bool GraphForm::PlotLossGraph(bool RedrawChart) { return Plot(RedrawChart); }

void GraphForm::SetScalesAndTitles() {
    SetChartScales(CTWX1, MaxDist, 50.0, 250.0);
    SetTitles();
}

// The boxes as they stand, with metric unit letters also where they show feet.
void GraphForm::SetTitles() {
    std::string parameters =
        "Freq: " + TrimmedText(txtFreq) + "MHz,  Antenna Mobile Height: " + TrimmedText(txthm) +
        "m,  Antenna Base Height: " + TrimmedText(txthb) + "m,  Area: " + cmbareatype.Text();
    if (IsUrban(cmbareatype)) parameters += ", City Size: " + cmbcitysize.Text();
    SetChartTitles(CTWX1,
                   txtPctTime.Text() + "%Time, " + txtPctLoc.Text() + "%Loc, " +
                       FormatDateTime(GetPlatform().clock.Now()),
                   parameters);
}

}  // namespace vardel
