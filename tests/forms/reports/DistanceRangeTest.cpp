#include <gmock/gmock.h>

#include <algorithm>
#include <utility>

#include "forms/reports/frmLogDistRange.h"
#include "richtext/Rtf.h"
#include "services/Files.h"
#include "support/RunningProgram.h"
#include "text/NumberText.h"

namespace vardel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DistanceRange : public testing::Test, public RunningProgram {
protected:
    frmLogDistRange& Range() { return *program.frmLogDistRange; }
    void Enter(const char* start, const char* end, const char* step) {
        Range().txtStart.SetText(start);
        Range().txtEnd.SetText(end);
        Range().txtStep.SetText(step);
    }
    std::string Boxes() {
        return Range().txtStart.Text() + ' ' + Range().txtEnd.Text() + ' ' + Range().txtStep.Text();
    }
    // The distances of the log's lines.
    std::vector<std::string> Distances() {
        std::vector<std::string> distances;
        const std::string& text = Log().Text();
        for (std::size_t at = 0; at < text.size(); at = text.find('\n', at) + 1)
            distances.push_back(
                text.substr(at, std::min<std::size_t>(8, text.find('\r', at) - at)));
        return distances;
    }
    RichText SavedLog() {
        const auto file = ReadWholeFile(program.TempLogFile);
        return file && !file->empty() ? *ReadRtf(*file) : RichText();
    }
    // Does this at the yield before the line of this number, counted from 0.
    void AtYield(int number, std::function<void()> action) {
        platform.onYield = [this, number, action] {
            if (platform.yields == number + 1) action();
        };
    }
};

TEST_F(DistanceRange, EachLineIsThatOfASingleCalculation) {
    const struct {
        const char* frequency;
        const char* hb;
        const char* area;
        const char* city;
        const char* percentLocations;
    } cases[] = {{"900", "50", "Urban", "Large", "90"},
                 {"1800", "250", "Suburban", "Small/Medium", "50"},
                 {"100", "25", "Open", "Small/Medium", "7.5"}};
    for (const auto& c : cases) {
        Main().txtFreq.SetText(c.frequency);
        Main().txthb.SetText(c.hb);
        Main().cmbareatype.SetText(c.area);
        Main().cmbcitysize.SetText(c.city);
        Main().txtPctLoc.SetText(c.percentLocations);
        program.ReportLog().Clear();
        // Six hundred savings would only take their time.
        const std::string file = std::exchange(program.TempLogFile, {});
        for (double d = 0.5; d <= 300.0; d += 0.5) {
            Main().txtDist.SetText(ShortestText(d));
            Main().cmdLossCalc.Press();
        }
        program.ReportLog().Add("\r\n");
        program.TempLogFile = file;
        const RichText singles = Log().Content();
        Main().txtDist.SetText("no number, and not read");
        Enter("0.5", "300", "0.5");
        Range().cmdLogDistRange.Press();
        EXPECT_FALSE(program.frmLogDistRange.Loaded());
        EXPECT_EQ(Log().Content(), singles) << c.frequency;
        EXPECT_EQ(SavedLog(), singles);
    }
    EXPECT_THAT(platform.TakeMessages(), IsEmpty());
}

TEST_F(DistanceRange, DistancesAreKilometresUnderEnglishUnitsToo) {
    Enter("10", "10", "1");
    Range().cmdLogDistRange.Press();
    const std::string metric = Distances()[0] + Log().Text().substr(55, 48);
    Main().mnuUnitsEnglish.Pick();
    Main().txthb.SetText("328.083989501");  // 100 m
    Main().txthm.SetText("4.92125984252");  // 1.5 m
    Enter("10", "10", "1");
    Range().cmdLogDistRange.Press();
    EXPECT_EQ(Distances()[0] + Log().Text().substr(55, 48), metric);
    EXPECT_EQ(Log().Text().substr(16, 16), "  328.08    4.92");
    EXPECT_EQ(Log().Text().substr(112, 6), "Enlish");
}

