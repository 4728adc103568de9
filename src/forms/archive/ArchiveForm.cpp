#include "forms/archive/ArchiveForm.h"

#include <algorithm>

#include "archive/ArchivedCurves.h"
#include "archive/ArchivedInputs.h"
#include "archive/RunCsv.h"
#include "forms/Doors.h"
#include "forms/SharedData.h"
#include "forms/main/MainForm.h"
#include "forms/shared/SaveWithDialog.h"
#include "services/Files.h"
#include "services/Platform.h"

namespace vardel {

namespace {

constexpr const char* Section = "ArchiveWindow";
constexpr std::size_t MostLaid = 3;

}  // namespace

ArchiveForm::ArchiveForm(Platform& platform, SharedData& shared, Doors& doors)
    : Form(platform, "ArchiveForm", "Archive"),
      lstRuns(*this, "lstRuns",
              {{"Run", 5, true, true},
               {"Date", 16},
               {"Comment", 22},
               {"Parameters", 52},
               {"Curves", 5, false, true},
               {"On graphs", 9, false}}),
      shared_(shared),
      doors_(doors) {
    SetHelpContextID(HelpTopic::Archive);
    txtSearch.SetHoldsNumber(false);
    txtSearch.SetToolTipText("Words of the number, date, comment or parameters");
    cmdStoreHere.SetToolTipText("Add to Archive stores into this archive from now on");
    cmdTake.SetToolTipText("The run's inputs go back into the main window");
    cmdLay.SetToolTipText("Up to three runs, dashed, until this window closes");
    lstRuns.SetSort(0, true);
    order_.descending = true;
    WireEvents();
}

void ArchiveForm::WireEvents() {
    cmdOpen.Click = [this] { cmdOpen_Click(); };
    cmdStoreHere.Click = [this] { cmdStoreHere_Click(); };
    cmdTake.Click = [this] { cmdTake_Click(); };
    cmdLay.Click = [this] { cmdLay_Click(); };
    cmdComment.Click = [this] { cmdComment_Click(); };
    cmdDelete.Click = [this] { cmdDelete_Click(); };
    cmdUndo.Click = [this] { cmdUndo_Click(); };
    cmdSave.Click = [this] { cmdSave_Click(); };
    cmdClose.Click = [this] { Unload(); };
    txtSearch.Change = [this] {
        order_.search = txtSearch.Text();
        ListRuns();
    };
    lstRuns.SelectionChange = [this] { ShowSelected(); };
    lstRuns.SortChange = [this] {
        order_.by = static_cast<RunOrder::By>(lstRuns.SortColumn());
        order_.descending = lstRuns.SortsDescending();
        ListRuns();
    };
    lstRuns.DblClick = [this] { cmdTake_Click(); };
}

// The archive that runs are stored in, else the one that was looked at last.
void ArchiveForm::Form_Load() {
    std::string path = shared_.ArchiveFile;
    if (path.empty())
        path = GetPlatform().settings.Read(GetPlatform().applicationTitle, Section, "File");
    if (!path.empty() && FileExists(path))
        Open(path);
    else
        ListRuns();
}

void ArchiveForm::Form_Unload() {
    if (reader_)
        GetPlatform().settings.Write(GetPlatform().applicationTitle, Section, "File",
                                     reader_->Path());
    shared_.LaidRuns.clear();
    if (!DeleteForGood())
        GetPlatform().windows.ShowMessage({.text = lblStatus.Caption(), .title = "Archive"});
}

void ArchiveForm::BringUpToDate() {
    if (reader_ && reader_->Path() == shared_.ArchiveFile) ListRuns();
    EnableButtons();
}

void ArchiveForm::cmdOpen_Click() {
    const auto file =
        GetPlatform().windows.AskOpenFile({GetPlatform().programDirectory, "*.mdb", 1});
    if (!file || file->empty() || Unloaded() || !DeleteForGood()) return;
    Open(*file);
}

void ArchiveForm::cmdStoreHere_Click() {
    if (!reader_) return;
    shared_.ArchiveFile = reader_->Path();
    lblStatus.SetCaption("New runs are stored in this archive.");
    doors_.MainForm->ShowStatus();
    EnableButtons();
}

void ArchiveForm::cmdTake_Click() {
    const RunRow* run = SelectedRun();
    if (run == nullptr) return;
    const auto inputs = InputsOfRun(run->parameters, curves_);
    if (!inputs) {
        lblStatus.SetCaption(
            "The inputs cannot be taken: heights in neither m nor ft reproduce the curves of the "
            "run.");
        return;
    }
    doors_.MainForm->TakeInputs(
        inputs->path, inputs->hasPower ? MainForm::Take::Power : MainForm::Take::AllButPower);
    lblStatus.SetCaption("The main window has the inputs of run " + std::to_string(run->number) +
                         (inputs->hasPower ? "." : ", but for the power, which a loss has not."));
}

void ArchiveForm::cmdLay_Click() {
    const RunRow* run = SelectedRun();
    if (run == nullptr) return;
    auto& laid = shared_.LaidRuns;
    const auto same = std::find_if(laid.begin(), laid.end(), [run](const LaidRun& other) {
        return other.number == run->number;
    });
    if (same != laid.end())
        laid.erase(same);
    else if (laid.size() == MostLaid)
        lblStatus.SetCaption("Three runs are on the graphs already. Remove one of them first.");
    else if (!curves_.empty())
        laid.push_back(
            {run->number, QuantityOf(curves_), LaidCurves(run->number, curves_, laid.size())});
    lstRuns.Refresh();
    EnableButtons();
}

void ArchiveForm::cmdComment_Click() {
    const RunRow* run = SelectedRun();
    if (run == nullptr) return;
    const std::int64_t number = run->number;
    const std::string comment =
        GetPlatform().windows.AskText({"Comment:", "Edit Comment", run->comment});
    if (comment.empty() || Unloaded()) return;
    if (!Try([&] { ArchiveEditor(reader_->Path()).SetComment(number, comment); })) return;
    pages_.clear();
    lstRuns.Refresh();
}

void ArchiveForm::cmdDelete_Click() {
    const RunRow* run = SelectedRun();
    if (run == nullptr || IsDeleted(run->number)) return;
    deleted_.push_back(run->number);
    lblStatus.SetCaption("Run " + std::to_string(run->number) +
                         " is deleted when this window closes.");
    lstRuns.Refresh();
    EnableButtons();
}

void ArchiveForm::cmdUndo_Click() {
    if (deleted_.empty()) return;
    lblStatus.SetCaption("Run " + std::to_string(deleted_.back()) + " stays.");
    deleted_.pop_back();
    lstRuns.Refresh();
    EnableButtons();
}

void ArchiveForm::cmdSave_Click() {
    const RunRow* run = SelectedRun();
    if (run == nullptr) return;
    const std::string csv = RunCsv(*run, curves_);
    SaveWithDialog(
        *this, "CSV Files (*.csv)|*.csv", 1,
        [&csv](const SaveChoice& choice) { ReplaceFile(choice.path, csv); },
        "run " + std::to_string(run->number) + ".csv");
}

}  // namespace vardel
