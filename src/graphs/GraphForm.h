#pragma once

#include <string>

#include "graphs/Chart.h"

namespace vardel {

class Program;

// The window of the loss graph: a copy of the main form's inputs beside a chart of the three models
// and free space. Its inputs go back to the main form when it closes.
class GraphForm : public Form {
public:
    explicit GraphForm(Program& program);

    // False, after a message, where a box holds no number: the chart is as it was then.
    bool PlotLossGraph(bool redrawChart);

    double MaxDist = 100.0;   // the right end of the distance axis, km: 100 or 300
    std::string GoodPicture;  // the file for the button of a graph that shows the inputs
    std::string BadPicture;   // and of one whose inputs may have changed since

    Button cmdPrintGraph{*this, "cmdPrintGraph", "Print Graph"};
    TextBox txtPctLoc{*this, "txtPctLoc", "50"};
    Button cmdArchiveData{*this, "cmdArchiveData", "Add to Archive"};
    Button cmdUpdateGraph{*this, "cmdUpdateGraph", "Update Graph"};
    TextBox txtPctTime{*this, "txtPctTime", "50"};
    ComboBox cmbcitysize{*this, "cmbcitysize", {{"Small/Medium"}, {"Large"}}};
    ComboBox cmbareatype{*this, "cmbareatype", {{"Urban"}, {"Suburban"}, {"Open"}}};
    TextBox txtFreq{*this, "txtFreq", "150.0"};
    TextBox txthb{*this, "txthb", "30"};
    TextBox txthm{*this, "txthm", "1"};
    Chart CTWX1{*this, "CTWX1", "dB Loss Calculation", "Distance (Km)", "dB"};
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
    Label lblBaseAntenna{*this, "lblBaseAntenna", "Base Antenna"};
    Label Label9{*this, "Label9", "Mobile Antenna"};

    MenuItem mnuFile{*this, "mnuFile", "&File"};
    MenuItem mnuFileSave{mnuFile, "mnuFileSave", "&Save Meta File"};
    MenuItem mnuFileCopyToReportLog{mnuFile, "mnuFileCopyToReportLog", "Copy to &Report Log"};
    MenuItem mnuFilePrint{mnuFile, "mnuFilePrint", "Print"};
    MenuItem mnuFilePrintSetup{mnuFile, "mnuFilePrintSetup", "&Printer Setup"};
    MenuItem mnuFileClose{mnuFile, "mnuFileClose", "&Close"};
    MenuItem mnuUnits{*this, "mnuUnits", "&Units"};
    MenuItem mnuUnitsMetric{mnuUnits, "mnuUnitsMetric", "&Metric"};
    MenuItem mnuUnitsEnglish{mnuUnits, "mnuUnitsEnglish", "&English"};
    MenuItem mnuGraph{*this, "mnuGraph", "&Graph"};
    MenuItem mnuGraph100{mnuGraph, "mnuGraph100", "Max Dist &100 Km"};
    MenuItem mnuGraph300{mnuGraph, "mnuGraph300", "Max Dist &300 Km"};

private:
    void Form_Load() override;
    void Form_Unload() override;
    void SetAppearance();
    void WireEvents();
    void MarkGood();
    void MarkStale();
    void cmbareatype_Click();
    void cmdUpdateGraph_Click();
    void SetMaxDist(double maxDist);

    Program& program_;
};

}  // namespace vardel
