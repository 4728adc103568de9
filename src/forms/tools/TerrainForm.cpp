#include "forms/tools/TerrainForm.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "engine/PathText.h"
#include "forms/Doors.h"
#include "forms/main/MainForm.h"
#include "forms/reports/FrmReport.h"
#include "forms/shared/BoxMark.h"
#include "forms/shared/SaveWithDialog.h"
#include "forms/tools/ReachForm.h"
#include "services/Files.h"
#include "services/Platform.h"
#include "terrain/ContourText.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

constexpr const char* Section = "Terrain";
constexpr double TallestMast = 2000.0;    // m
constexpr double HighestGround = 9000.0;  // m
constexpr double LowestGround = -500.0;   // m
constexpr std::size_t ReliefSize = 320;   // cells each way
constexpr double HeightsShare = 0.3;      // of the time of a reading

std::vector<ComboBox::Item> DefinitionItems() {
    std::vector<ComboBox::Item> items;
    items.reserve(HeightDefinitions.size() + 1);
    for (const HeightDefinition& definition : HeightDefinitions)
        items.push_back({std::string(definition.name)});
    items.push_back({"own bounds"});
    return items;
}

// Parted by semicolons.
std::vector<std::string> PathsOf(std::string_view text) {
    std::vector<std::string> paths;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(';'), text.size());
        if (const auto path = Trimmed(text.substr(0, end)); !path.empty()) paths.emplace_back(path);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return paths;
}

// Heights to a millimetre: a switch of units rounds what stands in the boxes.
bool AreAlike(const Mast& a, const Mast& b) {
    constexpr double Unread = -1e6;
    return a.site.latitude == b.site.latitude && a.site.longitude == b.site.longitude &&
           std::fabs(a.antenna - b.antenna) < 0.001 &&
           std::fabs(a.ground.value_or(Unread) - b.ground.value_or(Unread)) < 0.001;
}

bool AreAlike(const HeightDefinition& a, const HeightDefinition& b) {
    return a.fromKm == b.fromKm && a.toKm == b.toKm && a.floor == b.floor;
}

void AddPath(TextBox& box, const std::string& path) {
    box.SetText(box.Text().empty() ? path : box.Text() + "; " + path);
}

}  // namespace

TerrainForm::TerrainForm(Platform& platform, Doors& doors)
    : Form(platform, "TerrainForm", "Terrain"),
      cmbDefinition(*this, "cmbDefinition", DefinitionItems()),
      lstAzimuths(*this, "lstAzimuths",
                  {{"Azimuth", 7, false, true},
                   {"Terrain", 8, false, true},
                   {"Eff. height", 9, false, true},
                   {ModelOf(ModelNumber::Itu529).name, 9, false, true},
                   {ModelOf(ModelNumber::Davidson).name, 9, false, true},
                   {ModelOf(ModelNumber::Cost231).name, 9, false, true},
                   {"Seen (%)", 7, false, true}}),
      doors_(doors) {
    SetHelpContextID(HelpTopic::Terrain);
    txtFiles.SetHoldsNumber(false);
    txtGround.SetToolTipText("Above sea level; empty: from the elevation data");
    txtFiles.SetToolTipText(
        "Files and folders of GeoTIFF, SRTM, DTED and others, separated by semicolons");
    cmdTake.SetToolTipText("Puts the effective height of the marked azimuth into the main window");
    cmdCopy.SetToolTipText("As text and as CSV");
    cmdSave.SetToolTipText("As GeoJSON, KML or CSV");
    WireEvents();
}

void TerrainForm::WireEvents() {
    const auto inputsChange = [this] { TellGround(); };
    for (TextBox* box : {&site.txtLatitude, &site.txtLongitude, &txtAntenna, &txtGround, &txtFiles,
                         &txtFrom, &txtTo, &txtAzimuths})
        box->Change = inputsChange;
    cmbDefinition.Click = inputsChange;
    wanted.OnChange([this] { BringUpToDate(); });
    area.OnChange([this] { BringUpToDate(); });
    cmdFile.Click = [this] {
        if (const auto path = GetPlatform().windows.AskOpenFile({.folder = {}, .filters = "*.*"}))
            AddPath(txtFiles, *path);
    };
    cmdFolder.Click = [this] {
        if (const auto path = GetPlatform().windows.AskFolder()) AddPath(txtFiles, *path);
    };
    cmdRead.Click = [this] { cmdRead_Click(); };
    cmdCancel.Click = [this] { cancelled_ = true; };
    lstAzimuths.SelectionChange = [this] { ShowAzimuth(lstAzimuths.Selected()); };
    lstAzimuths.DblClick = [this] { cmdTake_Click(); };
    map.Pick = [this] { ShowAzimuth(map.Marked()); };
    cmdTake.Click = [this] { cmdTake_Click(); };
    cmdAdd.Click = [this] {
        if (map.Table())
            doors_.FrmReport->AppendTable(ContourHead(*map.Table(), UnitsNow()) + "\r\n" +
                                          lblPath.Caption() + "\r\n" +
                                          AlignedText(ContourCells(*map.Table(), UnitsNow())));
    };
    cmdCopy.Click = [this] {
        if (!map.Table()) return;
        const Cells cells = ContourCells(*map.Table(), UnitsNow());
        GetPlatform().clipboard.SetText(TabbedText(cells), CsvText(cells));
    };
    cmdSave.Click = [this] { cmdSave_Click(); };
    area.cmdSaveArea.Click = [this] { cmdSaveArea_Click(); };
    cmdClose.Click = [this] { Unload(); };
}

