#include <gmock/gmock.h>

#include <chrono>
#include <filesystem>
#include <memory>

#include "richtext/Rtf.h"
#include "services/Files.h"
#include "support/RunningProgram.h"

namespace vardel {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string Own = "Vardel/Loss_FieldStrength/";
const std::string Host = "Ostrel_Quorne/Global Parameters/";

// Starts and exits that share a store and a state folder.
class StartAndExit : public testing::Test {
protected:
    void Start() {
        platform.messages.clear();
        platform.ended = false;
        program = std::make_unique<Program>(platform.Services());
        program->Start();
    }
    void Exit(Answer retain) {
        platform.answers.push(Answer::Ok);
        platform.answers.push(retain);
        program->MainForm->mnuFileExit.Pick();
        EXPECT_TRUE(platform.ended);
        program.reset();
    }
    MainForm& Main() { return *program->MainForm; }
    std::string Log() { return program->FrmReport->rtbLog.Text(); }
    std::string Header() { return program->ReportLog().Title() + "\r\n"; }

    FakePlatform platform;
    std::unique_ptr<Program> program;
};

TEST_F(StartAndExit, AFirstStart) {
    Start();
    EXPECT_THAT(platform.TakeMessages(),
                ElementsAre("Warning: Cannot find file " + platform.folder.Path("measured.csv")));
    EXPECT_EQ(Main().txtFreq.Text() + ' ' + Main().txtPctTime.Text(), "450.0 50");
    EXPECT_EQ(Log(), Header());
    EXPECT_THAT(platform.writes, IsEmpty());
    EXPECT_EQ(program->MeasuredTable.at(0).Frequency, -1);
    EXPECT_EQ(platform.helpFile, platform.folder.Path("Palvern.HLP"));
    EXPECT_TRUE(FileExists(program->TempLogFile));
    Main().mnuHelpVardel.Pick();
    EXPECT_THAT(platform.opened, ElementsAre(platform.folder.Path("Vardel.chm")));
}

TEST_F(StartAndExit, ASecondStartGoesOnWhereARetainedOneEnded) {
    Start();
    Main().txtFreq.SetText("900");
    Main().txtPctLoc.SetText("12.5");
    Main().cmbareatype.SetText("Suburban");
    Main().cmdLossCalc.Press();
    const std::string log = Log();
    const std::string file = program->TempLogFile;
    Exit(Answer::Yes);
    EXPECT_THAT(platform.writes,
                ElementsAre("Units", "TempLogName", "AreaType", "CitySize", "PCTTIME", "PCTLOC",
                            "Dist", "Freq", "HB", "HM", "Paths"))
        << "last the path that was calculated";
    EXPECT_THAT(platform.helpFile, IsEmpty());

    Start();
    EXPECT_EQ(Main().txtFreq.Text(), "900");
    EXPECT_EQ(Main().txtPctLoc.Text(), "12.5");
    EXPECT_EQ(Main().cmbareatype.Text(), "Suburban");
    EXPECT_FALSE(Main().cmbcitysize.Enabled());
    EXPECT_EQ(Log(), log);
    EXPECT_EQ(program->TempLogFile, file);
    Exit(Answer::No);
    EXPECT_FALSE(FileExists(file));

    Start();
    EXPECT_EQ(Log(), Header());
    EXPECT_NE(program->TempLogFile, file);
    std::filesystem::remove(program->TempLogFile);
    Exit(Answer::No);  // a file that has gone is no error
    EXPECT_EQ(platform.store[Own + "TempLogName"], "");
}

TEST_F(StartAndExit, ALogRetainedWithoutARunComesBackEmpty) {
    Start();
    Exit(Answer::Yes);
    Start();
    EXPECT_EQ(Log(), "");
}

TEST_F(StartAndExit, WhatCameIntoTheLogBehindItsLastRunIsRetainedToo) {
    Start();
    Main().cmdLossCalc.Press();
    program->ReportLog().AddLine("a note");
    const std::string log = Log();
    Exit(Answer::Yes);
    Start();
    EXPECT_EQ(Log(), log);

    program->ReportLog().AddLine("a second");
    const std::string longer = Log();
    std::filesystem::remove(program->TempLogFile);
    std::filesystem::create_directory(program->TempLogFile);  // cannot be written any more
    platform.TakeMessages();
    platform.saveChoice = {platform.folder.Path("elsewhere.txt"), 2};
    Exit(Answer::Yes);
    EXPECT_THAT(platform.TakeMessages(), Contains(HasSubstr("cannot be kept")));
    EXPECT_EQ(ReadWholeFile(platform.folder.Path("elsewhere.txt")), longer + "\r\n");
}

TEST_F(StartAndExit, ALogWithoutAFileIsToldAndSavedElsewhere) {
    ReplaceFile(platform.folder.Path("state"), "a file in the folder's place");
    Start();
    EXPECT_THAT(platform.TakeMessages(), Contains(HasSubstr("cannot be kept")));
    Main().cmdLossCalc.Press();
    platform.saveChoice = {platform.folder.Path("missing/elsewhere.rtf"), 3};
    platform.onMessage = [this](const Message& message) {
        if (message.text.starts_with("Error in saving"))
            platform.saveChoice->path = platform.folder.Path("elsewhere.rtf");
    };
    platform.failingStore = "Vardel";
    const RichText log = program->FrmReport->rtbLog.Content();
    Exit(Answer::Yes);
    EXPECT_EQ(ReadRtf(*ReadWholeFile(platform.folder.Path("elsewhere.rtf"))), log);
    EXPECT_THAT(platform.TakeMessages().back(),
                HasSubstr("settings cannot be saved in Vardel.ini: the next start"));
}

TEST_F(StartAndExit, EnglishUnitsComeBackWithTheirNumbers) {
    Start();
    Main().mnuUnitsEnglish.Pick();
    Exit(Answer::No);
    Start();
    EXPECT_TRUE(Main().mnuUnitsEnglish.Checked());
    EXPECT_FALSE(Main().mnuUnitsMetric.Checked());
    EXPECT_EQ(Main().txthb.Text() + Main().Label10.Caption(), "328.084ft");
    EXPECT_EQ(Main().txtDist.Text() + Main().Label12.Caption(), "6.2139miles");
    Main().mnuUnitsMetric.Pick();
    EXPECT_EQ(Main().txthb.Text(), "100.0");

    platform.store[Own + "Units"] = "english";
    platform.store[Own + "AreaType"] = "Moon";
    Start();
    EXPECT_TRUE(Main().mnuUnitsMetric.Checked());
    EXPECT_EQ(Main().cmbareatype.Text(), "Urban");
}

TEST_F(StartAndExit, TheHostRoundTrip) {
    platform.store[Host + "CalledFromQuorne"] = "True";
    platform.store[Host + "PctTime_pct"] = "0.07";
    platform.store[Host + "TxHt_m"] = "120.50";
    platform.store[Host + "TxFreq_MHz"] = "900";
    platform.store[Host + "Dist_Km"] = "far";
    platform.store[Host + "GrndDiel"] = "wet";
    platform.store[Own + "Freq"] = "150";
    Start();
    EXPECT_EQ(platform.store[Host + "CalledFromQuorne"], "False");
    EXPECT_EQ(platform.store[Host + "GrndCond_Sm"], "0.005");
    EXPECT_EQ(platform.store[Host + "TxLonDeg_DDD"], "   ");
    EXPECT_EQ(platform.store[Host + "GrndDiel"], "wet") << "what does not fit is not lost";
    EXPECT_EQ(Main().txtPctTime.Text() + ' ' + Main().txtPctLoc.Text(), "7 50");
    EXPECT_EQ(Main().txthb.Text() + ' ' + Main().txthm.Text(), "120.5 0");
    EXPECT_EQ(Main().txtDist.Text() + ' ' + Main().txtFreq.Text(), "1 900");

    Main().mnuUnitsEnglish.Pick();
    Main().txthb.SetText("100");
    Main().txtDist.SetText("10");
    Main().txtPctLoc.SetText("90");
    Main().txtFreq.SetText("9oo");
    platform.failingStore = "Ostrel_Quorne";
    Exit(Answer::No);
    EXPECT_THAT(platform.TakeMessages().back(), HasSubstr("saved in Ostrel_Quorne.ini: the host"));
    EXPECT_EQ(platform.store[Host + "TxHt_m"], "30.48");
    EXPECT_EQ(platform.store[Host + "Dist_Km"], "16.093");
    EXPECT_EQ(platform.store[Host + "PctLoc_pct"], "0.9");
    EXPECT_EQ(platform.store[Host + "TxFreq_MHz"], "900") << "no number leaves the old value";
    EXPECT_EQ(platform.store[Host + "GrndDiel"], "wet");
    EXPECT_EQ(platform.store[Own + "Units"], "English");

    platform.store[Host + "CalledFromQuorne"] = "True";
    platform.store[Host + "TxHt_m"] = "100";
    platform.store[Host + "RxHt_m"] = "1.5";
    Start();
    EXPECT_EQ(Main().txthb.Text(), "328.084") << "the host's metres in the user's units";
}

TEST_F(StartAndExit, AKilledProgramsLogIsTakenUpAndAnUnreadableOneSetAside) {
    Start();
    Main().cmdLossCalc.Press();
    const std::string log = Log();
    for (const char* name : {"state/logbad.rtf", "state/unreadable-logbad.rtf"})
        ReplaceFile(platform.folder.Path(name), "no rich text");
    for (const bool told : {true, false}) {
        program.reset();  // no exit, nothing in the store
        Start();
        EXPECT_EQ(Log(), log);
        EXPECT_EQ(platform.TakeMessages().size(), told ? 2U : 1U) << "one is of measured data";
    }
    EXPECT_EQ(ReadWholeFile(platform.folder.Path("state/unreadable-1-logbad.rtf")), "no rich text");
    const std::string file = program->TempLogFile;
    // A second program at the same time has a log of its own, also when the store names that file.
    platform.store[Own + "TempLogName"] = file;
    Program second(platform.Services());
    second.Start();
    EXPECT_NE(second.TempLogFile, file);
    EXPECT_EQ(second.FrmReport->rtbLog.Text(), Header());
}

TEST_F(StartAndExit, OfSeveralKilledProgramsLogsTheYoungestIsTakenUp) {
    const std::string state = platform.folder.Path("state/");
    std::filesystem::create_directory(state);
    for (const auto& [name, minutes] : {std::pair("loga", 2), {"logb", 1}, {"logc", 3}}) {
        const std::string file = state + name + ".rtf";
        ReplaceFile(file, std::string("{\\rtf1 of ") + name + '}');
        std::filesystem::last_write_time(
            file, std::filesystem::file_time_type::clock::now() - std::chrono::minutes(minutes));
    }
    ReplaceFile(state + "logd.rtf", "");  // the youngest, but nothing was saved to it
    Start();
    EXPECT_EQ(Log(), "of logb");
    EXPECT_FALSE(FileExists(state + "logd.rtf"));
    Program second(platform.Services());
    second.Start();
    EXPECT_EQ(second.FrmReport->rtbLog.Text(), "of loga");
}

TEST_F(StartAndExit, TheEndOfTheSessionSavesWithoutAQuestion) {
    Start();
    Main().cmdLossCalc.Press();
    Main().txthm.SetText("3");
    const std::string log = Log();
    platform.messages.clear();
    program->EndSession();
    EXPECT_THAT(platform.messages, IsEmpty());
    program.reset();
    Start();
    EXPECT_EQ(Log(), log);
    EXPECT_EQ(Main().txthm.Text(), "3");

    // A question that is open then goes away without the user's answer.
    platform.onMessage = [this](const Message& message) {
        if (message.text.starts_with("Retain")) program->EndSession();
    };
    Exit(Answer::No);
    platform.onMessage = nullptr;
    Start();
    EXPECT_EQ(Log(), log);
}

TEST_F(StartAndExit, ASessionThatEndsDuringTheStartChangesNothing) {
    Start();
    Main().mnuUnitsEnglish.Pick();
    Main().cmdLossCalc.Press();
    Exit(Answer::Yes);
    const auto store = platform.store;
    platform.onYield = [this] { program->EndSession(); };
    Start();
    EXPECT_EQ(platform.store, store);
}

TEST_F(StartAndExit, MeasuredTablesAreReadAndListed) {
    ReplaceFile(platform.folder.Path("measured.csv"), "0,450,0.5,Urban,1.5,1,100\n10,49.5\n");
    Start();
    EXPECT_THAT(platform.TakeMessages(), IsEmpty());
    Main().lblFieldStrength.DblClick.Raise();
    EXPECT_THAT(Log(), HasSubstr("Table Segments: 1\r\n0> Freq:450  %:0.5 City: Urban hm: 1.5 "));
    EXPECT_THAT(Log(), HasSubstr("     10: 49.5 \r\n"));
}

}  // namespace
}  // namespace vardel
