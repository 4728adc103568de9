#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "controls/Controls.h"
#include "engine/PathInputs.h"
#include "forms/main/RecentPaths.h"
#include "forms/reports/TempLog.h"
#include "forms/shared/BoxRule.h"
#include "forms/shared/PowerUnitList.h"
#include "services/settings/Registry.h"

namespace vardel {

class Calculation;
enum class ModelNumber : int;
struct Doors;
struct Platform;
struct SharedData;
enum class FieldStrengthGraph : int;

// The program's one permanent window: the inputs as text in boxes, the six results of a
// calculation, and the menus that lead to everything else.
class MainForm : public Form {
public:
    MainForm(Platform& platform, SharedData& shared, Doors& doors);

    // What a form that takes its inputs from here may call.
    void MarkValuesStale();
    void SetDefaultInputs();
    // What the host or the last run has left in the settings, over the default inputs, as every
    // start takes it.
    void TakeSettings();
    // What a run takes from the boxes, but for the distance. Nothing, after a message, where a box
    // holds no number that read takes, which can only be one that still has the focus.
    std::optional<PathInputs> ReadInputs(BoxReader read);
    // All of a path, as a run takes it. Nothing, and no message, where a box holds no number above
    // zero.
    std::optional<PathInputs> ReadPathQuietly();
    // Puts a path's inputs into the boxes, in the window's own units; the distance where it is
    // said.
    enum class Take { Power, AllButPower, PowerAndDistance };
    void TakeInputs(const PathInputs& path, Take take);
    // What was done, where no message says it; until the next calculation.
    void Tell(std::string text);
    void ShowStatus();
    // The first of the files that holds the inputs of a graph; once the user has agreed, they are
    // taken. That none does is said once.
    struct GivenFile {
        std::string name;
        std::string text;
    };
    void OfferInputs(const std::vector<GivenFile>& files);
    // At the start: unless the user has said no to it or the host has made the start.
    void ShowIntroduction();
    // Saves as an exit does that retains the log, and asks nothing.
    void EndSession();

    Frame Frame1{*this, "Frame1", "Input Parameters"};
    Label Label1{*this, "Label1", "Frequency"};
    TextBox txtFreq{*this, "txtFreq", "150.0"};
    Label Label9{*this, "Label9", "MHz"};
    Label Label2{*this, "Label2", "Distance"};
    TextBox txtDist{*this, "txtDist", "1"};
    Label Label12{*this, "Label12", "km"};
    Label Label3{*this, "Label3", "Height of Base Station Antenna"};
    TextBox txthb{*this, "txthb", "30"};
    Label Label10{*this, "Label10", "m"};
    Label Label4{*this, "Label4", "Height of Mobile Antenna"};
    TextBox txthm{*this, "txthm", "1"};
    Label Label11{*this, "Label11", "m"};
    Label Label6{*this, "Label6", "Area"};
    ComboBox cmbareatype{*this, "cmbareatype", {{"Urban"}, {"Suburban"}, {"Open"}}};
    Label Label13{*this, "Label13", "City Size"};
    ComboBox cmbcitysize{*this, "cmbcitysize", {{"Small/Medium"}, {"Large"}}};
    Label Label17{*this, "Label17", "% of time"};
    TextBox txtPctTime{*this, "txtPctTime", "50"};
    Label Label5{*this, "Label5", "% of Location"};
    TextBox txtPctLoc{*this, "txtPctLoc", "50"};
    Button cmdLossCalc{*this, "cmdLossCalc", "Calculate"};
    Label lblHelpRange{*this, "lblHelpRange"};

