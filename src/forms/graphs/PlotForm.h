#pragma once

#include <optional>
#include <string>

#include "forms/SharedData.h"
#include "forms/graphs/GraphView.h"
#include "forms/graphs/ThresholdLine.h"
#include "forms/graphs/chart/Chart.h"
#include "forms/shared/BoxRule.h"
#include "models/ModelInputs.h"
#include "services/Platform.h"

namespace vardel {

class MainForm;
struct Doors;

// What the graph forms have in common: a copy of the main form's inputs, the rules of their boxes,
// the steps of a plot, and a button that shows whether the chart is of the present inputs. The
// inputs go back to the main form when the form closes.
class PlotForm : public Form {
public:
    // What the graph forms name or caption each in its own way.
    struct Names {
        const char* form;
        const char* caption;
        const char* chart;
        const char* chartTitle;
        const char* distanceTitle;
        const char* valueTitle;
        const char* baseAntennaLabel;
        const char* archiveButton;
    };

    double MaxDist = 100.0;   // the right end of the distance axis, km: 100 or 300
    std::string GoodPicture;  // the file for the button of a graph that shows the inputs
    std::string BadPicture;   // and of one whose inputs may have changed since

    FileDialog cmdlg;  // as it was asked for last

    Button cmdPrintGraph{*this, "cmdPrintGraph", "Print Graph"};
    TextBox txtPctLoc{*this, "txtPctLoc", "50"};
    Button cmdUpdateGraph{*this, "cmdUpdateGraph", "Update Graph"};
    TextBox txtPctTime{*this, "txtPctTime", "50"};
    ComboBox cmbcitysize{*this, "cmbcitysize", {{"Small/Medium"}, {"Large"}}};
    ComboBox cmbareatype{*this, "cmbareatype", {{"Urban"}, {"Suburban"}, {"Open"}}};
    TextBox txtFreq{*this, "txtFreq", "150.0"};
    TextBox txthb{*this, "txthb", "30"};
    TextBox txthm{*this, "txthm", "1"};
    Label Label7{*this, "Label7", "Percent of Loc"};
    Label Label5{*this, "Label5", "%"};
    Label Label2{*this, "Label2", "%"};
    Label Label1{*this, "Label1", "Percent of Time"};
    Label Label13{*this, "Label13", "City Size"};
    Label Label6{*this, "Label6", "Area"};
    Label Label3{*this, "Label3", "Frequency"};
    Label Label4{*this, "Label4", "MHz"};
    Label Label10{*this, "Label10", "m"};
    Label Label11{*this, "Label11", "m"};
    Label Label9{*this, "Label9", "Mobile Antenna"};

    Label lblHandBack{*this, "lblHandBack"};  // in what it differs from the main form
    Label lblStatus{*this, "lblStatus"};      // what was done last, where no message says it

    MenuItem mnuFile{*this, "mnuFile", "&File"};
    MenuItem mnuFileSave{mnuFile, "mnuFileSave", "&Save Meta File"};
    MenuItem mnuUnits{*this, "mnuUnits", "&Units"};
    MenuItem mnuUnitsMetric{mnuUnits, "mnuUnitsMetric", "&Metric"};
    MenuItem mnuUnitsEnglish{mnuUnits, "mnuUnitsEnglish", "&English"};

    // The same three under one name for both forms, beside the names that each form gives them.
    Chart& GraphChart() { return chart_; }
    Label& BaseAntennaLabel() { return baseAntenna_; }
    Button& ArchiveButton() { return archive_; }
    virtual ThresholdLine& Threshold() = 0;
    virtual GraphView& View() = 0;

    // The boxes in metric units, for a distance of 0. Nothing, after a message, where a box holds
    // no number.
    std::optional<ModelInputs> ReadInputs(BoxReader read = ReadPositiveBox);
    // Before it is shown: the message of a first plot that found no numbers. A form that a unit
    // switch makes may never be opened, and says nothing.
    void TellRefusal();

    // Gives the main form all inputs as they stand here. Each of these writes is an edit there.
    void HandBackInputs(MainForm& main);
    // Before the window closes, what will change there.
    void ShowHandBack();
    // Empty: there is nothing to say.
    void ShowStatus(std::string text);

protected:
    PlotForm(Platform& platform, SharedData& shared, Doors& doors, const Names& names);

    void Form_Unload() override;  // which those of derived forms begin with
    // The whole plot. A redraw hides what an earlier one showed; the first plot, of the form's
    // loading, draws none. False, after a message unless it is the first, where a box holds no
    // number: the chart is as it was then.
    bool Plot(bool RedrawChart);
    virtual GraphCurves CurvesOf(const ModelInputs& inputs) = 0;
    // What lies over the curves besides, but for runs of an archive.
    virtual void AddToPlot(CurvePlot&, const ModelInputs&) {}
    virtual void SetScalesAndTitles() = 0;
    // The plot that the button asks for.
    virtual bool Replot() = 0;

    void LoadInputs(const MainForm& main);
    // A form that a unit switch has made, hidden, keeps the inputs of then until it has been open;
    // but where the main form has gone back to metric units by itself since, these inputs would be
    // handed back in the wrong units, and the main form's are taken. True when they were.
    bool TakeUnitsAfresh();
    void StoreInArchive(Quantity quantity);
    void ShowValues();
    void cmdPrintGraph_Click();
    void MarkGood();
    void MarkStale();
    // Takes effect with the next plot.
    void SetMaxDist(double maxDist, MenuItem& at100, MenuItem& at300);

    SharedData& shared_;
    Doors& doors_;
    Chart chart_;
    Label baseAntenna_;
    Button archive_;

private:
    PathInputs PathOf(const ModelInputs& inputs) const;

    void AddLaidRuns(CurvePlot& plot, Quantity quantity);
    void SetAppearance();
    void WireEvents();
    void cmbareatype_Click();
    void cmbcitysize_Click();
    void cmdUpdateGraph_Click();

    bool refusalUntold_ = false;
};

}  // namespace vardel
