#include "forms/tools/ReachForm.h"

#include "engine/PathText.h"
#include "forms/Doors.h"
#include "forms/SharedData.h"
#include "forms/main/MainForm.h"
#include "forms/reports/FrmReport.h"
#include "forms/shared/BoxMark.h"
#include "forms/shared/Palette.h"
#include "forms/shared/SaveWithDialog.h"
#include "map/CoverageRings.h"
#include "models/Primitives.h"
#include "services/Files.h"
#include "services/Platform.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

constexpr const char* Section = "Reach";

void ShowCell(Label& cell, const std::string& text, const std::string& remark, bool marked) {
    cell.SetCaption(text);
    cell.SetBackColor(marked ? OutOfRangePink : White);
    cell.SetStateText(remark);
    cell.SetToolTipText(remark);
}

// The transmitter's latitude or longitude, in the form that people type: "52 30 12 N". Empty where
// the host has none.
std::string HostCoordinate(const Registry& registry, const std::string& name,
                           const char* degreesFormat, const char* directions) {
    const auto text = [&](const std::string& part) {
        const GlobalValue value = registry.QuorneGlobalValue("Tx" + name + part);
        const auto* held = std::get_if<std::string>(&value);
        return held != nullptr ? std::string(Trimmed(*held)) : std::string();
    };
    std::string coordinate = text(std::string("Deg_") + degreesFormat);
    if (coordinate.empty()) return {};
    for (const char* part : {"Min_MM", "Sec_SS"})
        if (const std::string more = text(part); !more.empty()) coordinate += ' ' + more;
    return coordinate + ' ' + text(std::string("H_") + directions);
}

}  // namespace

ReachForm::ReachForm(Platform& platform, SharedData& shared, Doors& doors)
    : Form(platform, "ReachForm", "Reach"), shared_(shared), doors_(doors) {
    SetHelpContextID(HelpTopic::Reach);
    for (std::size_t i = 0; i < ComparedModels.size() * ReachPercentages; ++i)
        lblReach.push_back(std::make_unique<Label>(*this, "lblReach(" + std::to_string(i) + ')'));
    for (std::size_t i = 0; i < ComparedModels.size(); ++i)
        lblModel.at(i).SetCaption(ModelOf(ComparedModels.at(i)).name);
    cmdGraph.SetToolTipText(
        "A graph with a line at what is wanted, for the main window's percentages");
    cmdMap.SetToolTipText("Coverage as GeoJSON or KML, a ring for each model and percentage");
    cmdCopy.SetToolTipText("As text and as CSV");
    WireEvents();
}

void ReachForm::WireEvents() {
    const auto upToDate = [this] {
        BringUpToDate();
        TellTable();
    };
    wanted.OnChange(upToDate);
    for (TextBox& box : txtPercent) box.Change = upToDate;
    for (TextBox* box : {&site.txtLatitude, &site.txtLongitude})
        box->Change = [this] { CheckStation(); };
    cmdAdd.Click = [this] {
        if (table_) doors_.FrmReport->AppendTable(ReachLines(*table_));
    };
    cmdCopy.Click = [this] {
        if (table_) GetPlatform().clipboard.SetText(ReachTabbed(*table_), ReachCsv(*table_));
    };
    cmdMap.Click = [this] { cmdMap_Click(); };
    cmdGraph.Click = [this] { cmdGraph_Click(); };
    cmdClose.Click = [this] { Unload(); };
}

void ReachForm::Form_Load() { TakeSettings(); }

void ReachForm::TakeSettings() {
    TakeTexts(GetPlatform(), Section, Texts());
    FillStation();
    BringUpToDate();
}

void ReachForm::FillStation() {
    const Registry registry(GetPlatform().settings);
    const std::string latitude = HostCoordinate(registry, "Lat", "DD", "NS");
    const std::string longitude = HostCoordinate(registry, "Lon", "DDD", "EW");
    if (!ParseLatitude(latitude) || !ParseLongitude(longitude)) return;
    site.txtLatitude.SetText(latitude);
    site.txtLongitude.SetText(longitude);
}

void ReachForm::Form_Unload() { SaveSettings(); }

void ReachForm::SaveSettings() { StoreTexts(GetPlatform(), Section, Texts()); }

StoredTexts ReachForm::Texts() {
    StoredTexts texts = site.Texts();
    for (std::size_t i = 0; i < txtPercent.size(); ++i)
        texts.push_back({"PctLoc" + std::to_string(i), &txtPercent.at(i)});
    for (const StoredText& text : wanted.Texts()) texts.push_back(text);
    return texts;
}

std::optional<std::array<double, ReachPercentages>> ReachForm::ReadPercentages(
    std::string& problem) {
    std::array<double, ReachPercentages> percentages{};
    bool good = true;
    for (std::size_t i = 0; i < percentages.size(); ++i) {
        const auto number =
            ReadOrTell(txtPercent.at(i), 1, 99,
                       "A percentage of locations must be a number from 1 to 99.", problem);
        good = good && number;
        percentages.at(i) = number.value_or(0.0);
    }
    return good ? std::optional(percentages) : std::nullopt;
}