    Frame Frame2{*this, "Frame2", "Calculated Values"};
    Label Label28{*this, "Label28", "Loss"};
    Label lblFieldStrength{*this, "lblFieldStrength", "Field Strength"};
    Line Line2{*this, "Line2"};
    // The heads of the columns, above the loss (0) and above the field strength (1).
    std::array<Label, 2> lblLITU529{{{*this, "lblLITU529(0)", "Okumura-Hata ITU 529"},
                                     {*this, "lblLITU529(1)", "Okumura-Hata ITU 529"}}};
    std::array<Label, 2> lblLDavidson{{{*this, "lblLDavidson(0)", "Okumura-Hata Davidson"},
                                       {*this, "lblLDavidson(1)", "Okumura-Hata Davidson"}}};
    std::array<Label, 2> lblLCost231{
        {{*this, "lblLCost231(0)", "Cost 231"}, {*this, "lblLCost231(1)", "Cost 231"}}};
    Label lblOH529dBLoss{*this, "lblOH529dBLoss"};
    Label Label35{*this, "Label35", " dB"};
    Label lblDavidson{*this, "lblDavidson"};
    Label Label27{*this, "Label27", "dB"};
    Label lblcost231{*this, "lblcost231"};
    Label Label15{*this, "Label15", " dB"};
    Label lblFITU529{*this, "lblFITU529"};
    Label Label7{*this, "Label7", " dB µv / m"};
    Label lblPalvernDavFS{*this, "lblPalvernDavFS"};
    Label Label32{*this, "Label32", " dB µv / m"};
    Label lblFCost231{*this, "lblFCost231"};
    Label Label8{*this, "Label8", " dB µv / m"};
    Label Label24{*this, "Label24", "Power"};
    TextBox txtPowerUnit{*this, "txtPowerUnit", "1"};
    ComboBox cmbPowerUnit{*this, "cmbPowerUnit", PowerUnitEntries(),
                          static_cast<int>(PowerUnit::Kilowatts)};

    // At the window's foot.
    Label lblStatus{*this, "lblStatus"};    // what the values are not of, or what was saved last
    Label lblArchive{*this, "lblArchive"};  // that runs are stored in

    MenuItem mnuFile{*this, "mnuFile", "&File"};
    MenuItem mnuFileNew{mnuFile, "mnuFileNew", "&New"};
    MenuItem mnuFileSep{mnuFile, "mnuFileSep", "-"};
    MenuItem mnuFileExit{mnuFile, "mnuFileExit", "&Exit"};
    MenuItem mnuUnits{*this, "mnuUnits", "&Units"};
    MenuItem mnuUnitsMetric{mnuUnits, "mnuUnitsMetric", "&Metric"};
    MenuItem mnuUnitsEnglish{mnuUnits, "mnuUnitsEnglish", "&English"};
    MenuItem mnuCalculation{*this, "mnuCalculation", "&Calculation"};
    MenuItem mnuCalculationLog{mnuCalculation, "mnuCalculationLog", "&View Output Report"};
    MenuItem mnuCalculationCalculate{mnuCalculation, "mnuCalculationCalculate",
                                     "&Calculate Values"};
    MenuItem mnuCalculationLogDist{mnuCalculation, "mnuCalculationLogDist",
                                   "&Report for Distance Range"};
    MenuItem mnuHideShow{mnuCalculation, "mnuHideShow", "&Hide Out of Range Values"};
    MenuItem mnuGraph{*this, "mnuGraph", "&Graph"};
    MenuItem mnuGraphdBloss{mnuGraph, "mnuGraphdBloss", "&Compare dB loss Models"};
    MenuItem mnuOkumGraphFieldStrength{mnuGraph, "mnuOkumGraphFieldStrength",
                                       "Field Strength (&Palvern Davidson)"};
    MenuItem mnuOkum529GraphFieldStrength{mnuGraph, "mnuOkum529GraphFieldStrength",
                                          "Field Strength (ITU-R P.&529 Palvern)"};
    MenuItem mnuGraphCost231FieldStrength{mnuGraph, "mnuGraphCost231FieldStrength",
                                          "Field Strength (&Cost 231)"};
    MenuItem mnuGraphCompare{mnuGraph, "mnuGraphCompare", "Compare Field Strength  &Models"};
    MenuItem mnuGraphSep{mnuGraph, "mnuGraphSep", "-"};
    MenuItem mnuGraphMeasured{mnuGraph, "mnuGraphMeasured", "&Show Measured Data"};
    MenuItem mnuTools{*this, "mnuTools", "&Tools"};
    MenuItem mnuToolsReach{mnuTools, "mnuToolsReach", "&Reach ..."};
    MenuItem mnuToolsTerrain{mnuTools, "mnuToolsTerrain", "&Terrain ..."};
    MenuItem mnuToolsExplain{mnuTools, "mnuToolsExplain", "&Explain This Number ..."};
    MenuItem mnuToolsMeasured{mnuTools, "mnuToolsMeasured", "&Measured Data ..."};
    MenuItem mnuToolsArchive{mnuTools, "mnuToolsArchive", "&Archive ..."};
    MenuItem mnuToolsRecent{mnuTools, "mnuToolsRecent", "Recent &Inputs"};
    MenuItem mnuHelp{*this, "mnuHelp", "&Help"};
    MenuItem mnuHelpInfo{mnuHelp, "mnuHelpInfo", "&Introduction Screen"};
    MenuItem mnuHelpVardel{mnuHelp, "mnuHelpVardel", "&Vardel"};
    MenuItem mnuHelpAbout{mnuHelp, "mnuHelpAbout", "&About Vardel"};

private:
    // What shows a model's results, and the heads of their columns.
    struct ModelLabels {
        ModelNumber model;
        std::array<Label, 2> MainForm::*heads;
        Label MainForm::*loss;
        Label MainForm::*fieldStrength;
    };
    static const std::array<ModelLabels, 3> LabelsOfModels;

