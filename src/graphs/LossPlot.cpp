#include <array>

#include "graphs/CurveData.h"
#include "graphs/GraphForm.h"
#include "models/ModCalculations.h"
#include "platform/Platform.h"
#include "workbench/BoxRule.h"
#include "workbench/NumberText.h"
#include "workbench/Units.h"

namespace vardel {

namespace {

struct LossCurve {
    ModelNumber model;
    ModelFunction function;
    const char* legend;
    Color color;
};

constexpr std::array<LossCurve, 3> LossCurves = {{
    {ModelItu529, Itu529Loss, "ITU 529", {0, 128, 0}},
    {ModelDavidson, DavidsonLoss, "Davidson", {255, 0, 0}},
    {ModelCost231, Cost231Loss, "Cost 231", {0, 0, 180}},
}};

constexpr Color FreeSpaceColor{40, 40, 40};

// In dB, for f in MHz and d in km.
double FreeSpaceLoss(double f, double d) { return 32.5 + 20.0 * Log10(f) + 20.0 * Log10(d); }

std::optional<ModelInputs> ReadInputs(GraphForm& form) {
    const auto f = ReadNumberBox(form.txtFreq, form.Label3, form);
    const auto hb = f ? ReadNumberBox(form.txthb, form.lblBaseAntenna, form) : f;
    const auto hm = hb ? ReadNumberBox(form.txthm, form.Label9, form) : hb;
    if (!hm) return std::nullopt;
    const double height = form.mnuUnitsEnglish.Checked() ? MetresPerFoot : 1.0;
    return ModelInputs{.f = *f,
                       .d = 0.0,
                       .hb = *hb * height,
                       .hm = *hm * height,
                       .area = form.cmbareatype.Text(),
                       .city = form.cmbcitysize.Text(),
                       .pctTime = LeadingNumber(form.txtPctTime.Text()),
                       .pctLoc = LeadingNumber(form.txtPctLoc.Text())};
}

// The boxes as they stand, with metric unit letters also where they show feet.
std::string ParameterLine(const GraphForm& form) {
    const auto text = [](const TextBox& box) { return std::string(Trimmed(box.Text())); };
    std::string line =
        "Freq: " + text(form.txtFreq) + "MHz,  Antenna Mobile Height: " + text(form.txthm) +
        "m,  Antenna Base Height: " + text(form.txthb) + "m,  Area: " + form.cmbareatype.Text();
    if (form.cmbareatype.Text() == "Urban") line += ", City Size: " + form.cmbcitysize.Text();
    return line;
}

void SetTitles(GraphForm& form) {
    Chart& chart = form.CTWX1;
    chart.Title[2].Text = ParameterLine(form);
    chart.Title[1].Text = form.txtPctTime.Text() + "%Time, " + form.txtPctLoc.Text() + "%Loc, " +
                          FormatDateTime(form.GetPlatform().clock.Now());
    chart.Title[2].FontSize = 8;
    chart.Title[1].FontSize = 8;
}

}  // namespace

bool GraphForm::PlotLossGraph(bool redrawChart) {
    SetMousePointer(Pointer::Hourglass);
    GetPlatform().windows.Yield();
    const auto inputs = ReadInputs(*this);
    if (!inputs) {
        SetMousePointer(Pointer::Normal);
        return false;
    }
    // What the plot before may have used beyond the first.
    if (redrawChart)
        for (int i = 1; i <= 5; ++i) CTWX1.Series(i).Visible = false;

    CurveDrawing drawing(CTWX1);
    for (const LossCurve& curve : LossCurves)
        drawing.DrawModelCurve(
            ComputeModelCurve(curve.model, curve.function, *inputs, 1.0, MaxDist), curve.legend,
            curve.color);
    const auto freeSpace = [f = inputs->f](double d) { return FreeSpaceLoss(f, d); };
    drawing.DrawWholeCurve(ComputeFreeCurve(freeSpace, CurveStep, MaxDist), "Free Space",
                           FreeSpaceColor, PatternFreeSpace);
    SetChartScales(CTWX1, MaxDist, 50.0, 250.0);
    SetTitles(*this);
    SetChartLegend(CTWX1, drawing.Legend());
    if (redrawChart) CTWX1.Redraw();
    SetMousePointer(Pointer::Normal);
    return true;
}

}  // namespace vardel
