#include <gmock/gmock.h>

#include "richtext/Rtf.h"
#include "services/Files.h"
#include "support/RunningProgram.h"

namespace vardel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ReportLog : public testing::Test, public RunningProgram {
protected:
    RLogClass& TheLog() { return program.ReportLog(); }
    FrmReport& Window() { return *program.FrmReport; }
    std::string Path(const std::string& name) { return platform.folder.Path(name); }
    void SaveAs(const std::string& name, int filterIndex) {
        platform.saveChoice = SaveChoice{Path(name), filterIndex};
        Window().cmdFile.Press();
    }
};

TEST_F(ReportLog, AddGoesInAtTheCaretInPlaceOfTheSelection) {
    TheLog().Clear();
    TheLog().Add("one two three");
    Log().Select({4, 3});
    TheLog().SetItalic(true);
    TheLog().Add("2");
    TheLog().SetItalic(false);
    TheLog().AddLine(" four");
    TheLog().AddLine();
    EXPECT_EQ(Log().Text(), "one 2 three four\r\n\r\n");
    EXPECT_EQ(Log().Content().Stretches(),
              (std::vector<RichText::Stretch>{{0, {}}, {4, {.italic = true}}, {5, {}}}));
    EXPECT_EQ(Log().Selected().start, Log().Text().size());
}

TEST_F(ReportLog, ALineOrAListingGoesWholeWhereTheCaretIsInPlaceOfTheSelection) {
    Main().cmdLossCalc.Press();
    const std::string line = LastLine() + "\r\n";
    TheLog().Clear();
    TheLog().Add("before, between, after");
    Log().Select({8, 7});
    Main().cmdLossCalc.Press();
    EXPECT_EQ(Log().Text(), "before, " + line + ", after");
    EXPECT_THAT(Main().lblStatus.Caption(), testing::HasSubstr("Ctrl+Z there brings it back"));
    Main().cmdLossCalc.Press();
    EXPECT_EQ(Log().Text(), "before, " + line + ", after" + line) << "at the end from then on";
    EXPECT_EQ(Main().lblStatus.Caption(), "");

    TheLog().Clear();
    TheLog().Add("<>");
    Log().Select({1, 0});
    Main().lblFieldStrength.DblClick.Raise();
    EXPECT_THAT(Log().Text(), testing::StartsWith("<\r\nTable Segments: 1\r\n0> Freq:-1"));
    EXPECT_THAT(Log().Text(), testing::EndsWith("\r\n>"));
    EXPECT_EQ(Log().Selected().start, Log().Text().size());
}

TEST_F(ReportLog, ASessionSurvivesInItsFile) {
    Main().cmdLossCalc.Press();
    Main().cmbareatype.SetText("Open");
    Main().cmdLossCalc.Press();
    const RichText saved = Log().Content();
    Window().mnuFileClearLog.Pick();
    EXPECT_THAT(Log().Text(), testing::EndsWith("T%  L% Units    Watts    Date      Time\r\n"));
    EXPECT_EQ(Log().Content().Stretches().at(0).style, (TextStyle{true, false, true}));
    Main().cmdLossCalc.Press();
    EXPECT_NE(*ReadRtf(*ReadWholeFile(program.TempLogFile)), saved);

    ReplaceFile(Path("old.rtf"), WriteRtf(saved));
    EXPECT_TRUE(TheLog().ReadFile(Path("old.rtf")));
    EXPECT_EQ(Log().Content(), saved);
    EXPECT_EQ(Log().Selected().start, Log().Text().size());
    Main().cmdLossCalc.Press();
    EXPECT_EQ(*ReadRtf(*ReadWholeFile(program.TempLogFile)), Log().Content());

    ReplaceFile(Path("foreign"), "no rich text");
    const std::string before = Log().Text();
    EXPECT_FALSE(TheLog().ReadFile(Path("foreign")));
    EXPECT_FALSE(TheLog().ReadFile(Path("missing")));
    EXPECT_EQ(Log().Text(), before);
    ReplaceFile(Path("empty"), "");
    EXPECT_TRUE(TheLog().ReadFile(Path("empty")));
    EXPECT_EQ(Log().Text(), "");
}

TEST_F(ReportLog, TheFilterDecidesTheFormatWhateverTheName) {
    TheLog().Clear();
    TheLog().Add("text");
    Log().InsertPicture({"png", 10, 10});
    SaveAs("plain.rtf", 1);
    EXPECT_EQ(*ReadWholeFile(Path("plain.rtf")), "text\r\n");
    SaveAs("plain.txt", 2);
    EXPECT_EQ(*ReadWholeFile(Path("plain.txt")), "text\r\n");
    SaveAs("rich.txt", 3);
    EXPECT_EQ(*ReadRtf(*ReadWholeFile(Path("rich.txt"))), Log().Content());
    ASSERT_EQ(platform.saveDialogs.size(), 3U);
    EXPECT_EQ(platform.saveDialogs[0].folder, platform.folder.Path());
    EXPECT_EQ(platform.saveDialogs[0].filterIndex, 2);
    EXPECT_THAT(platform.TakeMessages(), IsEmpty());
}

TEST_F(ReportLog, OverwritingIsAskedFor) {
    SaveAs("log.txt", 2);
    const auto first = ReadWholeFile(Path("log.txt"));
    Main().cmdLossCalc.Press();
    platform.answers.push(Answer::No);
    SaveAs("log.txt", 2);
    EXPECT_EQ(ReadWholeFile(Path("log.txt")), first);
    EXPECT_THAT(platform.TakeMessages(), ElementsAre("File already exits.  Overwrite It?"));
    Window().mnuFileSaveAs.Pick();
    EXPECT_EQ(*ReadWholeFile(Path("log.txt")), Log().Text() + "\r\n");

    platform.saveChoice.reset();
    platform.messages.clear();
    Window().cmdFile.Press();
    EXPECT_THAT(platform.TakeMessages(), IsEmpty());
}

