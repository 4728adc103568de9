#include <array>

#include "engine/LogLine.h"
#include "engine/Units.h"
#include "engine/measured/MeasuredData.h"
#include "forms/Doors.h"
#include "forms/SharedData.h"
#include "forms/archive/ArchiveForm.h"
#include "forms/help/ContextIDs.h"
#include "forms/help/frmInfoScreen.h"
#include "forms/main/MainForm.h"
#include "forms/main/UnitSwitch.h"
#include "forms/reports/FrmReport.h"
#include "forms/reports/RLogClass.h"
#include "forms/tools/ReachForm.h"
#include "forms/tools/TerrainForm.h"
#include "models/Primitives.h"
#include "services/Platform.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

struct StoredBox {
    const char* key;
    TextBox MainForm::*box;
};

constexpr std::array<StoredBox, 6> StoredBoxes = {{
    {"PCTTIME", &MainForm::txtPctTime},
    {"PCTLOC", &MainForm::txtPctLoc},
    {"Dist", &MainForm::txtDist},
    {"Freq", &MainForm::txtFreq},
    {"HB", &MainForm::txthb},
    {"HM", &MainForm::txthm},
}};

struct StoredList {
    const char* key;
    ComboBox MainForm::*list;
};

constexpr std::array<StoredList, 2> StoredLists = {{
    {"AreaType", &MainForm::cmbareatype},
    {"CitySize", &MainForm::cmbcitysize},
}};

// A box as the host knows it: metric, and percentages as fractions.
struct HostBox {
    const char* parameter;
    TextBox MainForm::*box;
    double boxPerParameter;
    double metricPerEnglish;  // of what the box shows when English units are on
};

constexpr std::array<HostBox, 6> HostBoxes = {{
    {"PctTime_pct", &MainForm::txtPctTime, 100.0, 1.0},
    {"PctLoc_pct", &MainForm::txtPctLoc, 100.0, 1.0},
    {"TxHt_m", &MainForm::txthb, 1.0, MetresPerFoot},
    {"RxHt_m", &MainForm::txthm, 1.0, MetresPerFoot},
    {"Dist_Km", &MainForm::txtDist, 1.0, KmPerMile},
    {"TxFreq_MHz", &MainForm::txtFreq, 1.0, 1.0},
}};

std::string Stored(Registry& registry, const char* key) {
    registry.SetKey(key);
    registry.RegGet();
    return registry.Setting();
}

void Store(Registry& registry, const char* key, const std::string& text) {
    registry.SetKey(key);
    registry.SetSetting(text);
    registry.RegSave();
}

}  // namespace

void MainForm::Form_Load() {
    SetHelpFile(shared_, *this);
    shared_.MeasuredTable.assign(1, {});
    shared_.ShowMeasuredData = false;
    SetDefaultInputs();
    doors_.ReportLog().SetTitle(LogColumnHeader);
    shared_.OutOfRangeColor = OutOfRangePink;
    doors_.FrmReport->rtbLog.SetRightMargin(RLogClass::UnfoldedMargin);
    OpenRegistry();
    shared_.ArchiveFile.clear();
    RestoreNumbers();
    BeginLog();
    RestoreLists();
    started_ = true;
    ReadMeasuredTables();
}

void MainForm::TakeSettings() {
    OpenRegistry();
    RestoreNumbers();
    RestoreLists();
}

void MainForm::OpenRegistry() {
    registry_.emplace(GetPlatform().settings);
    CalledFromHost = registry_->QuorneActive();
}

void MainForm::RestoreNumbers() {
    if (CalledFromHost) FillFromHost();
    registry_->SetAppname(GetPlatform().applicationTitle);
    registry_->SetSection(SettingsSection);
    if (!CalledFromHost) FillFromSettings();
    RestoreUnits();
}

void MainForm::RestoreLists() {
    for (const auto& [key, list] : StoredLists)
        if (const std::string text = Stored(*registry_, key); !text.empty())
            (this->*list).SetText(text);
    recent_.Load();
}

