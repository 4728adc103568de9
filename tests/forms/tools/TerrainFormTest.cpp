#include "forms/tools/TerrainForm.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "services/Files.h"
#include "support/RunningProgram.h"
#include "terrain/RasterMosaic.h"

namespace vardel {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// Ground of 100 m with a plateau of 200 m in the east, from 6 to 8 degrees east. Seen from 7
// degrees the antenna, 50 m above ground of 150 m, is 100 m above the one and on a level with the
// other. The reaches are computed by hand from Hata's formula for 140 dB, 450 MHz, 1.5 m and 100 or
// 30 m.
class TerrainFormTest : public testing::Test, public RunningProgram {
protected:
    TerrainFormTest() {
        program.OpenElevations = [this](const std::vector<std::string>& paths) {
            opened.push_back(paths);
            if (paths.front() == "missing")
                throw ElevationError("install the package vardel-terrain");
            std::vector<float> metres(200 * 200, 100.0F);
            for (std::size_t i = 0; i < metres.size(); ++i)
                if (i % 200 >= 100) metres[i] = 200.0F;
            return ElevationsOfArray({200, 200, {6.0, 0.01, 0.0, 51.0, 0.0, -0.01}},
                                     std::move(metres));
        };
        Main().txtFreq.SetText("450");
        Main().txthb.SetText("77");
        Main().mnuToolsTerrain.Pick();
        Fill();
    }

    void Fill() {
        for (const auto& [box, text] :
             {std::pair(&Form().site.txtLatitude, "50 N"),
              std::pair(&Form().site.txtLongitude, "7"), std::pair(&Form().txtAntenna, "50"),
              std::pair(&Form().txtGround, "150"), std::pair(&Form().txtAzimuths, "8"),
              std::pair(&Form().txtFiles, "a.tif; b"), std::pair(&Form().wanted.txtWanted, "140")})
            box->SetText(text);
        Form().wanted.cmbWanted.SetText("Path loss");
    }
    TerrainForm& Form() { return *program.TerrainForm; }
    std::vector<std::string> Row(std::size_t i) { return Form().lstAzimuths.RowAt(i).cells; }

