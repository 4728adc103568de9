#include <array>

#include "engine/CurveData.h"
#include "engine/MeasuredData.h"
#include "forms/SharedData.h"
#include "forms/graphs/FrmOkumFieldStrength.h"
#include "forms/shared/BoxRule.h"
#include "models/ModCalculations.h"
#include "services/Platform.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

// By FieldStrengthGraph.
struct Plotted {
    const char* title;
    int model = -1;
    ModelFunction function = nullptr;
};

constexpr std::array<Plotted, 5> Plots = {{
    {"Okumura-Hata-Davidson Field Strength", ModelDavidson, DavidsonFieldStrength},
    {"Okumura-Hata IUT-R P.529 Field Strength", ModelItu529, Itu529FieldStrength},
    {"US Field Strength", ModelUs, UsFieldStrength},
    {"Cost 231 Field Strength", ModelCost231, Cost231FieldStrength},
    {"Field Strength Model Comparison"},
}};

struct HeightCurve {
    double height;  // m
    Color color;
};

constexpr std::array<HeightCurve, 6> HeightCurves = {{
    {30, {0, 128, 0}},
    {50, {255, 0, 0}},
    {70, {0, 0, 180}},
    {100, {255, 0, 255}},
    {150, {0, 0, 0}},
    {200, {0, 200, 200}},
}};
constexpr Color FamilyFreeSpaceColor{200, 200, 200};

constexpr std::array<ModelCurve, 3> ComparedCurves = {{
    {ModelItu529, Itu529FieldStrength, "ITU 529", {0, 128, 0}},
    {ModelDavidson, DavidsonFieldStrength, "OkHat Dav", {255, 0, 0}},
    {ModelCost231, Cost231FieldStrength, "Cost 231", {0, 0, 180}},
}};
constexpr Color ComparisonFreeSpaceColor{0, 0, 0};
constexpr Color MeasuredColor{0, 200, 200};

constexpr double NearestModelPoint = 0.1;      // km
constexpr double NearestFreeSpacePoint = 1.0;  // km

// In dB(uV/m) for d in km, of 1 kW e.r.p. whatever the power.
double FreeSpaceField(double d) { return 107.0 - 20.0 * Log10(d); }

void DrawFreeSpace(CurveDrawing& drawing, double maxDist, Color color) {
    drawing.DrawWholeCurve(ComputeFreeCurve(FreeSpaceField, NearestFreeSpacePoint, maxDist),
                           "Free Space", color, PatternFreeSpace);
}

CurveData MeasuredCurve(const MeasuredSegment& segment, int column) {
    CurveData curve;
    for (int row = 0; segment.RowValue[row][column] != MeasuredEndMark; ++row) {
        curve.Distances.push_back(segment.RowDistance[row]);
        curve.Values.push_back(segment.RowValue[row][column]);
        curve.LastPoint = row;
    }
    return curve;
}

}  // namespace

bool FrmOkumFieldStrength::PlotFieldStrength(bool redrawChart) { return Plot(redrawChart, 0, 21); }

void FrmOkumFieldStrength::DrawPlot(CurveDrawing& drawing, const ModelInputs& inputs) {
    SetChartScales(CTWXfs, MaxDist, -10.0, 110.0);
    if (shared_.GraphMode == GraphComparison)
        DrawComparison(drawing, inputs);
    else
        DrawHeightFamily(drawing, inputs);
    SetTitles();
}

void FrmOkumFieldStrength::DrawHeightFamily(CurveDrawing& drawing, const ModelInputs& inputs) {
    const Plotted& plotted = Plots.at(static_cast<std::size_t>(shared_.GraphMode));
    for (const auto& [height, color] : HeightCurves) {
        ModelInputs atHeight = inputs;
        atHeight.hb = height;
        drawing.DrawModelCurve(ComputeModelCurve(plotted.model, plotted.function, atHeight,
                                                 NearestModelPoint, MaxDist),
                               "hb=" + FormatNumber(height, "####") + "m", color);
    }
    DrawFreeSpace(drawing, MaxDist, FamilyFreeSpaceColor);
}

void FrmOkumFieldStrength::DrawComparison(CurveDrawing& drawing, const ModelInputs& inputs) {
    drawing.DrawModelCurves(ComparedCurves, inputs, NearestModelPoint, MaxDist);
    DrawFreeSpace(drawing, MaxDist, ComparisonFreeSpaceColor);

    const MeasuredMatch match = FindMeasuredSegment(inputs.f, inputs.hb, inputs.hm, inputs.area,
                                                    inputs.pctTime / 100.0, shared_.MeasuredTable);
    if (!match.found || !shared_.ShowMeasuredData) return;
    const auto segment = static_cast<std::size_t>(match.segment);
    drawing.DrawMeasuredCurve(MeasuredCurve(shared_.MeasuredTable[segment], match.column),
                              "Measured", MeasuredColor);
}

// The boxes as they stand, with metric unit letters also where they show feet. In a family the base
// height is told with each curve instead.
void FrmOkumFieldStrength::SetTitles() {
    const bool urban = IsUrban(cmbareatype);
    std::string line = "Frq:" + TrimmedText(txtFreq) + "MHz,";
    if (shared_.GraphMode == GraphComparison) line += " Ant Hb:" + TrimmedText(txthb) + "m,";
    line += " Ant Hm:" + TrimmedText(txthm) + "m, Area:" + cmbareatype.Text() + ", ";
    if (urban) line += "City Size:" + cmbcitysize.Text() + ", ";
    line += "Power:" + FormatNumber(GetPowerWatts() / 1000.0, "###.##") + "kW e.r.p.,";
    line += urban ? txtPctTime.Text() + "%time," + txtPctLoc.Text() + "%Loc"
                  : ' ' + txtPctTime.Text() + "% of Time," + txtPctLoc.Text() + "% of Loc";
    const char* title = Plots.at(static_cast<std::size_t>(shared_.GraphMode)).title;
    SetChartTitles(CTWXfs, std::string(title) + ", " + FormatDateTime(GetPlatform().clock.Now()),
                   line);
}

}  // namespace vardel
