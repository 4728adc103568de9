// The list of runs, and the chart of the one that is selected.

#include <algorithm>
#include <functional>

#include "archive/ArchivedCurves.h"
#include "archive/ArchivedInputs.h"
#include "forms/SharedData.h"
#include "forms/archive/ArchiveForm.h"
#include "forms/graphs/chart/ChartSetup.h"
#include "services/Platform.h"

namespace vardel {

namespace {

constexpr std::size_t PageSize = 100;  // runs that are read at once
constexpr std::size_t MostPages = 20;  // that are kept
constexpr int LongestWait = 50;        // ms for another program, so that the window stays alive

}  // namespace

bool ArchiveForm::Try(const std::function<void()>& step) {
    try {
        step();
        return true;
    } catch (const std::exception& error) {
        lblStatus.SetCaption(error.what());
        return false;
    }
}

void ArchiveForm::Open(const std::string& path) {
    lblStatus.SetCaption("");
    shared_.LaidRuns.clear();
    reader_.reset();
    Try([&] { reader_.emplace(path, LongestWait); });
    ListRuns();
}

void ArchiveForm::ListRuns() {
    pages_.clear();
    std::int64_t count = 0;
    if (reader_) Try([&] { count = reader_->RunCount(order_); });
    lstRuns.SetRows(static_cast<std::size_t>(count), [this](std::size_t i) { return RowAt(i); });
    if (reader_) {
        const bool writable = ArchiveEditor(reader_->Path()).MayWrite();
        lblFile.SetCaption(reader_->Path() + ": " + std::to_string(count) +
                           (order_.search.empty() ? " runs" : " runs found") +
                           (writable ? "" : " (read only)"));
    } else {
        lblFile.SetCaption("No archive is open.");
    }
    if (count > 0)
        lstRuns.Select(0);
    else
        ShowSelected();
}

const RunRow* ArchiveForm::RunAt(std::size_t index) {
    if (!reader_) return nullptr;
    const std::size_t page = index / PageSize;
    if (!pages_.contains(page)) {
        if (pages_.size() == MostPages) pages_.clear();
        Try([&] {
            pages_[page] = reader_->Runs(order_, static_cast<std::int64_t>(page * PageSize),
                                         static_cast<std::int64_t>(PageSize));
        });
    }
    const std::vector<RunRow>& runs = pages_[page];
    const std::size_t at = index % PageSize;
    return at < runs.size() ? &runs[at] : nullptr;
}

RowList::Row ArchiveForm::RowAt(std::size_t index) {
    const RunRow* run = RunAt(index);
    if (run == nullptr) return {.cells = std::vector<std::string>(lstRuns.Columns().size(), "?")};
    RowList::Row row{
        .cells = {std::to_string(run->number), run->time, run->comment, run->parameters,
                  std::to_string(run->curves), IsLaid(run->number) ? "yes" : ""},
        .struck = IsDeleted(run->number),
        .marked = !run->complete};
    if (row.marked) row.remark = "Incomplete: a run has a curve for each of three models";
    if (row.struck) row.remark = "Deleted when the window closes";
    return row;
}

const RunRow* ArchiveForm::SelectedRun() {
    return lstRuns.Selected() ? RunAt(*lstRuns.Selected()) : nullptr;
}

bool ArchiveForm::IsDeleted(std::int64_t run) const {
    return std::find(deleted_.begin(), deleted_.end(), run) != deleted_.end();
}

bool ArchiveForm::IsLaid(std::int64_t run) const {
    return std::any_of(shared_.LaidRuns.begin(), shared_.LaidRuns.end(),
                       [run](const LaidRun& laid) { return laid.number == run; });
}

void ArchiveForm::ShowSelected() {
    curves_.clear();
    const RunRow* run = SelectedRun();
    if (run != nullptr && Try([&] { curves_ = reader_->Curves(run->number); }))
        lblStatus.SetCaption("");
    CTWXRun.HideSeries();
    if (run != nullptr && !curves_.empty()) {
        ShowCurves(*run);
    } else {
        CTWXRun.Legend.Visible = false;
        SetChartScales(CTWXRun, 100.0, 50.0, 250.0);
        CTWXRun.Title[0].Text = CTWXRun.Title[1].Text = CTWXRun.Title[2].Text = "";
    }
    CTWXRun.Redraw();
    EnableButtons();
}

void ArchiveForm::ShowCurves(const RunRow& run) {
    const bool loss = QuantityOf(curves_) == Quantity::Loss;
    double farthest = 0.0;
    for (const CurveRow& curve : curves_)
        if (!curve.x.empty()) farthest = std::max(farthest, curve.x.back());
    ShowPlot(CTWXRun, PreviewOf(curves_));
    CTWXRun.Axis[1].Title = loss ? "dB" : "dB (uv/m)";
    SetChartScales(CTWXRun, farthest > 101.0 ? FarthestPoint : 100.0, loss ? 50.0 : -10.0,
                   loss ? 250.0 : 110.0);
    CTWXRun.Title[0].Text = "Run " + std::to_string(run.number);
    SetChartTitles(CTWXRun, run.comment, run.parameters);
}

void ArchiveForm::EnableButtons() {
    const RunRow* run = SelectedRun();
    const bool writable = reader_ && ArchiveEditor(reader_->Path()).MayWrite();
    cmdStoreHere.SetEnabled(writable && reader_->Path() != shared_.ArchiveFile);
    cmdTake.SetEnabled(run != nullptr && !curves_.empty());
    cmdLay.SetEnabled(run != nullptr && !curves_.empty());
    cmdLay.SetCaption(run != nullptr && IsLaid(run->number) ? "Remove from &Graphs"
                                                            : "Show on &Graphs");
    cmdComment.SetEnabled(run != nullptr && writable);
    cmdDelete.SetEnabled(run != nullptr && writable && !IsDeleted(run->number));
    cmdUndo.SetEnabled(!deleted_.empty());
    cmdSave.SetEnabled(run != nullptr && !curves_.empty());
}

bool ArchiveForm::DeleteForGood() {
    if (deleted_.empty()) return true;
    if (!Try([&] { ArchiveEditor(reader_->Path()).DeleteRuns(deleted_); })) return false;
    deleted_.clear();
    return true;
}

}  // namespace vardel
