#include "forms/archive/ArchiveRun.h"

#include <filesystem>
#include <optional>
#include <string>
#include <system_error>

#include "archive/ArchiveSchema.h"
#include "archive/RunWriter.h"
#include "archive/dbOperations.h"
#include "controls/Hourglass.h"
#include "forms/SharedData.h"
#include "forms/graphs/PlotForm.h"
#include "forms/shared/BoxRule.h"
#include "models/Primitives.h"
#include "services/Files.h"
#include "services/Platform.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

constexpr const char* Title = "Add To Archive";

// Where the user wants it. False, after a message, when it cannot be made.
bool OfferToMake(Windows& windows, const std::string& path) {
    if (windows.ShowMessage({.text = "The archive " + path + " does not exist. Make it?",
                             .title = Title,
                             .buttons = Message::Buttons::YesNo}) != Answer::Yes)
        return true;
    // Another program may be making it just now, and may have a run in it before this one is done.
    const FolderLock lock(std::filesystem::path(path).parent_path().string());
    if (FileExists(path)) return true;
    try {
        ReplaceFile(path, Database::NewFile(ArchiveSchema));
        return true;
    } catch (const std::system_error& error) {
        windows.ShowMessage(
            {.text = "The archive " + path + " cannot be made: " + error.code().message(),
             .title = Title,
             .icon = Message::Icon::Critical});
        return false;
    }
}

// False, after a message, when the user chooses none.
bool ChooseArchive(SharedData& shared, PlotForm& form) {
    const Platform& platform = form.GetPlatform();
    Windows& windows = platform.windows;
    form.cmdlg = {platform.programDirectory, "*.mdb", 1, "*.mdb"};
    const auto file = windows.AskOpenFile(form.cmdlg);
    if (!file || file->empty() || file->find('*') != std::string::npos) {
        windows.ShowMessage({.text = "Cannot Open Access Database", .title = Title});
        shared.ArchiveFile.clear();
        return false;
    }
    std::filesystem::path path = *file;
    if (!path.has_extension() && !FileExists(*file)) path += ".mdb";
    if (!FileExists(path.string()) && !OfferToMake(windows, path.string())) return false;
    shared.ArchiveFile = path.string();
    return true;
}

// The boxes as they stand, without units of the heights. The doubled comma before the city size is
// part of the format.
std::string ParameterLine(const PlotForm& form) {
    const std::string& area = form.cmbareatype.Text();
    std::string line = "hb:" + TrimmedText(form.txthb) + ",hm:" + TrimmedText(form.txthm) +
                       ",frq:" + form.txtFreq.Text() + ',' + area + ',';
    if (IsUrban(form.cmbareatype)) line += ',' + form.cmbcitysize.Text();
    line += ",Power:" + FormatNumber(GetPowerWatts() / 1000.0, "###.##") + "kW e.r.p.,";
    return line + TrimmedText(form.txtPctTime) + "%T," + TrimmedText(form.txtPctLoc) + "%L";
}

// A box that is cancelled leaves the comment empty; one that the end of the session takes away
// leaves none.
std::optional<std::string> AskComment(const SharedData& shared, Windows& windows, int sessionEnds) {
    std::string comment = windows.AskText({"Comments:", "Store Data Run", " "});
    if (comment.empty() && shared.SessionEnds != sessionEnds) return std::nullopt;
    return comment;
}

void StoreRun(const SharedData& shared, dbOperations& archive, PlotForm& form,
              const ModelInputs& inputs, Quantity quantity, int sessionEnds) {
    Platform& platform = form.GetPlatform();
    archive.OpenArchive(shared.ArchiveFile);
    const std::string parameters = ParameterLine(form);
    const auto comment = AskComment(shared, platform.windows, sessionEnds);
    if (!comment) return;
    WriteRun(archive, {parameters, *comment, platform.clock.Now(), quantity, inputs,
                       GetPowerWatts(), form.MaxDist});
    if (!archive.HasFailed())
        form.ShowStatus("Run " + std::to_string(archive.CurrentRunId) + " is stored in " +
                        archive.ArchivePath + '.');
}

}  // namespace

void ArchiveRun(SharedData& shared, dbOperations& archive, PlotForm& form, Quantity quantity) {
    const int sessionEnds = shared.SessionEnds;
    const Hourglass hourglass(form);
    form.GetPlatform().windows.Yield();
    if (form.Unloaded()) return;
    if (const auto inputs = form.ReadInputs())
        if (!shared.ArchiveFile.empty() || ChooseArchive(shared, form))
            StoreRun(shared, archive, form, *inputs, quantity, sessionEnds);
}

}  // namespace vardel