// The flag leaves the store before anything else happens, so that the next start is its own.
void MainForm::FillFromHost() {
    for (const HostBox& host : HostBoxes) {
        const double value = std::get<double>(registry_->QuorneGlobalValue(host.parameter));
        (this->*host.box).SetText(ShortestText(Finite(value * host.boxPerParameter)));
    }
    registry_->SetQuorneActive(false);
    registry_->SaveQuorneGlobals();
}

void MainForm::FillFromSettings() {
    for (const auto& [key, box] : StoredBoxes)
        if (const std::string text = Stored(*registry_, key); !text.empty())
            (this->*box).SetText(text);
}

// The host's numbers are metric and are converted; restored boxes hold their own units' numbers.
// English units make the graph forms, with the inputs as they stand by then.
void MainForm::RestoreUnits() {
    if (Stored(*registry_, "Units") != "English") return;
    if (CalledFromHost)
        SetEnglishUnits(doors_);
    else
        ShowEnglishUnits(doors_);
}

void MainForm::BeginLog() {
    const bool goesOn = tempLog_.Continue(Stored(*registry_, "TempLogName"));
    bool holdsLog = goesOn || tempLog_.TakeUpOrphan();
    std::string unreadable;
    while (holdsLog && !doors_.ReportLog().ReadFile(tempLog_.Path())) {
        unreadable += "The output log " + tempLog_.Path() + " cannot be read.";
        unreadable += " It is kept as " + tempLog_.SetAside() + ".\n";
        holdsLog = tempLog_.TakeUpOrphan();
    }
    if (!unreadable.empty())
        TellOfLog(unreadable + (holdsLog ? "Another log goes on." : "A new log begins."));
    if (!holdsLog) {
        if (!tempLog_.Begin())
            TellOfLog("The output log cannot be kept in " + GetPlatform().stateDirectory +
                      ". Save it to another file before you exit.");
        doors_.ReportLog().AddTitle();
        doors_.ReportLog().CountAsSaved();  // a header alone is no work to be lost
    }
    shared_.TempLogFile = tempLog_.Path();
}

void MainForm::TellOfLog(const std::string& text) {
    GetPlatform().windows.ShowMessage(
        {.text = text, .title = "Output Log", .icon = Message::Icon::Critical});
}

void MainForm::ReadMeasuredTables() {
    const std::string path = GetPlatform().programDirectory + "/measured.csv";
    if (!ReadMeasuredData(path, shared_.MeasuredTable, GetPlatform().windows))
        shared_.MeasuredTable[0].Frequency = -1;  // which no input matches
}

// The percentages are not among the defaults.
void MainForm::SetDefaultInputs() {
    shared_.PowerUnit = PowerUnit::Kilowatts;
    cmbPowerUnit.SetText("kW e.r.p.");
    PowerWatts = 1000.0;
    txtPowerUnit.SetText("1");
    txtFreq.SetText("450.0");
    txtDist.SetText("10.0");
    txthb.SetText("100.0");
    txthm.SetText("1.5");
    cmbareatype.SetText("Urban");
    cmbcitysize.SetText("Small/Medium");
    Label10.SetCaption("m");
    Label11.SetCaption("m");
    Label12.SetCaption("Km");
    mnuUnitsMetric.SetChecked(true);
    mnuUnitsEnglish.SetChecked(false);
    MarkValuesStale();  // also where these texts change nothing, as after another power
    for (Label* value : {&lblcost231, &lblFITU529, &lblFCost231}) value->SetBackColor(Black);
    // Metric is marked already, so the other forms keep their units until they are next opened.
    SetMetricUnits(doors_);
}

// The host's user has come for a calculation, and has the menu entry.
void MainForm::ShowIntroduction() {
    if (CalledFromHost || Stored(*registry_, InfoScreenKey) == NoInfoScreen) return;
    Run([this] { doors_.frmInfoScreen->ShowModal(this); });
}

void MainForm::mnuFileExit_Click() {
    const Answer answer =
        GetPlatform().windows.ShowMessage({.text = "This Concludes the Loss Calculation Program",
                                           .title = "Loss Calculation Program",
                                           .buttons = Message::Buttons::OkCancel});
    if (answer == Answer::Ok) Unload();
}

