#include <chrono>
#include <cstdio>
#include <random>
#include <thread>

#include "forms/archive/ArchiveForm.h"
#include "forms/main/MainForm.h"
#include "forms/reports/frmLogDistRange.h"
#include "forms/tools/ReachForm.h"
#include "stress/Writers.h"
#include "support/UnattendedProgram.h"

namespace vardel {

namespace {

class Worker {
public:
    Worker(unsigned seed, const std::string& folder)
        : running_(folder), random_(seed), name_("worker" + std::to_string(seed)) {
        Tell("log " + running_.program.TempLogFile);
        running_.platform.told.clear();
    }

    void StoreRun() {
        const std::string comment = Words();
        const int run = running_.StoreRun(comment);
        if (run != 0) Tell("run " + std::to_string(run) + ' ' + comment);
    }

    void Act() {
        ++action_;
        switch (random_() % 6) {
            case 0:
                return StoreRun();
            case 1:
                return SetSettings();
            case 2:
                return ReportRange();
            case 3:
                return EditArchive();
            default:
                running_.program.MainForm->cmdLossCalc.Press();
                ++calculations_;
        }
    }

    // Whether nothing has failed.
    bool Exit() {
        running_.program.MainForm->mnuFileExit.Pick();
        Tell("calculated " + std::to_string(calculations_));
        for (const std::string& text : running_.platform.told) Tell("failed " + text);
        return running_.platform.told.empty();
    }

private:
    static void Tell(const std::string& line) {
        std::puts(line.c_str());
        std::fflush(stdout);
    }
    std::string Words() const { return name_ + ' ' + std::to_string(action_); }

    void SetSettings() {
        running_.program.ReachForm->wanted.txtWanted.SetText(std::to_string(action_));
        running_.program.ReachForm->Unload();
        running_.program.platform.settings.Write("Vardel", "Workers", name_,
                                                 std::to_string(action_));
        Tell("set " + Words());
    }

    void ReportRange() {
        frmLogDistRange& form = *running_.program.frmLogDistRange;
        form.chkClearLog.SetChecked(false);
        form.txtEnd.SetText("3");
        form.cmdLogDistRange.Press();
        calculations_ += 3;
    }

    // One of the worker's own runs, where the others leave the archive alone for long enough.
    void EditArchive() {
        ArchiveForm& form = *running_.program.ArchiveForm;
        form.txtSearch.SetText(name_);
        const std::string run = form.lstRuns.Count() > 0 ? form.lstRuns.RowAt(0).cells[0] : "?";
        const bool deletes = random_() % 2 == 0;
        running_.platform.comment = Words() + " again";
        if (run != "?") (deletes ? form.cmdDelete : form.cmdComment).Press();
        // The change, or only the next look at the runs.
        const bool failed = !deletes && !form.lblStatus.Caption().empty();
        form.Unload();
        if (run == "?") return;
        Tell((failed ? "maybe " : "run ") + run + (deletes ? "" : ' ' + running_.platform.comment));
    }

    UnattendedProgram running_;
    std::mt19937 random_;
    std::string name_;
    int action_ = 0;
    int calculations_ = 0;
};

}  // namespace

int WorkBesideOthers(int actions, unsigned seed, const std::string& folder) {
    Worker worker(seed, folder);
    worker.StoreRun();  // each finds no archive, and makes it
    // No user is so fast that the others never find the archive free.
    constexpr std::chrono::milliseconds Pause(20);
    for (int i = 0; i < actions; ++i) {
        worker.Act();
        std::this_thread::sleep_for(Pause);
    }
    return worker.Exit() ? 0 : 1;
}

}  // namespace vardel
