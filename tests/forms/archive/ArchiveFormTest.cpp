#include <gmock/gmock.h>

#include <filesystem>

#include "forms/archive/ArchiveForm.h"
#include "forms/graphs/FrmOkumFieldStrength.h"
#include "forms/graphs/GraphForm.h"
#include "services/Files.h"
#include "support/RunningProgram.h"
#include "text/NumberText.h"

namespace vardel {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// Three runs: a loss at 450 MHz; in English units, a field strength of 25 W at 390 MHz in the
// suburbs; a loss at 900 MHz.
class ArchiveWindows : public testing::Test, public RunningProgram {
protected:
    ArchiveWindows() {
        std::filesystem::copy_file(EMPTY_ARCHIVE, archive);
        platform.openChoice = archive;
        platform.onQuestion = [] { return "first light"; };
        StoreLoss();
        platform.onQuestion = [] { return "Fire brigade"; };
        Main().txtFreq.SetText("390");
        Main().cmbareatype.SetText("Suburban");
        Main().cmbPowerUnit.SetText("W e.r.p.");
        Main().txtPowerUnit.SetText("25");
        Main().txtPowerUnit.LostFocus.Raise();
        Main().mnuUnitsEnglish.Pick();
        program.FrmOkumFieldStrength->cmdAddToArchive.SetVisible(true);
        program.FrmOkumFieldStrength->cmdAddToArchive.Press();
        Main().mnuUnitsMetric.Pick();
        program.GraphForm->Unload();
        Main().txtFreq.SetText("900");
        Main().cmbareatype.SetText("Urban");
        StoreLoss();
        Main().mnuToolsArchive.Pick();
    }

    void StoreLoss() {
        program.GraphForm->cmdArchiveData.SetVisible(true);
        program.GraphForm->cmdArchiveData.Press();
    }
    ArchiveForm& Form() { return *program.ArchiveForm; }
    std::vector<std::string> Column(std::size_t column) {
        std::vector<std::string> cells;
        for (std::size_t i = 0; i < Form().lstRuns.Count(); ++i)
            cells.push_back(Form().lstRuns.RowAt(i).cells.at(column));
        return cells;
    }
    std::vector<std::int64_t> Stored() {
        std::vector<std::int64_t> numbers;
        for (const RunRow& run : ArchiveReader(archive).Runs({}, 0, 9))
            numbers.push_back(run.number);
        return numbers;
    }

