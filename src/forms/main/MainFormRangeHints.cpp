#include <array>

#include "engine/Units.h"
#include "engine/measured/MeasuredData.h"
#include "forms/Doors.h"
#include "forms/SharedData.h"
#include "forms/help/ModelTopics.h"
#include "forms/main/MainForm.h"
#include "forms/reports/FrmReport.h"
#include "forms/shared/Palette.h"
#include "models/Model.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

// What the publication of a model says of its range. Davidson's lowest base height is 30 m here,
// though a result counts as in range from 20 m on.
struct RangeHint {
    double fMin, fMax;    // MHz
    double hbMin, hbMax;  // m
    double hmMin, hmMax;  // m
    double dMin, dMax;    // km
    const char* text;
};

// By ModelNumber.
constexpr std::array<RangeHint, 3> RangeHints = {{
    {150, 1500, 30, 200, 1, 10, 1, 100,
     "ITU 529> Freq: 150Mhz - 1500Mhz, hb: 30m - 200m, hm: 1m - 10m, Dist: 1km - 100km"},
    {30, 1500, 30, 2500, 1, 10, 1, 300,
     "Davidson> Freq: 30Mhz - 1500Mhz, hb: 30m - 2500m, hm: 1m - 10m, Dist: 1km - 300km"},
    {1500, 2000, 30, 200, 1, 10, 1, 100,
     "Cost 231> Freq: 1500Mhz - 2000Mhz, hb: 30m - 200m, hm: 1m - 10m, Dist: 1km - 100km"},
}};

// A text that is no number lies outside every range.
bool Outside(const TextBox& box, double factor, double low, double high) {
    const auto number = WholeTextNumber(box.Text());
    if (!number) return true;
    const double x = *number * factor;
    return x < low || x > high;
}

}  // namespace

void MainForm::WireRangeHints() {
    for (const ModelLabels& labels : LabelsOfModels) {
        const auto show = [this, topic = TopicOf(labels.model),
                           &hint = RangeHints.at(IndexOf(labels.model))] {
            const bool english = mnuUnitsEnglish.Checked();
            const double height = english ? MetresPerFoot : 1.0;
            const double distance = english ? KmPerMile : 1.0;
            if (Outside(txtFreq, 1.0, hint.fMin, hint.fMax))
                txtFreq.SetBackColor(shared_.OutOfRangeColor);
            if (Outside(txthb, height, hint.hbMin, hint.hbMax))
                txthb.SetBackColor(shared_.OutOfRangeColor);
            if (Outside(txthm, height, hint.hmMin, hint.hmMax))
                txthm.SetBackColor(shared_.OutOfRangeColor);
            if (Outside(txtDist, distance, hint.dMin, hint.dMax))
                txtDist.SetBackColor(shared_.OutOfRangeColor);
            lblHelpRange.SetCaption(hint.text);
            GetPlatform().windows.Announce(hint.text);
            SetHeldTopic(topic);
        };
        for (Label& head : this->*labels.heads) {
            head.MouseDown = show;
            head.MouseUp = [this] { EndRangeHint(); };
        }
    }
}

void MainForm::EndRangeHint() {
    for (TextBox* box : {&txtFreq, &txthb, &txthm, &txtDist}) box->SetBackColor(White);
    lblHelpRange.SetCaption("");
    SetHeldTopic(HelpTopic::None);
}

// What is painted already keeps its colour until the next run.
void MainForm::mnuHideShow_Click() {
    constexpr const char* Hide = "&Hide Out of Range Values";
    const bool hide = mnuHideShow.Caption() == Hide;
    mnuHideShow.SetCaption(hide ? "&Show Out of Range Values" : Hide);
    shared_.OutOfRangeColor = hide ? OutOfRangeHidden : OutOfRangePink;
}

// Into the log, which its next saving takes to the file.
void MainForm::lblFieldStrength_DblClick() {
    doors_.FrmReport->AppendReportText(MeasuredListing(shared_.MeasuredTable));
}

}  // namespace vardel
