// What the line at the window's foot says.

#include "forms/SharedData.h"
#include "forms/main/MainForm.h"

namespace vardel {

namespace {

// Values stay as they are when these change, and are then of another power or percentage.
std::string QuietChanges(const PathInputs& before, const PathInputs& now) {
    std::string changes;
    const auto add = [&changes](bool changed, const char* what) {
        if (changed) changes += (changes.empty() ? "" : ", ") + std::string(what);
    };
    add(before.powerWatts != now.powerWatts, "power");
    add(before.pctTime != now.pctTime, "% of time");
    add(before.pctLoc != now.pctLoc, "% of locations");
    return changes;
}

}  // namespace

void MainForm::Tell(std::string text) {
    told_ = std::move(text);
    if (!told_.empty()) GetPlatform().windows.Announce(told_);
    ShowStatus();
}

void MainForm::ShowStatus() {
    const std::string& archive = shared_.ArchiveFile;
    lblArchive.SetCaption(archive.empty() ? ""
                                          : "Archive: " + archive.substr(archive.rfind('/') + 1));
    lblArchive.SetToolTipText(archive);
    lblStatus.SetCaption(told_);
    const auto path = ReadPathQuietly();
    if (!computed_ || !path) return;
    const std::string changes = QuietChanges(*computed_, *path);
    if (valuesStale_)
        lblStatus.SetCaption("The values are for earlier inputs: calculate again.");
    else if (!changes.empty())
        lblStatus.SetCaption("Changed since the values were computed: " + changes +
                             ". Calculate again.");
}

}  // namespace vardel
