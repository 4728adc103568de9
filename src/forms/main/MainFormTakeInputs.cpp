// Inputs that come back from elsewhere, such as a run of an archive or the file of a graph.

#include "engine/PathInputs.h"
#include "engine/PathRecord.h"
#include "engine/PathText.h"
#include "engine/PowerUnits.h"
#include "forms/SharedData.h"
#include "forms/main/MainForm.h"
#include "forms/shared/BoxRule.h"
#include "models/Primitives.h"
#include "services/Platform.h"
#include "text/NumberText.h"

namespace vardel {

// In the units that the window shows. A height of other units may need more digits than boxes give.
void MainForm::TakeInputs(const PathInputs& path, Take take) {
    const Units units = mnuUnitsEnglish.Checked() ? Units::English : Units::Metric;
    const auto height = [&](double x) {
        if (path.units == units) return x;
        return x * MetresPerHeight(path.units) / MetresPerHeight(units);
    };
    if (take == Take::PowerAndDistance)
        txtDist.SetText(FormatNumber(
            path.units == units ? path.distance
                                : path.distance * KmPerDistance(path.units) / KmPerDistance(units),
            InputPattern));
    txtFreq.SetText(FormatNumber(path.frequency, InputPattern));
    txthb.SetText(FormatNumber(height(path.hb), InputPattern));
    txthm.SetText(FormatNumber(height(path.hm), InputPattern));
    cmbareatype.SetText(path.area);
    ApplyAreaRule(cmbareatype, cmbcitysize);
    cmbcitysize.SetText(path.city);
    txtPctTime.SetText(ShortestText(path.pctTime));
    txtPctLoc.SetText(ShortestText(path.pctLoc));
    if (take == Take::AllButPower) return;
    txtPowerUnit.SetText(PowerText(path.powerWatts, shared_.PowerUnit));
    PowerWatts = path.powerWatts;  // which the text may round
    BringToolsUpToDate();
}

void MainForm::OfferInputs(const std::vector<GivenFile>& files) {
    Windows& windows = GetPlatform().windows;
    std::string names;
    for (const auto& [name, text] : files) {
        if (const auto path = PathOfRecord(text)) {
            const Answer answer = windows.ShowMessage(
                {.text = "Take the inputs of " + name + "?\n\n" + PathText(*path) + ", " +
                         PercentText(path->pctLoc) + " of locations",
                 .buttons = Message::Buttons::YesNo});
            if (answer == Answer::Yes && !Unloaded()) TakeInputs(*path, Take::Power);
            return;
        }
        names += (names.empty() ? "" : ", ") + name;
    }
    windows.ShowMessage({.text = names + (files.size() == 1 ? " holds" : " hold") +
                                 " no inputs of a graph of Vardel"});
}

}  // namespace vardel