    // MainForm.cpp
    void SetAppearance();
    void SetHelpTopics();
    void WireEvents();
    void ShowLossGraph();
    void ShowFieldStrengthGraph(FieldStrengthGraph graph);

    // MainFormCalculation.cpp
    void cmdLossCalc_Click();
    std::optional<PathInputs> ReadPath(BoxReader read);
    std::optional<PathInputs> ReadBoxes(BoxReader read, bool withDistance);
    void ShowResults(const Calculation& calculation);

    // MainFormInputRules.cpp
    void WireInputRules();
    void BringToolsUpToDate();
    void cmbareatype_Click();
    void txtPowerUnit_LostFocus();
    void cmbPowerUnit_Click();

    // MainFormRangeHints.cpp
    void WireRangeHints();
    void EndRangeHint();
    void mnuHideShow_Click();
    void lblFieldStrength_DblClick();

    // MainFormStart.cpp
    void Form_Load() override;
    void Form_Unload() override;
    void mnuFileExit_Click();
    void OpenRegistry();
    void RestoreNumbers();  // and their units
    void RestoreLists();
    void FillFromHost();
    void FillFromSettings();
    void RestoreUnits();
    void BeginLog();
    void ReadMeasuredTables();
    void SaveUnitsAndHostBoxes();
    void HandBackToHost();
    void TellOfLog(const std::string& text);
    bool SaveLogChanges();
    void SaveLogElsewhere();
    void TellOfFailedSettings();
    void SaveSettings(bool retainLog);

    SharedData& shared_;
    Doors& doors_;
    std::optional<Registry> registry_;  // from Form_Load on
    RecentPaths recent_{mnuToolsRecent, [this](const PathInputs& path) {
                            TakeInputs(path, Take::PowerAndDistance);
                        }};
    std::string told_;
    std::optional<PathInputs> computed_;  // of the values that are shown
    bool valuesStale_ = false;            // and shown as such
    TempLog tempLog_;
    bool CalledFromHost = false;
    bool started_ = false;  // all is as an exit may save it
};

}  // namespace vardel
