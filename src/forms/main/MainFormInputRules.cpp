#include <array>

#include "engine/PowerUnits.h"
#include "forms/Doors.h"
#include "forms/SharedData.h"
#include "forms/main/MainForm.h"
#include "forms/shared/BoxRule.h"
#include "forms/shared/Palette.h"
#include "forms/tools/ExplainForm.h"
#include "forms/tools/MeasuredForm.h"
#include "forms/tools/ReachForm.h"
#include "forms/tools/TerrainForm.h"
#include "models/Primitives.h"

namespace vardel {

namespace {

struct RuledBox {
    TextBox MainForm::*box;
    BoxRule rule;
};

// Limits and messages differ in places; both are what users know.
constexpr std::array<RuledBox, 6> RuledBoxes = {{
    {&MainForm::txtFreq, {30, 2000, 150, "Valid Frequency Range 30Mhz to 2000 MHz", InputPattern}},
    {&MainForm::txtDist, {1, 300, 10, "Valid Range is  1 <= Distance <= 300 km", InputPattern}},
    {&MainForm::txthb,
     {20, 2500, 20, "Valid Height of Base Station Antenna is 30m to 2500m", InputPattern}},
    {&MainForm::txthm, {1, 30, 1, "Valid Height of Mobile Antenna is 1m to 30m", InputPattern}},
    {&MainForm::txtPctTime, {1, 99, 50, "Percent Time Range 1 to 99", "#0"}},
    {&MainForm::txtPctLoc, {1, 99, 50, "Percent Location Range 1 to 99", nullptr}},
}};

}  // namespace

void MainForm::WireInputRules() {
    for (const RuledBox& ruled : RuledBoxes) {
        TextBox& box = this->*ruled.box;
        box.LostFocus = [this, &box, &rule = ruled.rule] { ApplyBoxRule(box, rule, *this); };
    }
    for (TextBox* box : {&txtFreq, &txtDist, &txthb, &txthm})
        box->Change = [this] { MarkValuesStale(); };
    cmbcitysize.Click = [this] { MarkValuesStale(); };
    for (TextBox* box : {&txtPctTime, &txtPctLoc}) box->Change = [this] { BringToolsUpToDate(); };
    cmbareatype.Click = [this] { cmbareatype_Click(); };
    txtPowerUnit.LostFocus = [this] { txtPowerUnit_LostFocus(); };
    cmbPowerUnit.Click = [this] { cmbPowerUnit_Click(); };
}

void MainForm::MarkValuesStale() {
    for (Label* value : {&lblcost231, &lblFITU529, &lblOH529dBLoss, &lblFCost231, &lblDavidson,
                         &lblPalvernDavFS}) {
        value->SetBackColor(StaleColor);
        if (value->Caption().empty()) continue;
        value->SetStateText("Not for the present inputs");
        value->SetToolTipText("For earlier inputs: calculate again");
    }
    valuesStale_ = true;
    BringToolsUpToDate();
}

void MainForm::BringToolsUpToDate() {
    if (shared_.DisplayLost) return;
    ShowStatus();
    if (doors_.ReachForm.Loaded()) doors_.ReachForm->BringUpToDate();
    if (doors_.TerrainForm.Loaded()) doors_.TerrainForm->BringUpToDate();
    if (doors_.ExplainForm.Loaded()) doors_.ExplainForm->BringUpToDate();
    if (doors_.MeasuredForm.Loaded()) doors_.MeasuredForm->BringUpToDate();
}

void MainForm::cmbareatype_Click() {
    MarkValuesStale();
    ApplyAreaRule(cmbareatype, cmbcitysize);
}

void MainForm::txtPowerUnit_LostFocus() {
    txtPowerUnit.SetText(CorrectedPowerText(txtPowerUnit.Text(), shared_.PowerUnit));
    PowerWatts = PowerTextToWatts(txtPowerUnit.Text(), shared_.PowerUnit);
    BringToolsUpToDate();
}

// The same power in another unit: what the text rounds does not touch the power itself.
void MainForm::cmbPowerUnit_Click() {
    shared_.PowerUnit = SelectedPowerUnit(cmbPowerUnit);
    txtPowerUnit.SetText(PowerText(PowerWatts, shared_.PowerUnit));
}

}  // namespace vardel
