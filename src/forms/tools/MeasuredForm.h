#pragma once

#include <vector>

#include "engine/measured/MeasuredFit.h"
#include "forms/graphs/chart/Chart.h"

namespace vardel {

struct Doors;
struct Platform;
struct SharedData;

// The measured data for the main form's inputs against the models: which table they are from, the
// errors as a table and as a chart. All is computed anew with every change, here and there.
class MeasuredForm : public Form {
public:
    MeasuredForm(Platform& platform, SharedData& shared, Doors& doors);

    // Takes the main form's inputs as they stand.
    void BringUpToDate();

    Label lblPath{*this, "lblPath"};    // the main form's inputs
    Label lblMatch{*this, "lblMatch"};  // the table that fits them, or those that nearly do
    Label lblPercents{*this, "lblPercents", "% of locations"};
    TextBox txtPercents{*this, "txtPercents", "50"};  // one or several
    Label lblProblem{*this, "lblProblem"};
    Label lblFit{*this, "lblFit"};  // in columns of a fixed width
    Chart CTWXErrors{*this, "CTWXErrors", "Model minus measured", "Distance (km)", "dB"};
    Button cmdAdd{*this, "cmdAdd", "&Add to Log"};
    Button cmdCopy{*this, "cmdCopy", "&Copy Table"};
    Button cmdSave{*this, "cmdSave", "&Save as CSV ..."};
    Button cmdClose{*this, "cmdClose", "Close"};

private:
    void Form_Load() override;
    void WireEvents();
    void cmdAdd_Click();
    void cmdSave_Click();

    std::vector<double> ReadPercents();
    void ShowFits(const PathInputs* path, const std::vector<double>& percents);
    void ShowErrors(double pctLoc);

    SharedData& shared_;
    Doors& doors_;
    std::vector<MeasuredFit> fits_;  // none where no table fits, or something is wrong
};

}  // namespace vardel
