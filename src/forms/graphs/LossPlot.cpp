#include <array>

#include "engine/CurveData.h"
#include "forms/graphs/GraphForm.h"
#include "forms/shared/BoxRule.h"
#include "models/ModCalculations.h"
#include "services/Platform.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

constexpr std::array<ModelCurve, 3> LossCurves = {{
    {ModelItu529, Itu529Loss, "ITU 529", {0, 128, 0}},
    {ModelDavidson, DavidsonLoss, "Davidson", {255, 0, 0}},
    {ModelCost231, Cost231Loss, "Cost 231", {0, 0, 180}},
}};

constexpr Color FreeSpaceColor{40, 40, 40};

// In dB, for f in MHz and d in km.
double FreeSpaceLoss(double f, double d) { return 32.5 + 20.0 * Log10(f) + 20.0 * Log10(d); }

}  // namespace

bool GraphForm::PlotLossGraph(bool redrawChart) {
    // The first series is of every plot.
    return Plot(redrawChart, 1, 5);
}

void GraphForm::DrawPlot(CurveDrawing& drawing, const ModelInputs& inputs) {
    drawing.DrawModelCurves(LossCurves, inputs, 1.0, MaxDist);
    const auto freeSpace = [f = inputs.f](double d) { return FreeSpaceLoss(f, d); };
    drawing.DrawWholeCurve(ComputeFreeCurve(freeSpace, CurveStep, MaxDist), "Free Space",
                           FreeSpaceColor, PatternFreeSpace);
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