void TerrainForm::Form_Load() { TakeSettings(); }

void TerrainForm::TakeSettings() {
    if (GetPlatform().settings.Read(GetPlatform().applicationTitle, Section, "Units") ==
        HeightUnit(Units::English))
        units_ = Units::English;
    TakeTexts(GetPlatform(), Section, Texts());
    if (site.txtLatitude.Text().empty() && site.txtLongitude.Text().empty() &&
        doors_.ReachForm.Loaded()) {
        site.txtLatitude.SetText(doors_.ReachForm->site.txtLatitude.Text());
        site.txtLongitude.SetText(doors_.ReachForm->site.txtLongitude.Text());
    }
    BringUpToDate();
}

void TerrainForm::Form_Unload() {
    cancelled_ = true;
    SaveSettings();
}

void TerrainForm::SaveSettings() {
    StoreTexts(GetPlatform(), Section, Texts());
    GetPlatform().settings.Write(GetPlatform().applicationTitle, Section, "Units",
                                 HeightUnit(units_));
}

StoredTexts TerrainForm::Texts() {
    StoredTexts texts = site.Texts();
    texts.insert(texts.end(), {{"Antenna", &txtAntenna},
                               {"Ground", &txtGround},
                               {"Files", &txtFiles},
                               {"From", &txtFrom},
                               {"To", &txtTo},
                               {"Azimuths", &txtAzimuths},
                               {"Definition", &cmbDefinition}});
    for (const StoredTexts& part : {wanted.Texts(), area.Texts()})
        texts.insert(texts.end(), part.begin(), part.end());
    return texts;
}

Units TerrainForm::UnitsNow() const {
    return doors_.MainForm.Loaded() && doors_.MainForm->mnuUnitsEnglish.Checked() ? Units::English
                                                                                  : Units::Metric;
}

std::optional<HeightDefinition> TerrainForm::ReadDefinition(std::string& problem) {
    const auto chosen = static_cast<std::size_t>(cmbDefinition.ListIndex());
    if (chosen < HeightDefinitions.size()) {
        for (TextBox* box : {&txtFrom, &txtTo}) MarkBox(*box, true, "");
        return HeightDefinitions.at(chosen);
    }
    const char* const rule = "The bounds are two distances from 0 to 300 km, the nearer first.";
    const auto from = ReadOrTell(txtFrom, 0.0, FarthestBound, rule, problem);
    const auto to = ReadOrTell(txtTo, 0.0, FarthestBound, rule, problem);
    if (!from || !to) return std::nullopt;
    if (!MarkBox(txtTo, *from < *to, rule)) {
        if (problem.empty()) problem = rule;
        return std::nullopt;
    }
    return OwnHeightDefinition(*from, *to);
}

// Boxes that are still empty are no mistakes, but nothing can be read without them.
std::optional<TerrainForm::Inputs> TerrainForm::ReadInputs(std::string& problem) {
    const auto place = site.Read(problem);
    const double metres = MetresPerHeight(UnitsNow());
    const auto antenna = ReadOrTell(txtAntenna, 0.1 / metres, TallestMast / metres,
                                    "The antenna is 0.1 to 2000 m above the ground.", problem);
    std::optional<double> ground;
    MarkBox(txtGround, true, "");
    if (!Trimmed(txtGround.Text()).empty()) {
        ground = ReadOrTell(txtGround, LowestGround / metres, HighestGround / metres,
                            "The ground is -500 to 9000 m above sea level.", problem);
        if (!ground) return std::nullopt;
    }
    const auto definition = ReadDefinition(problem);
    const char* const azimuthRule = "The azimuths are a whole number from 8 to 3600.";
    const auto azimuths = ReadOrTell(txtAzimuths, static_cast<double>(FewestAzimuths),
                                     static_cast<double>(MostAzimuths), azimuthRule, problem);
    const bool whole = !azimuths || std::floor(*azimuths) == *azimuths;
    if (!whole) {
        MarkBox(txtAzimuths, false, azimuthRule);
        if (problem.empty()) problem = azimuthRule;
    }
    Inputs inputs{};
    inputs.files = PathsOf(txtFiles.Text());
    if (!place || !antenna || !definition || !azimuths || !whole || inputs.files.empty())
        return std::nullopt;
    inputs.mast = {*place, *antenna * metres, std::nullopt};
    if (ground) inputs.mast.ground = *ground * metres;
    inputs.definition = *definition;
    inputs.azimuths = static_cast<std::size_t>(*azimuths);
    return inputs;
}

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
        if (!problem_.empty() && problem_.front() >= 'a' && problem_.front() <= 'z')
            problem_.front() = static_cast<char>(problem_.front() - 'a' + 'A');
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

