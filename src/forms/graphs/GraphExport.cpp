#include "forms/graphs/GraphExport.h"

#include <array>
#include <cmath>
#include <limits>
#include <tuple>
#include <utility>

#include "forms/graphs/chart/ChartTable.h"
#include "forms/graphs/chart/ChartText.h"
#include "forms/shared/SaveWithDialog.h"
#include "services/Files.h"
#include "services/Platform.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

// Of a side, in pixels: readable, and no more memory than any machine has.
constexpr int SmallestSide = 200;
constexpr int LargestSide = 6000;

constexpr const char* PointFilter = "CSV with decimal points (*.csv)|*.csv";
constexpr const char* CommaFilter =
    "CSV with decimal commas, separated by semicolons (*.csv)|*.csv";

// As in "1600 x 900".
std::optional<std::pair<int, int>> SizeOf(const std::string& text) {
    const std::size_t by = text.find_first_of("xX");
    if (by == std::string::npos) return std::nullopt;
    std::array<int, 2> sides{};
    for (const auto& [i, side] :
         {std::pair(0U, text.substr(0, by)), std::pair(1U, text.substr(by + 1))}) {
        const auto number = WholeTextNumber(side);
        if (!number || !(*number >= SmallestSide && *number <= LargestSide)) return std::nullopt;
        sides.at(i) = static_cast<int>(std::lround(*number));
    }
    return std::pair(sides[0], sides[1]);
}

}  // namespace

void SavePicture(Form& form, Chart& chart, ChartFileKind kind) {
    constexpr std::array<const char*, 3> Filters = {
        "PNG Files (*.png)|*.png", "SVG Files (*.svg)|*.svg", "PDF Files (*.pdf)|*.pdf"};
    const std::string bytes = form.GetPlatform().charts.FileOf(chart, kind);
    SaveWithDialog(
        form, Filters.at(static_cast<std::size_t>(kind)), 1,
        [&bytes](const SaveChoice& choice) { ReplaceFile(choice.path, bytes); },
        chart.Title[0].Text);
}

// The first filter is the one that fits the user's spreadsheet.
void SaveTable(Form& form, Chart& chart) {
    constexpr double Unbounded = std::numeric_limits<double>::infinity();
    const bool commaFirst = form.GetPlatform().decimalComma;
    const AxisRange distances =
        chart.FileFrame.AsZoomed ? chart.View()[0] : AxisRange{-Unbounded, Unbounded};
    const auto inSign = [&](DecimalSign sign) { return ChartTableCsv(chart, distances, sign); };
    const std::array<std::string, 2> tables = {
        inSign(commaFirst ? DecimalSign::Comma : DecimalSign::Point),
        inSign(commaFirst ? DecimalSign::Point : DecimalSign::Comma)};
    const std::string filters = std::string(commaFirst ? CommaFilter : PointFilter) + '|' +
                                (commaFirst ? PointFilter : CommaFilter);
    SaveWithDialog(
        form, filters, 1,
        [&tables](const SaveChoice& choice) {
            ReplaceFile(choice.path, tables.at(choice.filterIndex == 2 ? 1 : 0));
        },
        chart.Title[0].Text);
}

void SavePoints(Form& form, Chart& chart) {
    const std::string csv = ChartCsv(chart);
    SaveWithDialog(
        form, "CSV Files (*.csv)|*.csv", 1,
        [&csv](const SaveChoice& choice) { ReplaceFile(choice.path, csv); }, chart.Title[0].Text);
}

GraphExport::GraphExport(MenuItem& fileMenu, Chart& chart)
    : mnuFileSep(fileMenu, "mnuFileSep", "-"),
      mnuFileExport(fileMenu, "mnuFileExport", "E&xport"),
      chart_(chart) {
    const auto savesPicture = [this](MenuItem& entry, ChartFileKind kind) {
        entry.Click = [this, kind] { SavePicture(chart_.Owner(), chart_, kind); };
    };
    savesPicture(mnuExportPng, ChartFileKind::Png);
    savesPicture(mnuExportSvg, ChartFileKind::Svg);
    savesPicture(mnuExportPdf, ChartFileKind::Pdf);
    mnuExportTable.Click = [this] { SaveTable(chart_.Owner(), chart_); };
    mnuExportPoints.Click = [this] { SavePoints(chart_.Owner(), chart_); };
    mnuExportZoomed.SetCheckable(true);
    mnuExportZoomed.Click = [this] {
        chart_.FileFrame.AsZoomed = !chart_.FileFrame.AsZoomed;
        mnuExportZoomed.SetChecked(chart_.FileFrame.AsZoomed);
    };
    mnuExportSize.Click = [this] { AskSize(); };
}

void GraphExport::AskSize() {
    Windows& windows = chart_.Owner().GetPlatform().windows;
    ChartFrame& frame = chart_.FileFrame;
    const std::string answer = windows.AskText(
        {"Width x height of PNG, SVG and PDF in pixels; 0 for the usual size", "Picture Size",
         frame.Width == 0 ? "1600 x 900"
                          : std::to_string(frame.Width) + " x " + std::to_string(frame.Height)});
    if (Trimmed(answer).empty() || chart_.Owner().Unloaded()) return;
    const auto size = Trimmed(answer) == "0" ? std::optional(std::pair(0, 0)) : SizeOf(answer);
    if (!size) {
        windows.ShowMessage({.text = "The size must be two numbers from " +
                                     std::to_string(SmallestSide) + " to " +
                                     std::to_string(LargestSide) + ", such as 1600 x 900"});
        return;
    }
    std::tie(frame.Width, frame.Height) = *size;
}

}  // namespace vardel
