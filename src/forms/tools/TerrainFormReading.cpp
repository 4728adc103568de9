#include <algorithm>
#include <utility>

#include "engine/PathText.h"
#include "forms/Doors.h"
#include "forms/main/MainForm.h"
#include "forms/tools/TerrainForm.h"
#include "services/Platform.h"
#include "terrain/ContourText.h"
#include "text/AsciiCase.h"

// The ground read, and what is shown of it.

namespace vardel {

namespace {

constexpr std::size_t ReliefSize = 320;  // cells each way
constexpr double HeightsShare = 0.3;     // of the time of a reading

}  // namespace

void TerrainForm::cmdRead_Click() {
    std::string problem;
    const auto inputs = ReadInputs(problem);
    if (!inputs || busy_) return;
    RunAtLength(
        [&] {
            try {
                ReadGround(*inputs);
            } catch (...) {
                elevations_.reset();
                throw;
            }
        },
        "Reading was cancelled.");
}

void TerrainForm::RunAtLength(const std::function<void()>& work, const char* cancelled) {
    busy_ = true;
    cancelled_ = false;
    problem_.clear();
    EnableButtons();
    SetMousePointer(Pointer::Hourglass);
    try {
        work();
    } catch (const std::exception& error) {  // also of a library's, such as no memory for a tile
        problem_ = error.what();
        if (!problem_.empty()) problem_.front() = Upper(problem_.front());
        if (!problem_.ends_with('.')) problem_ += '.';
    }
    busy_ = false;
    if (Unloaded()) return;
    SetMousePointer(Pointer::Normal);
    if (problem_.empty() && cancelled_) problem_ = cancelled;
    TellGround();
    GetPlatform().windows.Announce(lblProblem.Caption() + ' ' + lblNotes.Caption());
}

void TerrainForm::ReadGround(const Inputs& inputs) {
    if (!elevations_ || openFiles_ != inputs.files) {
        elevations_ = doors_.OpenElevations(inputs.files);
        openFiles_ = inputs.files;
    }
    const auto count = static_cast<double>(inputs.azimuths);
    EffectiveHeightTable heights = EffectiveHeights(
        *elevations_, inputs.mast, inputs.definition, inputs.azimuths,
        [&](std::size_t done) { return GoesOn(HeightsShare * static_cast<double>(done) / count); });
    if (heights.radials.size() < inputs.azimuths) return;
    heights_ = std::move(heights);
    map.SetGround({});
    ShowContours();
    Relief ground = ReliefAround(
        *elevations_, inputs.mast.site, map.RadiusKm(), ReliefSize, [&](std::size_t done) {
            return GoesOn(HeightsShare +
                          (1.0 - HeightsShare) * static_cast<double>(done) / ReliefSize);
        });
    if (!Unloaded()) map.SetGround(std::move(ground));
}

bool TerrainForm::GoesOn(double done) {
    pgbRead.SetValue(static_cast<float>(done));
    GetPlatform().windows.Yield();
    return !cancelled_ && !Unloaded();
}

void TerrainForm::ShowContours() {
    std::string problem;
    const auto goal = wanted.Read(problem);
    const auto path = doors_.MainForm->ReadPathQuietly();
    if (!path) problem = "Every box of the main window must hold a number above zero.";
    lblPath.SetCaption(path ? StationText(*path) + " and " + PercentText(path->pctLoc) +
                                  " of locations; wanted " + (goal ? WantedText(*goal) : "-")
                            : "");
    if (!problem.empty()) lblProblem.SetCaption(problem);
    std::optional<ContourTable> table;
    if (path && goal && heights_)
        table = ContoursOf(*heights_, MetricInputs(*path), GoalOf(*goal, *path));
    double farthest = heights_ ? heights_->definition.toKm : 1.0;
    std::string notes;
    if (table) {
        for (const Contour& contour : table->contours)
            for (const Reach& reach : contour.reaches) farthest = std::max(farthest, reach.km);
        for (const std::string& note : NotesOn(*table)) notes += note + ". ";
        notes += "Heights in " + std::string(HeightUnit(path->units)) + ", reaches in " +
                 DistanceUnit(path->units) + '.';
    }
    if (elevations_)
        for (const std::string& note : elevations_->Notes()) notes += ' ' + note;
    lblNotes.SetCaption(notes);
    const std::size_t rows = table ? table->heights.radials.size() : 0;
    const auto marked = map.Marked();
    map.SetTable(std::move(table), 1.05 * farthest, UnitsNow());
    area.Show(goal);
    lstAzimuths.SetRows(rows, [this](std::size_t i) { return RowAt(i); });
    ShowAzimuth(rows == 0 ? std::nullopt : std::optional(marked && *marked < rows ? *marked : 0));
}

RowList::Row TerrainForm::RowAt(std::size_t azimuth) const {
    const ContourTable& table = map.Table().value();
    const bool unseen = table.heights.radials.at(azimuth).seen == 0.0;
    return {.cells = ContourLine(table, azimuth, UnitsNow()),
            .marked = unseen,
            .remark = ContourRemark(table, azimuth, UnitsNow())};
}

void TerrainForm::ShowAzimuth(std::optional<std::size_t> azimuth) {
    map.SetMarked(azimuth);
    if (lstAzimuths.Selected() != azimuth) lstAzimuths.Select(azimuth);
    EnableButtons();
}

void TerrainForm::EnableButtons() {
    std::string problem;
    cmdRead.SetEnabled(!busy_ && ReadInputs(problem).has_value());
    cmdCancel.SetEnabled(busy_);
    pgbRead.SetVisible(busy_);
    for (Button* button : {&cmdAdd, &cmdCopy, &cmdSave})
        button->SetEnabled(map.Table().has_value());
    area.cmdSaveArea.SetEnabled(!busy_ && area.IsShown());
    const auto marked = map.Marked();
    cmdTake.SetEnabled(map.Table() && marked &&
                       map.Table()->heights.radials.at(*marked).seen > 0.0);
}

}  // namespace vardel