TEST_F(ReportLog, PastesAPictureElseTextAlsoIntoALockedBox) {
    TheLog().Clear();
    Log().SetLocked(true);
    platform.picture = Picture{"png", 100, 50};
    TheLog().PasteClipboard();
    platform.picture.reset();
    platform.clipboardText = "words";
    TheLog().PasteClipboard();
    EXPECT_EQ(Log().Text(), std::string(RichText::PictureMark) + "words");
    ASSERT_EQ(Log().Content().Pictures().size(), 1U);
    EXPECT_TRUE(Log().Locked());
}

// The hundred metres and ten km of this path are 328.08 ft and, in a distance range report, ten
// "miles"; at ten miles the losses are 31.8 lg 1.6093 = 6.57 dB larger.
TEST_F(ReportLog, TakesALinesInputsBackAndTellsWhatMayNotBeThem) {
    struct Case {
        const char* line;
        const char* distance;
        const char* frequency;
        const char* hb;
        const char* area;
        const char* told;
    };
    for (const Case& c : std::initializer_list<Case>{
             {" 10 450 100 1.5 Urban Small/Medium 143.13 140.42 143.13 49.31 49.3 52.01 50% 50% "
              "Metric 1000 11/25/2026 03:33 pm typed behind",
              "10.0", "450.0", "100.0", "Urban", "They give the results of the line."},
             {" 10 453.8 100 1.5 Open 115.47 112.8 115.47 77.07 77.04 79.72 50% 50% Metric 1000 "
              "11/25/2026 03:33 pm",
              "10.0", "453.8", "100.0", "Open",
              "frequency to 0.1 MHz, percentages to 1, power to "},
             {" 10 450 328.08 4.92 Urban Small/Medium 143.13 140.42 143.13 49.31 49.3 52.01 50% "
              "50% Enlish 1000 11/25/2026 03:33 pm",
              "10.0", "450.0", "99.9988", "Urban", ", converted from miles and feet."},
             {" 10 450 328.08 4.92 Urban Small/Medium1149.70 146.99 149.70 42.74 42.73 45.44 50% "
              "50% Enlish 1000 11/25/2026 03:33 pm",
              "1.0", "450.0", "99.9988", "Urban", ", but for the distance, which may be in"},
             {" 10 450 328.08 4.92 Urban Small/Medium 149.70 146.99 149.70 42.74 42.73 45.44 50% "
              "50% Enlish 1000 11/25/2026 03:33 pm",
              "16.093", "450.0", "99.9988", "Urban", "The log rounds: distance"},
             {"10 450 100 1.5 Urban would be a path", "1.0", "900.0", "50.0", "Suburban",
              "not on the line of a calculation"}}) {
        Main().txtDist.SetText("1.0");
        Main().txtFreq.SetText("900.0");
        Main().txthb.SetText("50.0");
        Main().cmbareatype.SetText("Suburban");
        TheLog().Clear();
        TheLog().AddLine(c.line);
        TheLog().AddLine("below");
        Log().Select({Log().Text().size() - 20, 0});
        Window().mnuEditTake.Pick();
        EXPECT_EQ(Main().txtDist.Text(), c.distance) << c.line;
        EXPECT_EQ(Main().txtFreq.Text(), c.frequency) << c.line;
        EXPECT_EQ(Main().txthb.Text(), c.hb) << c.line;
        EXPECT_EQ(Main().cmbareatype.Text(), c.area) << c.line;
        EXPECT_THAT(Window().lblStatus.Caption(), testing::HasSubstr(c.told));
    }
}

TEST_F(ReportLog, IsSavedAsATableWithItsFlagsAndNotes) {
    Main().cmdLossCalc.Press();
    Log().Select({Log().Text().size() - 2, 0});
    TheLog().Add(" a hill, \"steep\"");
    TheLog().AddLine("note\n");
    Log().InsertPicture({"png", 10, 10});
    platform.saveChoice = SaveChoice{Path("log.csv"), 1};
    Window().mnuEditSaveCsv.Pick();
    const std::string csv = *ReadWholeFile(Path("log.csv"));
    EXPECT_EQ(csv.substr(csv.find("\r\n") + 2),
              "calculation,2026-03-09T14:05,Metric,10,450,100,1.5,Urban,Small/Medium,50,50,1000,"
              "143.13,140.42,143.13,49.31,49.3,52.01,yes,no,yes,\"a hill, \"\"steep\"\"\"\r\n"
              "note,,,,,,,,,,,,,,,,,,,,,note\r\n");
    EXPECT_EQ(std::ranges::count(csv.substr(0, csv.find("\r\n")), ','), 21);
}

TEST_F(ReportLog, ASearchGoesRoundTheLogInEitherDirection) {
    TheLog().Clear();
    TheLog().Add("Urban one\nurban two\nthree");
    Window().mnuEditFind.Pick();
    Window().txtFind.SetText("URBAN");
    std::vector<std::size_t> found{Log().Selected().start};
    for (MenuItem* search : {&Window().mnuEditFindNext, &Window().mnuEditFindNext,
                             &Window().mnuEditFindPrevious, &Window().mnuEditFindPrevious}) {
        search->Pick();
        found.push_back(Log().Selected().start);
    }
    EXPECT_THAT(found, ElementsAre(0, 11, 0, 11, 0));
    Window().txtFind.SetText("urbane");
    EXPECT_EQ(Log().Selected().start, 0U);
    EXPECT_EQ(Window().lblStatus.Caption(), "The log does not hold \"urbane\".");
}

}  // namespace
}  // namespace vardel
