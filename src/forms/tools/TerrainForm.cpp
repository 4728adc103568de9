#include "forms/tools/TerrainForm.h"

#include "forms/Doors.h"
#include "forms/main/MainForm.h"
#include "forms/reports/FrmReport.h"
#include "forms/shared/SaveWithDialog.h"
#include "forms/tools/ReachForm.h"
#include "services/Files.h"
#include "services/Platform.h"
#include "terrain/ContourText.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

constexpr const char* Section = "Terrain";

std::vector<ComboBox::Item> DefinitionItems() {
    std::vector<ComboBox::Item> items;
    items.reserve(HeightDefinitions.size() + 1);
    for (const HeightDefinition& definition : HeightDefinitions)
        items.push_back({std::string(definition.name)});
    items.push_back({"own bounds"});
    return items;
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

void TerrainForm::BringUpToDate() {
    if (!doors_.MainForm.Loaded()) return;
    ConvertBoxes(UnitsNow());
    TellGround();
    ShowContours();
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
            const std::size_t kind = ChosenKind(choice, {".geojson", ".kml", ".csv"});
            ReplaceFile(choice.path, kind == 2   ? CsvText(ContourCells(table, UnitsNow()))
                                     : kind == 1 ? ContourKml(table).value()
                                                 : ContourGeoJson(table).value());
        },
        FileNameAround(table.heights.mast.site, "contours", ".geojson"));
}

void TerrainForm::cmdSaveArea_Click() {
    if (!area.cmdSaveArea.Enabled()) return;
    const auto choice =
        AskWhereToSave(*this, {.folder = GetPlatform().programDirectory,
                               .filters = "GeoTIFF (*.tif)|*.tif|PNG picture (*.png)|*.png",
                               .name = "area.tif"});
    if (!choice) return;
    const bool isPicture = ChosenKind(*choice, {".tif", ".png"}) == 1;
    RunAtLength(
        [&] {
            area.Save(choice->path, isPicture, doors_.RasterModule,
                      [this](double done) { return GoesOn(done); });
        },
        "Saving was cancelled.");
}

}  // namespace vardel