TEST_F(DistanceRange, DistancesOfARange) {
    const struct {
        const char* start;
        const char* end;
        const char* step;
        std::size_t lines;
        const char* last;
    } cases[] = {{"1.0", "100.0", "1.0", 100, "     100"}, {"1", "2", "0.1", 10, "     1.9"},
                 {"5", "5", "1", 1, "       5"},           {"100", "1", "-1", 100, "       1"},
                 {"0.05", "0.01", "-0.02", 3, "    0.01"}, {"2", "3.5", "1.0xyz", 2, "       3"}};
    for (const auto& c : cases) {
        Enter(c.start, c.end, c.step);
        Range().cmdLogDistRange.Press();
        auto distances = Distances();
        EXPECT_EQ(distances.back(), "") << "an empty line follows";
        distances.pop_back();
        EXPECT_EQ(distances.size(), c.lines) << c.start << ' ' << c.end << ' ' << c.step;
        EXPECT_EQ(distances.back(), c.last);
    }
    EXPECT_THAT(platform.TakeMessages(), IsEmpty());
}

TEST_F(DistanceRange, ABadRangeIsPutRightAndRunsAtTheNextPress) {
    const struct {
        const char* start;
        const char* end;
        const char* step;
        const char* corrected;
    } cases[] = {{"100", "1", "1", "100 1 -1.00"},       {"1", "0", "1", "1 299.90 1"},
                 {"0", "10", "1", "0.10 10 1"},          {"1", "10", "0", "1 10 0.10"},
                 {"10", "1", "0", "10 1 -0.10"},         {"1", "10", "-2", "1 10 2.00"},
                 {"-5", "-5", "-5", "0.10 299.90 5.00"}, {"400", "-1", "3", "400 299.90 -3.00"},
                 {"", "x", "", "0.10 299.90 0.10"}};
    for (const auto& c : cases) {
        const std::string before = Log().Text();
        Enter(c.start, c.end, c.step);
        Range().cmdLogDistRange.Press();
        EXPECT_EQ(Boxes(), c.corrected);
        ASSERT_EQ(platform.messages.size(), 1U);
        EXPECT_EQ(platform.messages[0].text + '/' + platform.messages[0].title,
                  "Invalid Range Entered/ERROR");
        platform.messages.clear();
        EXPECT_EQ(Log().Text(), before);
        EXPECT_FALSE(Range().RunRunning);
        EXPECT_TRUE(Range().txtStart.Visible());
        Range().cmdLogDistRange.Press();
        EXPECT_FALSE(program.frmLogDistRange.Loaded());
        EXPECT_THAT(platform.TakeMessages(), IsEmpty());
    }
    EXPECT_EQ(Boxes(), "1.0 100.0 1.0") << "a form that is opened anew remembers nothing";
}

TEST_F(DistanceRange, ABoxThatIsNotNumericGetsItsFallback) {
    const struct {
        TextBox frmLogDistRange::*box;
        const char* message;
        const char* text;
    } cases[] = {{&frmLogDistRange::txtStart, "Start Value Must be Numeric", "0.1"},
                 {&frmLogDistRange::txtEnd, "End Value Must be Numeric", "300"},
                 {&frmLogDistRange::txtStep, "StStep Value Must be Numeric", "0.1"}};
    for (const auto& c : cases) {
        TextBox& box = Range().*c.box;
        box.SetText("-7.5");
        box.LostFocus.Raise();
        EXPECT_THAT(platform.messages, IsEmpty());
        box.SetText("5km");
        box.LostFocus.Raise();
        EXPECT_EQ(box.Text(), c.text);
        ASSERT_EQ(platform.messages.size(), 1U);
        EXPECT_EQ(platform.messages[0].title, "Warning");
        EXPECT_THAT(platform.TakeMessages(), ElementsAre(c.message));
    }
}