    std::vector<std::vector<std::string>> opened;
};

TEST_F(TerrainFormTest, ReadsHeightsAndFollowsTheMainForm) {
    EXPECT_EQ(Form().lstAzimuths.Count(), 0);
    EXPECT_FALSE(Form().cmdSave.Enabled());
    Form().cmdRead.Press();
    EXPECT_THAT(opened, ElementsAre(ElementsAre("a.tif", "b")));
    ASSERT_EQ(Form().lstAzimuths.Count(), 8) << Form().lblProblem.Caption();
    const auto west = Row(6), east = Row(2);
    EXPECT_THAT((std::vector(west.begin(), west.begin() + 4)),
                ElementsAre("270", "100.0", "100.0", "7.973"));
    EXPECT_THAT((std::vector(east.begin(), east.begin() + 4)),
                ElementsAre("90", "200.0", "30.0", "4.062"));
    EXPECT_EQ(west.back(), "100");
    EXPECT_THAT(Form().lstAzimuths.RowAt(2).remark,
                HasSubstr("0.0 m above average terrain counts as 30.0 m"));
    EXPECT_EQ(Form().map.Ground().metres.front(), 100.0F) << "the north-west";
    EXPECT_EQ(Form().map.Ground().metres.back(), 200.0F);

    Main().txtFreq.SetText("900");
    EXPECT_NE(Row(6)[3], "7.973") << "without reading";
    Main().mnuUnitsEnglish.Pick();
    Main().txtFreq.SetText("450");
    EXPECT_EQ(Form().txtAntenna.Text(), "164.042");
    EXPECT_EQ(Row(6)[2], "328.1");
    EXPECT_EQ(Row(6)[3], "4.954") << "miles";
    EXPECT_EQ(Form().lblProblem.Caption(), "");
    EXPECT_EQ(opened.size(), 1);
}

TEST_F(TerrainFormTest, AnAzimuthGoesIntoTheMainFormAndTheTableIntoTheLog) {
    Form().cmdRead.Press();
    Form().lstAzimuths.Select(6);
    EXPECT_EQ(Form().map.Marked(), 6U);
    Form().map.SetMarked(2);
    Form().map.Pick.Raise();
    EXPECT_EQ(Form().lstAzimuths.Selected(), 2U);
    Form().lstAzimuths.Select(6);
    Form().cmdTake.Press();
    EXPECT_EQ(Main().txthb.Text(), "100.0");
    Form().cmdAdd.Press();
    EXPECT_THAT(Log().Text(), HasSubstr("Antenna 50.0 m above ground at 50 7, ground 150.0 m"));
    EXPECT_THAT(Log().Text(),
                HasSubstr("\n270                    100.0                 100.0         7.973"));
    Form().cmdCopy.Press();
    EXPECT_THAT(platform.clipboardText, HasSubstr("\n270\t100.0\t100.0\t7.973\t"));
    platform.saveChoice = SaveChoice{platform.folder.Path("ring.kml"), 1};
    Form().cmdSave.Press();
    EXPECT_THAT(ReadWholeFile(platform.folder.Path("ring.kml")).value(), HasSubstr("<kml"));
}

TEST_F(TerrainFormTest, TellsWhatIsWrongAndKeepsTheTable) {
    Form().cmdRead.Press();
    const std::tuple<TextBox*, const char*, const char*> cases[] = {
        {&Form().site.txtLatitude, "91", "The site latitude must be from -90 to 90."},
        {&Form().txtAntenna, "0", "The antenna must be 0.1 to 2000 m above the ground."},
        {&Form().txtAzimuths, "7", "The number of azimuths must be a whole number from 8 to 3600."},
        {&Form().txtAzimuths, "8.5",
         "The number of azimuths must be a whole number from 8 to 3600."},
        {&Form().txtGround, "150 m", "The ground must be -500 to 9000 m above sea level."},
        {&Form().txtAntenna, "51", "The table is for earlier inputs: press Read Ground."},
    };
    for (const auto& [box, text, problem] : cases) {
        box->SetText(text);
        EXPECT_EQ(Form().lblProblem.Caption(), problem);
        Fill();
        EXPECT_EQ(Form().lblProblem.Caption(), "");
    }
    Form().cmbDefinition.SetText("own bounds");
    Form().txtTo.SetText("3");
    EXPECT_EQ(Form().lblProblem.Caption(),
              "The bounds must be two distances from 0 to 300 km, the nearer first.");
    Form().cmbDefinition.SetListIndex(0);
    Form().txtFiles.SetText("missing");
    Form().cmdRead.Press();
    EXPECT_EQ(Form().lblProblem.Caption(), "Install the package vardel-terrain.");
    Fill();
    Form().site.txtLongitude.SetText("40");
    Form().txtGround.SetText("");
    Form().cmdRead.Press();
    EXPECT_EQ(Form().lblProblem.Caption(),
              "The site 50 40 is outside the elevation data, or on a cell without data.");
    EXPECT_EQ(Form().lstAzimuths.Count(), 8);
}

TEST_F(TerrainFormTest, FilesAndFoldersGoBehindThoseThatAreThere) {
    platform.openChoice = "c.tif";
    Form().cmdFile.Press();
    platform.openChoice = "d";
    Form().cmdFolder.Press();
    EXPECT_EQ(Form().txtFiles.Text(), "a.tif; b; c.tif; d");
    Form().cmdRead.Press();
    EXPECT_THAT(opened, ElementsAre(ElementsAre("a.tif", "b", "c.tif", "d")));
    Form().txtFiles.SetText("");
    Form().cmdFile.Press();
    EXPECT_EQ(Form().txtFiles.Text(), "d");
}

TEST_F(TerrainFormTest, ReadingIsCancelledOrLeftAtAnyMoment) {
    platform.onYield = [this] { Form().cmdCancel.Press(); };
    Form().cmdRead.Press();
    EXPECT_EQ(Form().lstAzimuths.Count(), 0);
    EXPECT_EQ(Form().lblProblem.Caption(), "Reading was cancelled.");
    int yields = 0;
    platform.onYield = [&] {
        if (++yields == 20) Form().cmdCancel.Press();  // after the eight azimuths
    };
    Form().cmdRead.Press();
    EXPECT_EQ(Form().lstAzimuths.Count(), 8);
    EXPECT_EQ(Form().map.Ground().metres.front(), 100.0F);
    platform.onYield = [this] {
        if (program.TerrainForm.Loaded()) Form().cmdClose.Press();
    };
    Form().cmdRead.Press();
    EXPECT_FALSE(program.TerrainForm.Loaded());
    platform.onYield = nullptr;
    EXPECT_EQ(Form().txtFiles.Text(), "a.tif; b") << "as the window was left";
    EXPECT_EQ(Form().wanted.cmbWanted.Text(), "Path loss");
}

// By hand from Hata's formula for 450 MHz, 1.5 m and 100 m: 143.129 dB at 10 km, 140 dB up
// to 7.973.
TEST_F(TerrainFormTest, AnAreaLiesUnderTheContoursAndTellsWhatIsUnderThePointer) {
    Form().cmdRead.Press();
    EXPECT_TRUE(Form().map.Area().IsEmpty());
    EXPECT_FALSE(Form().area.cmdSaveArea.Enabled());
    Form().area.cmbArea.SetListIndex(1);
    Form().area.cmbArea.Click.Raise();
    const AreaPicture& area = Form().map.Area();
    ASSERT_EQ(area.pixels.size(), area.size * area.size);
    const auto atWest = [&](double km) {
        const double half = static_cast<double>(area.size) / 2.0;
        const auto column = static_cast<std::size_t>(half - km / area.radiusKm * half);
        return area.pixels[area.size / 2 * area.size + column];
    };
    const auto& wanted = std::ranges::find_if(area.steps, &CoverageColors::Step::isWanted);
    EXPECT_EQ(wanted->text, "up to 140");
    EXPECT_EQ(atWest(7.9), wanted->color);
    EXPECT_EQ(atWest(8.05), (wanted + 1)->color) << "what does not meet it";

    Form().map.SetPointed(PlaceAround{10.0, 270.0});
    Form().map.Point.Raise();
    EXPECT_THAT(
        Form().area.lblPointed.Caption(),
        HasSubstr(" E: 10.00 km at 270.0°, ground 100.0 m, effective height 100.0 m. ITU 529 "
                  "143.1 dB, "));
    EXPECT_THAT(Form().area.lblPointed.Caption(), HasSubstr("Cost 231 140.4 dB (out of range)"));
    // P.529 gives 49.305 dB(µV/m) by 1 kW, a receiver -80.96 dBm without gain.
    Form().wanted.cmbWanted.SetText("Received power");
    Form().wanted.txtWanted.SetText("-80");
    Form().wanted.txtGain.SetText("2");
    Form().wanted.txtCable.SetText("1");
    EXPECT_THAT(Form().area.lblPointed.Caption(), HasSubstr("ITU 529 -80.0 dBm, "));
    EXPECT_EQ(atWest(9.9),
              std::ranges::find_if(area.steps, &CoverageColors::Step::isWanted)->color);
    Form().map.SetPointed(std::nullopt);
    Form().map.Point.Raise();
    EXPECT_EQ(Form().area.lblPointed.Caption(), "");
    Form().wanted.txtWanted.SetText("x");
    EXPECT_TRUE(Form().map.Area().IsEmpty());
}

TEST_F(TerrainFormTest, AnAreaIsSavedWholeOrNotAtAll) {
    struct Writer : RasterWriter {
        void Write(std::size_t, int, int, const double*) override {}
        void Finish() override {}
    };
    static const ElevationModule module{
        ElevationModuleVersion,
        nullptr,
        nullptr,
        [](const std::string& file, const RasterLayout& layout) -> std::unique_ptr<RasterWriter> {
            EXPECT_EQ(layout.bands.size(), 7) << "values and marks of three models, and the height";
            EXPECT_EQ(layout.grid.toMap[1], 20.0) << "m, 1,700 times in 34 km";
            ReplaceFile(file, "a raster");
            return std::make_unique<Writer>();
        },
        [](const std::string&, const std::string& to, RasterFormat, unsigned) {
            ReplaceFile(to, "converted");
        },
        nullptr};
    program.RasterModule = [&]() -> const ElevationModule& { return module; };
    Form().cmdRead.Press();
    Form().area.cmbArea.SetListIndex(2);
    Form().area.cmbArea.Click.Raise();
    const std::string path = platform.folder.Path("area.tif");
    platform.saveChoice = SaveChoice{path, 1};
    platform.onYield = [this] { Form().cmdCancel.Press(); };
    Form().area.cmdSaveArea.Press();
    EXPECT_EQ(Form().lblProblem.Caption(), "Saving was cancelled.");
    EXPECT_FALSE(FileExists(path));
    platform.onYield = nullptr;
    Form().area.cmdSaveArea.Press();
    EXPECT_EQ(Form().lblProblem.Caption(), "");
    EXPECT_EQ(ReadWholeFile(path), "converted");
    program.RasterModule = []() -> const ElevationModule& {
        throw ElevationError("install the package vardel-terrain");
    };
    Form().area.cmdSaveArea.Press();
    EXPECT_EQ(Form().lblProblem.Caption(), "Install the package vardel-terrain.");
    EXPECT_EQ(ReadWholeFile(path), "converted");
}

}  // namespace
}  // namespace vardel