// What is wrong, or whether the table is of the inputs.
void TerrainForm::TellGround() {
    const bool own =
        static_cast<std::size_t>(cmbDefinition.ListIndex()) >= HeightDefinitions.size();
    for (TextBox* box : {&txtFrom, &txtTo}) box->SetEnabled(own);
    std::string problem;
    const auto inputs = ReadInputs(problem);
    if (problem.empty()) problem = problem_;
    if (problem.empty() && inputs && heights_) {
        const EffectiveHeightTable& is = *heights_;
        const bool same = AreAlike(is.mast, inputs->mast) &&
                          AreAlike(is.definition, inputs->definition) &&
                          is.radials.size() == inputs->azimuths && openFiles_ == inputs->files;
        if (!same) problem = "The table is of earlier inputs: press Read Ground.";
    }
    lblProblem.SetCaption(problem);
    EnableButtons();
}

void TerrainForm::BringUpToDate() {
    if (!doors_.MainForm.Loaded()) return;
    ConvertBoxes(UnitsNow());
    TellGround();
    ShowContours();
}

void TerrainForm::ConvertBoxes(Units units) {
    for (Label* unit : {&lblAntennaUnit, &lblGroundUnit}) unit->SetCaption(HeightUnit(units));
    if (std::exchange(units_, units) == units) return;
    const double factor =
        MetresPerHeight(units == Units::English ? Units::Metric : Units::English) /
        MetresPerHeight(units);
    for (TextBox* box : {&txtAntenna, &txtGround})
        if (const auto number = WholeTextNumber(box->Text()))
            box->SetText(FormatNumber(*number * factor, "0.0###"));
}

void TerrainForm::ShowContours() {
    std::string problem;
    const auto goal = wanted.Read(problem);
    const auto path = doors_.MainForm->ReadPathQuietly();
    if (!path) problem = "A box of the main window has no number above zero.";
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

void TerrainForm::cmdTake_Click() {
    if (!cmdTake.Enabled()) return;
    const double metres = map.Table()->heights.radials.at(*map.Marked()).effectiveHeight;
    doors_.MainForm->txthb.SetText(FormatNumber(metres / MetresPerHeight(UnitsNow()), "0.0"));
    doors_.MainForm->txthb.LostFocus.Raise();
}

void TerrainForm::cmdSave_Click() {
    if (!map.Table()) return;
    const ContourTable table = *map.Table();
    SaveWithDialog(
        *this, "GeoJSON (*.geojson)|*.geojson|KML (*.kml)|*.kml|CSV (*.csv)|*.csv", 1,
        [&](const SaveChoice& choice) {
            const auto is = [&](const char* ending, int filter) {
                const bool named = std::ranges::any_of(
                    std::array{".geojson", ".kml", ".csv"},
                    [&](const char* known) { return choice.path.ends_with(known); });
                return named ? choice.path.ends_with(ending) : choice.filterIndex == filter;
            };
            ReplaceFile(choice.path, is(".csv", 3)   ? CsvText(ContourCells(table, UnitsNow()))
                                     : is(".kml", 2) ? ContourKml(table).value()
                                                     : ContourGeoJson(table).value());
        },
        "contours " + FormatNumber(table.heights.mast.site.latitude, "0.0####") + ' ' +
            FormatNumber(table.heights.mast.site.longitude, "0.0####") + ".geojson");
}

void TerrainForm::cmdSaveArea_Click() {
    if (!area.cmdSaveArea.Enabled()) return;
    const auto choice =
        AskWhereToSave(*this, {.folder = GetPlatform().programDirectory,
                               .filters = "GeoTIFF (*.tif)|*.tif|PNG picture (*.png)|*.png",
                               .name = "area.tif"});
    if (!choice) return;
    const bool isPicture = choice->path.ends_with(".png") ||
                           (choice->filterIndex == 2 && !choice->path.ends_with(".tif"));
    RunAtLength(
        [&] {
            area.Save(choice->path, isPicture, doors_.RasterModule,
                      [this](double done) { return GoesOn(done); });
        },
        "Saving was cancelled.");
}

}  // namespace vardel