TEST_F(DistanceRange, TheDisplayOfARun) {
    EXPECT_EQ(Range().pgbDist.Filled(), 0.0);
    AtYield(26, [this] {
        EXPECT_TRUE(Range().RunRunning);
        EXPECT_FALSE(Range().txtStep.Visible());
        EXPECT_FALSE(Range().chkClearLog.Visible());
        EXPECT_TRUE(Range().cmdExitCalc.Visible());
        EXPECT_EQ(Range().cmdExitCalc.Caption(), "Exit Calculations");
        EXPECT_EQ(Range().cmdLogDistRange.Caption(), "Restart Sending Distance Range to Log");
        EXPECT_EQ(Range().lblDist.Caption(), "76.0 Km");
        EXPECT_NEAR(Range().pgbDist.Filled(), 25.0 / 100.0, 1e-6) << "fills downward too";
    });
    Enter("101", "1", "-1");
    Range().cmdLogDistRange.Press();
    EXPECT_EQ(platform.yields, 101);

    platform.yields = 0;
    AtYield(0, [this] { EXPECT_EQ(Range().pgbDist.Filled(), 1.0) << "nothing left to go"; });
    Enter("0.5", "0.5", "1");
    Range().cmdLogDistRange.Press();
    EXPECT_EQ(platform.yields, 1);
}

TEST_F(DistanceRange, ExitKeepsTheLinesAndSaves) {
    Range().chkClearLog.SetChecked(false);
    const std::string header = Log().Text();
    AtYield(3, [this] {
        Range().cmdExitCalc.Press();
        EXPECT_FALSE(program.frmLogDistRange.Loaded());
    });
    Range().cmdLogDistRange.Press();
    EXPECT_EQ(Log().Text().find(header), 0U);
    EXPECT_THAT(Distances(), ElementsAre("  Dist  ", "       1", "       2", "       3"));
    EXPECT_EQ(SavedLog(), Log().Content());
    EXPECT_EQ(platform.yields, 4);
}

TEST_F(DistanceRange, ClosingTheFrameEndsTheRunUnsaved) {
    const RichText before = SavedLog();
    AtYield(3, [this] {
        frmLogDistRange& form = Range();
        form.CloseByFrame();
        // What is still on its way to the form does nothing any more.
        form.cmdLogDistRange.Press();
        form.cmdExitCalc.Press();
    });
    Range().cmdLogDistRange.Press();
    EXPECT_FALSE(program.frmLogDistRange.Loaded());
    EXPECT_THAT(Distances(), ElementsAre("       1", "       2", "       3"));
    EXPECT_EQ(SavedLog(), before);
}

TEST_F(DistanceRange, RestartsDoNotNest) {
    int depth = 0;
    int deepest = 0;
    constexpr int Restarts = 5000;
    platform.onYield = [&] {
        deepest = std::max(deepest, ++depth);
        if (platform.yields <= Restarts * 2 && platform.yields % 2 == 0)
            Range().cmdLogDistRange.Press();
        --depth;
    };
    Range().cmdLogDistRange.Press();
    EXPECT_EQ(deepest, 1);
    EXPECT_EQ(platform.yields, Restarts * 2 + 100);
    EXPECT_EQ(Distances().size(), 101U) << "cleared again by every restart, and ended once";

    // With the log kept, the lines of the ended run stay, with no empty line behind them.
    platform.yields = 0;
    AtYield(2, [this] { Range().cmdLogDistRange.Press(); });
    Enter("1", "3", "1");
    Range().chkClearLog.SetChecked(false);
    program.ReportLog().Clear();
    Range().cmdLogDistRange.Press();
    EXPECT_THAT(Distances(),
                ElementsAre("       1", "       2", "       1", "       2", "       3", ""));

    platform.yields = 0;
    AtYield(2, [this] {
        Main().txtFreq.SetText("x");
        Range().cmdLogDistRange.Press();
    });
    Range().cmdLogDistRange.Press();
    EXPECT_TRUE(Range().txtStart.Visible()) << "for what refused the restart";
}

TEST_F(DistanceRange, TheEndOfTheSessionOrOfTheProgramEndsTheRun) {
    AtYield(3, [this] { program.EndSession(); });
    Range().cmdLogDistRange.Press();
    EXPECT_EQ(platform.yields, 4);
    EXPECT_EQ(Distances().size(), 3U);
    EXPECT_EQ(SavedLog(), Log().Content());

    platform.yields = 0;
    AtYield(3, [this] { Main().Unload(); });
    Range().cmdLogDistRange.Press();
    EXPECT_EQ(platform.yields, 4);
    EXPECT_FALSE(program.MainForm.Loaded());
    EXPECT_FALSE(program.frmLogDistRange.Loaded());
}

}  // namespace
}  // namespace vardel
