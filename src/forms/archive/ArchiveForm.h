#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "archive/ArchiveEditor.h"
#include "archive/ArchiveReader.h"
#include "controls/RowList.h"
#include "forms/graphs/chart/Chart.h"

namespace vardel {

struct Doors;
struct Platform;
struct SharedData;

// The runs of an archive: searched, sorted, looked at, laid over the graphs, taken back into the
// main form. What is deleted leaves the archive when the form closes, and until then comes back by
// an undo. Faults are shown in the form, in no message.
class ArchiveForm : public Form {
public:
    ArchiveForm(Platform& platform, SharedData& shared, Doors& doors);

    // A run was stored, which belongs into the list if it is of its archive.
    void BringUpToDate();

    Label lblFile{*this, "lblFile"};
    Button cmdOpen{*this, "cmdOpen", "&Open ..."};
    Button cmdStoreHere{*this, "cmdStoreHere", "Store New Runs &Here"};
    Label lblSearch{*this, "lblSearch", "Search"};
    TextBox txtSearch{*this, "txtSearch"};
    RowList lstRuns;
    Chart CTWXRun{*this, "CTWXRun", "Run", "Distance (km)", "dB"};
    Label lblStatus{*this, "lblStatus"};
    Button cmdTake{*this, "cmdTake", "&Take Inputs"};
    Button cmdLay{*this, "cmdLay", "Show on &Graphs"};
    Button cmdComment{*this, "cmdComment", "Edit &Comment ..."};
    Button cmdDelete{*this, "cmdDelete", "&Delete"};
    Button cmdUndo{*this, "cmdUndo", "&Undo Delete"};
    Button cmdSave{*this, "cmdSave", "&Save as CSV ..."};
    Button cmdClose{*this, "cmdClose", "Close"};

private:
    void Form_Load() override;
    void Form_Unload() override;
    void WireEvents();
    void cmdOpen_Click();
    void cmdStoreHere_Click();
    void cmdTake_Click();
    void cmdLay_Click();
    void cmdComment_Click();
    void cmdDelete_Click();
    void cmdUndo_Click();
    void cmdSave_Click();

    // ArchiveFormRuns.cpp
    void Open(const std::string& path);
    void ListRuns();
    RowList::Row RowAt(std::size_t index);
    const RunRow* RunAt(std::size_t index);
    const RunRow* SelectedRun();
    void ShowSelected();
    void ShowCurves(const RunRow& run);
    void EnableButtons();
    // False, and the fault is shown, where the step throws.
    bool Try(const std::function<void()>& step);
    bool DeleteForGood();
    bool IsDeleted(std::int64_t run) const;
    bool IsLaid(std::int64_t run) const;

    SharedData& shared_;
    Doors& doors_;
    std::optional<ArchiveReader> reader_;  // none: no archive is open
    RunOrder order_;
    std::map<std::size_t, std::vector<RunRow>> pages_;  // of the list, those last seen
    std::vector<std::int64_t> deleted_;                 // runs, the last one last
    std::vector<CurveRow> curves_;                      // of the run that is selected
};

}  // namespace vardel