    std::string archive = platform.folder.Path("runs.mdb");
};

TEST_F(ArchiveWindows, RunsAreListedSortedAndFound) {
    EXPECT_EQ(program.GraphForm->lblStatus.Caption(), "Run 3 is stored in " + archive + '.');
    EXPECT_EQ(Form().lblFile.Caption(), archive + ": 3 runs");
    EXPECT_THAT(Column(0), ElementsAre("3", "2", "1"));
    Form().lstRuns.SetSort(2, false);
    EXPECT_THAT(Column(2), ElementsAre("Fire brigade", "Fire brigade", "first light"));
    Form().lstRuns.SetSort(3, false);
    EXPECT_THAT(Column(0), ElementsAre("1", "3", "2")) << "the last has its heights in feet";
    Form().txtSearch.SetText("FIRE suburban");
    EXPECT_THAT(Column(0), ElementsAre("2"));
    Form().lstRuns.Select(0);
    EXPECT_EQ(Form().CTWXRun.AllSeries().at(0).X.size(), 991U);
    EXPECT_EQ(Form().CTWXRun.Axis[1].Title, "dB (uv/m)");
    Form().txtSearch.SetText("nothing");
    EXPECT_THAT(Column(0), IsEmpty());
    EXPECT_FALSE(Form().cmdTake.Enabled());
    Form().txtSearch.SetText("");
    program.GraphForm->cmdArchiveData.Press();
    EXPECT_EQ(Form().lstRuns.Count(), 4U) << "a run that is stored meanwhile";
}

TEST_F(ArchiveWindows, InputsComeBackInTheUnitsAndThePowerOfTheRun) {
    Main().txtPowerUnit.SetText("99");
    Main().txtPowerUnit.LostFocus.Raise();
    Form().lstRuns.Select(1);
    Form().cmdTake.Press();
    EXPECT_EQ(Main().txtFreq.Text(), "390.0");
    EXPECT_EQ(Main().txthb.Text(), "100.0") << "328.084 ft";
    EXPECT_EQ(Main().cmbareatype.Text(), "Suburban");
    EXPECT_EQ(Trimmed(Main().txtPowerUnit.Text()), "25") << "not the .03kW of the parameters";
    Form().lstRuns.Select(0);
    Form().cmdTake.Press();
    EXPECT_EQ(Main().txtFreq.Text(), "900.0");
    EXPECT_THAT(Form().lblStatus.Caption(), HasSubstr("but for the power"));
    Database::OpenDatabase(archive).Change(
        {{"UPDATE ModelRun SET Parameters = replace(Parameters, 'frq:900', 'frq:901')", {}}});
    Main().mnuToolsArchive.Pick();
    Form().txtSearch.SetText("901");
    Form().lstRuns.Select(0);
    Form().cmdTake.Press();
    EXPECT_EQ(Main().txtFreq.Text(), "900.0") << "the curves say otherwise";
    EXPECT_THAT(Form().lblStatus.Caption(), HasSubstr("cannot be taken"));
}

TEST_F(ArchiveWindows, WhatIsDeletedGoesWithTheWindowAndComesBackBefore) {
    Form().lstRuns.Select(0);
    Form().cmdDelete.Press();
    Form().lstRuns.Select(2);
    Form().cmdDelete.Press();
    EXPECT_TRUE(Form().lstRuns.RowAt(0).struck);
    EXPECT_THAT(Stored(), ElementsAre(1, 2, 3));
    Form().cmdUndo.Press();
    platform.onQuestion = [] { return "better"; };
    Form().cmdComment.Press();
    EXPECT_EQ(Column(2).back(), "better");
    Form().Unload();
    EXPECT_THAT(Stored(), ElementsAre(1, 2));
    EXPECT_THROW(ArchiveReader(archive).Curves(3), ArchiveFault) << "with its curves";
}

TEST_F(ArchiveWindows, RunsLieOverGraphsOfTheirQuantity) {
    for (const std::size_t row : {0U, 1U, 2U}) {
        Form().lstRuns.Select(row);
        Form().cmdLay.Press();
    }
    EXPECT_EQ(Column(5).front(), "yes");
    const auto laid = [](PlotForm& form) {
        std::vector<std::string> names;
        for (const ChartSeries& series : form.GraphChart().AllSeries())
            if (series.Visible && series.LineStyle == 4) names.push_back(series.Curve);
        return names;
    };
    program.GraphForm->BringUpToDate();
    EXPECT_THAT(
        laid(*program.GraphForm),
        ElementsAre("Run 3: ITU 529 Urban", "Run 3: Davidson Urban", "Run 3: Cost 231 Urban",
                    "Run 1: ITU 529 Urban", "Run 1: Davidson Urban", "Run 1: Cost 231 Urban"));
    Main().mnuGraphCompare.Pick();
    EXPECT_EQ(laid(*program.FrmOkumFieldStrength).size(), 3U);
    StoreLoss();
    Form().lstRuns.Select(0);
    Form().cmdLay.Press();
    EXPECT_THAT(Form().lblStatus.Caption(), HasSubstr("Remove one of them first"));
    EXPECT_EQ(Column(5).front(), "");
    Form().lstRuns.Select(3);
    Form().cmdLay.Press();
    Form().lstRuns.Select(0);
    Form().Unload();
    program.GraphForm->BringUpToDate();
    EXPECT_THAT(laid(*program.GraphForm), IsEmpty());
}

TEST_F(ArchiveWindows, ARunIsSavedAndNewOnesGoToTheArchiveThatIsChosen) {
    platform.saveChoice = {platform.folder.Path("run.csv")};
    Form().lstRuns.Select(0);
    Form().cmdSave.Press();
    const std::string csv = ReadWholeFile(platform.folder.Path("run.csv")).value();
    EXPECT_THAT(csv, HasSubstr("\r\ndistance_km,ITU 529 Urban,Davidson Urban,Cost 231 Urban\r\n"));
    EXPECT_EQ(std::count(csv.begin(), csv.end(), '\n'), 995) << "4 lines and 991 points";
    const std::string other = platform.folder.Path("other.mdb");
    std::filesystem::copy_file(archive, other);
    platform.openChoice = other;
    Form().cmdOpen.Press();
    Form().cmdStoreHere.Press();
    EXPECT_FALSE(Form().cmdStoreHere.Enabled());
    StoreLoss();
    EXPECT_EQ(Form().lstRuns.Count(), 4U);
    EXPECT_EQ(Stored().size(), 3U);
}

TEST_F(ArchiveWindows, FaultsAreToldInTheWindow) {
    const std::string other = platform.folder.Path("other.mdb");
    ReplaceFile(other, "no database");
    platform.openChoice = other;
    Form().cmdOpen.Press();
    EXPECT_THAT(Form().lblStatus.Caption(), HasSubstr("cannot be read"));
    EXPECT_EQ(Form().lstRuns.Count(), 0U);
    platform.openChoice = archive;
    Database::OpenDatabase(archive).Change(
        {{"UPDATE DataSets SET DataSet = x'00' WHERE ID = 1", {}},
         {"DELETE FROM DataSets WHERE ID = 2 AND Legend LIKE 'Cost%'", {}}});
    std::filesystem::permissions(archive, std::filesystem::perms::owner_read);
    Form().cmdOpen.Press();
    EXPECT_THAT(Form().lblFile.Caption(), HasSubstr("(read only)"));
    EXPECT_TRUE(Form().lstRuns.RowAt(1).marked);
    Form().lstRuns.Select(2);
    EXPECT_THAT(Form().lblStatus.Caption(), HasSubstr("damaged"));
    EXPECT_FALSE(Form().cmdDelete.Enabled());
    EXPECT_THAT(platform.TakeMessages(), IsEmpty());
}

}  // namespace
}  // namespace vardel
