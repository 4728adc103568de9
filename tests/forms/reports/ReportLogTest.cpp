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

TEST_F(ReportLog, ALineComesWholeBehindTheLogWhereverTheCaretIs) {
    Main().cmdLossCalc.Press();
    const std::string text = Log().Text();
    Log().Select({4, 30});
    Main().cmdLossCalc.Press();
    EXPECT_EQ(Log().Text(), text + LastLine() + "\r\n");
    TheLog().Add("a note without a line end");
    Main().cmdLossCalc.Press();
    EXPECT_EQ(LastLine().substr(0, 8), "      10");
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

}  // namespace
}  // namespace vardel
