#pragma once

#include <array>

#include "controls/Controls.h"

namespace vardel {

struct Doors;
struct Platform;
struct SharedData;
struct PathInputs;

// Repeats the calculation of the main form over a range of distances, with a line in the report log
// for each. It takes all inputs but the distance from there as they stand when a run begins, and
// closes itself when the run is over.
class frmLogDistRange : public Form {
public:
    frmLogDistRange(Platform& platform, SharedData& shared, Doors& doors);

    // Ends a run as its Exit button does, its lines kept and saved.
    void EndSession();

    bool RunRunning = false;  // from the moment that a run enters its loop

    Label lblStart{*this, "lblStart", "Start"};
    TextBox txtStart{*this, "txtStart", "1.0"};
    Label lblEnd{*this, "lblEnd", "End"};
    TextBox txtEnd{*this, "txtEnd", "100.0"};
    Label lblStep{*this, "lblStep", "Step"};
    TextBox txtStep{*this, "txtStep", "1.0"};
    std::array<Label, 3> lblKm{
        {{*this, "lblKm(0)", "Km"}, {*this, "lblKm(1)", "Km"}, {*this, "lblKm(2)", "Km"}}};
    Label lblDist{*this, "lblDist"};
    ProgressBar pgbDist{*this, "pgbDist", 0.1F, 300.0F};
    Shape shpClearLog{*this, "shpClearLog"};
    CheckBox chkClearLog{*this, "chkClearLog", "Clear Log Before Calculations", true};
    Button cmdLogDistRange{*this, "cmdLogDistRange", "Begin Sending Distance Range to Log"};
    Button cmdExitCalc{*this, "cmdExitCalc", "Exit Calculations"};

private:
    // km; a negative step runs downward.
    struct Range {
        double start;
        double end;
        double step;

        bool Holds(double d) const { return step >= 0.0 ? d <= end : d >= end; }
    };

    enum class Outcome { Refused, Finished, Ended, ToBeRestarted };

    void Form_Load() override;
    void Form_Unload() override;
    void SetAppearance();
    void WireEvents();
    // The boxes and the check box of a form at rest, or the distance and the way out of a run.
    void ShowRunning(bool running);

    void cmdLogDistRange_Click();
    void cmdExitCalc_Click();
    Range ReadRange() const;
    // True if it had to put a value right.
    bool CheckDistanceRange();
    Outcome RunOnce();
    Outcome WriteLines(const Range& range, PathInputs path);
    void ShowProgress(double d);
    void SaveLog();

    SharedData& shared_;
    Doors& doors_;
    bool DescendingRun = false;  // of the run that is going
    bool restartWanted_ = false;
};

}  // namespace vardel