void MainForm::Form_Unload() {
    CloseHelp(shared_, GetPlatform().help);
    if (doors_.ArchiveForm.Loaded()) doors_.ArchiveForm->Unload();
    SaveUnitsAndHostBoxes();
    const int ends = shared_.SessionEnds;
    const auto sessionEnded = [&] { return shared_.SessionEnds != ends; };
    const Answer answer = GetPlatform().windows.ShowMessage({.text = "Retain Output Log?",
                                                             .title = "Output Log",
                                                             .buttons = Message::Buttons::YesNo,
                                                             .closed = Answer::Yes});
    // The session may end under the question, which then has no answer.
    const bool retainLog = sessionEnded() || answer == Answer::Yes;
    if (retainLog && !SaveLogChanges() && !sessionEnded()) SaveLogElsewhere();
    SaveSettings(retainLog);
    if (!sessionEnded()) TellOfFailedSettings();
    GetPlatform().windows.EndProgram();
}

void MainForm::TellOfFailedSettings() {
    const auto tell = [&](const std::string& application, const char* consequence) {
        const std::string file = GetPlatform().settings.FailedFile(application);
        if (file.empty()) return;
        GetPlatform().windows.ShowMessage(
            {.text = "The settings cannot be saved in " + file + ": " + consequence,
             .icon = Message::Icon::Critical});
    };
    tell(HostApplication, "the host application will not get the changes made here.");
    tell(GetPlatform().applicationTitle, "the next start may begin with other inputs.");
}

void MainForm::EndSession() {
    if (!started_) return;
    SaveUnitsAndHostBoxes();
    SaveLogChanges();
    SaveSettings(true);
}

// What came into the log behind its last run: notes, graphs, listings. False where that cannot be
// written, or the log has no file.
bool MainForm::SaveLogChanges() {
    RLogClass& log = doors_.ReportLog();
    return !log.HasUnsavedChanges() ||
           (!shared_.TempLogFile.empty() && log.SaveFile(shared_.TempLogFile));
}

// Until it is saved, or the user wants it no more.
void MainForm::SaveLogElsewhere() {
    const Message question = {.text = "The output log cannot be kept in " +
                                      GetPlatform().stateDirectory + ". Save it to another file?",
                              .title = "Output Log",
                              .buttons = Message::Buttons::YesNo,
                              .icon = Message::Icon::Critical};
    while (GetPlatform().windows.ShowMessage(question) == Answer::Yes)
        if (doors_.FrmReport->SaveAsRichText()) return;
}

void MainForm::SaveUnitsAndHostBoxes() {
    if (CalledFromHost) HandBackToHost();
    Store(*registry_, "Units", mnuUnitsMetric.Checked() ? "Metric" : "English");
}

// A box that holds no number, having the focus still, leaves its parameter as it was.
void MainForm::HandBackToHost() {
    const bool english = mnuUnitsEnglish.Checked();
    for (const HostBox& host : HostBoxes) {
        const auto number = WholeTextNumber((this->*host.box).Text());
        if (!number) continue;
        const double metric = english ? *number * host.metricPerEnglish : *number;
        registry_->SetQuorneGlobal(host.parameter, metric / host.boxPerParameter);
    }
    registry_->SaveQuorneGlobals();
}

void MainForm::SaveSettings(bool retainLog) {
    if (!retainLog) {
        tempLog_.Delete();
        shared_.TempLogFile.clear();
    }
    Store(*registry_, "TempLogName", shared_.TempLogFile);
    for (const auto& [key, list] : StoredLists) Store(*registry_, key, (this->*list).Text());
    for (const auto& [key, box] : StoredBoxes) Store(*registry_, key, (this->*box).Text());
    if (doors_.ReachForm.Loaded()) doors_.ReachForm->SaveSettings();
    if (doors_.TerrainForm.Loaded()) doors_.TerrainForm->SaveSettings();
    recent_.Save();
}

}  // namespace vardel