void ReachForm::BringUpToDate() {
    if (!doors_.MainForm.Loaded()) return;
    std::string problem;
    const auto goal = wanted.Read(problem);
    const auto percentages = ReadPercentages(problem);
    const auto path = doors_.MainForm->ReadPathQuietly();
    if (!path) problem = "Every box of the main window must hold a number above zero.";
    table_.reset();
    if (path && goal && percentages) table_ = MakeReachTable(*path, *goal, *percentages);
    lblPath.SetCaption(path ? PathText(*path) : "");
    lblProblem.SetCaption(problem);
    ShowTable();
    CheckStation();
}

void ReachForm::ShowTable() {
    const Units units = doors_.MainForm->mnuUnitsEnglish.Checked() ? Units::English : Units::Metric;
    const std::string distance =
        std::string(Trimmed(doors_.MainForm->txtDist.Text())) + ' ' + DistanceUnit(units);
    lblReachHead.SetCaption(std::string("Reach in ") + DistanceUnit(units) + " at % of locations");
    const std::string goal = "\nfor " + distance + "\nat " +
                             PercentText(LeadingNumber(doors_.MainForm->txtPctLoc.Text())) +
                             " of locations";
    lblPowerHead.SetCaption("Power (W e.r.p.)" + goal);
    lblHeightHead.SetCaption(std::string("Base height (") + HeightUnit(units) + ')' + goal);
    for (std::size_t i = 0; i < ComparedModels.size(); ++i) {
        if (table_)
            ShowRow(i, table_->rows.at(i));
        else
            ShowNoRow(i);
    }
    for (Button* button : {&cmdAdd, &cmdCopy, &cmdGraph}) button->SetEnabled(table_.has_value());
}

// Of the columns, whose heads name the percentages.
void ReachForm::TellTable() {
    std::string told = lblProblem.Caption();
    if (table_)
        for (const ReachTable::Row& row : table_->rows) {
            told += ModelOf(row.model).name;
            for (const Reach& reach : row.reaches)
                told += (&reach == &row.reaches.front() ? ": " : ", ") +
                        ReachText(reach, table_->path.units);
            told += std::string(" ") + DistanceUnit(table_->path.units) + ". ";
        }
    GetPlatform().windows.AnnounceAtRest(told);
}

void ReachForm::ShowRow(std::size_t i, const ReachTable::Row& row) {
    const char* const outOfRange = "out of the model's range";
    for (std::size_t k = 0; k < ReachPercentages; ++k) {
        const Reach& reach = row.reaches.at(k);
        ShowCell(*lblReach.at(i * ReachPercentages + k),
                 ReachText(reach, table_->path.units) + (reach.Again() ? " +" : ""),
                 ReachRemark(reach), reach.outcome != Reach::Outcome::Invalid && !reach.inRange);
    }
    const bool powerOut = row.power && !row.power->inRange;
    ShowCell(lblPower.at(i), PowerCellText(*table_, row), powerOut ? outOfRange : "", powerOut);
    const bool heightOut =
        row.height.outcome != NeededHeight::Outcome::Invalid && !row.height.inRange;
    ShowCell(lblHeight.at(i), HeightCellText(*table_, row), heightOut ? outOfRange : "", heightOut);
}

void ReachForm::ShowNoRow(std::size_t i) {
    for (std::size_t k = 0; k < ReachPercentages; ++k)
        ShowCell(*lblReach.at(i * ReachPercentages + k), "-", "", false);
    ShowCell(lblPower.at(i), "-", "", false);
    ShowCell(lblHeight.at(i), "-", "", false);
}

// Empty boxes are no mistake: a map may not be wanted.
void ReachForm::CheckStation() {
    std::string problem;  // is seen in the boxes
    station_ = site.Read(problem);
    cmdMap.SetEnabled(table_ && station_);
}

void ReachForm::cmdGraph_Click() {
    if (!table_) return;
    MainForm& main = *doors_.MainForm;
    const bool loss = table_->goal.quantity == Quantity::Loss;
    (loss ? shared_.LossThreshold : shared_.FieldStrengthThreshold) = {table_->goal.value, true};
    (loss ? main.mnuGraphdBloss : main.mnuGraphCompare).Pick();
}

void ReachForm::cmdMap_Click() {
    if (!table_ || !station_) return;
    const Coverage coverage = CoverageOf(*table_, *station_);
    if (coverage.rings.empty()) {
        GetPlatform().windows.ShowMessage(
            {.text = "No model meets the wanted value anywhere, so there is no ring to save."});
        return;
    }
    SaveWithDialog(
        *this, "GeoJSON (*.geojson)|*.geojson|KML (*.kml)|*.kml", 1,
        [&coverage](const SaveChoice& choice) {
            const bool kml = ChosenKind(choice, {".geojson", ".kml"}) == 1;
            ReplaceFile(choice.path,
                        (kml ? CoverageKml(coverage) : CoverageGeoJson(coverage)).value());
        },
        FileNameAround(*station_, "coverage", ".geojson"));
}

}  // namespace vardel
