#include <gmock/gmock.h>
#include <sys/resource.h>

#include <csignal>

#include "platform/Files.h"
#include "platform/Rtf.h"
#include "support/RunningProgram.h"

namespace vardel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr TextStyle HeaderStyle{.bold = true, .underline = true};

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

TEST_F(ReportLog, ColumnsOfTheDefaultLine) {
    Main().cmdLossCalc.Press();
    const std::string line = LastLine();
    const struct {
        std::size_t end;  // counted from 1
        const char* field;
    } fields[] = {{8, "10"},
                  {16, "450"},
                  {24, "100"},
                  {32, "1.5"},
                  {38, "Urban"},
                  {55, "Medium"},
                  {62, "143.13"},
                  {70, "140.42"},
                  {78, "143.13"},
                  {86, "49.31"},
                  {94, "49.3"},
                  {102, "52.01"},
                  {107, "50%"},
                  {111, "50%"},
                  {118, "Metric"},
                  {127, " 1000"},
                  {147, "03/09/2026 02:05 pm"}};
    for (const auto& [end, field] : fields) {
        const std::string expected = field;
        EXPECT_EQ(line.substr(end - expected.size(), expected.size()), expected);
    }
}

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

TEST_F(ReportLog, ClearingTheLogAndClearingTheWindowDiffer) {
    Main().cmdLossCalc.Press();
    Window().cmdClear.Press();
    EXPECT_EQ(Log().Text(), TheLog().Title() + "\r\n");
    EXPECT_EQ(Log().Content().Stretches(), (std::vector<RichText::Stretch>{{0, HeaderStyle}}));
    EXPECT_EQ(Log().InsertStyle(), TextStyle{});
    TheLog().Clear();
    EXPECT_EQ(Log().Text(), "");
}

TEST_F(ReportLog, ASessionSurvivesInItsFile) {
    Main().cmdLossCalc.Press();
    Main().cmbareatype.SetText("Open");
    Main().cmdLossCalc.Press();
    const RichText saved = Log().Content();
    Window().mnuFileClearLog.Pick();
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

TEST_F(ReportLog, AFailingSaveTellsAndLosesNothing) {
    ReplaceFile(Path("full.txt"), "old");
    for (const char* name : {"missing/log.txt", "full.txt"}) {
        // A limit that the log does not fit, as on a full disk.
        struct rlimit before {};
        getrlimit(RLIMIT_FSIZE, &before);
        const auto handler = std::signal(SIGXFSZ, SIG_IGN);
        const struct rlimit small { 16, before.rlim_max };
        setrlimit(RLIMIT_FSIZE, &small);
        SaveAs(name, 2);
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);

        ASSERT_FALSE(platform.messages.empty());
        const Message& told = platform.messages.back();
        EXPECT_EQ(told.text, "Error in saving file " + Path(name));
        EXPECT_EQ(told.title, "File Save");
        EXPECT_EQ(told.icon, Message::Icon::Critical);
        EXPECT_EQ(Window().MousePointer(), Form::Pointer::Normal);
    }
    EXPECT_EQ(*ReadWholeFile(Path("full.txt")), "old");
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

TEST_F(ReportLog, ClosingTheWindowHidesItAndKeepsTheText) {
    const std::string text = Log().Text();
    int shown = 0;
    platform.whileShown["FrmReport"] = [&] {
        EXPECT_TRUE(Window().Visible());
        ++shown == 1 ? Window().CloseByFrame() : Window().cmdClose.Press();
        EXPECT_FALSE(Window().Visible());
    };
    Main().mnuCalculationLog.Pick();
    Main().mnuCalculationLog.Pick();
    EXPECT_EQ(shown, 2);
    EXPECT_EQ(Log().Text(), text);
}

}  // namespace
}  // namespace vardel
