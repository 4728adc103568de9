#include <gmock/gmock.h>

#include "forms/graphs/FrmOkumFieldStrength.h"
#include "forms/graphs/GraphForm.h"
#include "forms/graphs/chart/ChartTable.h"
#include "forms/graphs/chart/ChartText.h"
#include "forms/shared/Palette.h"
#include "services/Files.h"
#include "support/RunningProgram.h"

namespace vardel {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class GraphViews : public testing::Test, public RunningProgram {
protected:
    GraphForm& Graph() { return *program.GraphForm; }
    Chart& TheChart() { return Graph().CTWX1; }
    // The file that the entry saves when the dialog's filter of this index is taken.
    std::string Saved(MenuItem& entry, int filter = 1) {
        const std::string path = platform.folder.Path("saved");
        platform.answers.push(Answer::Yes);
        platform.saveChoice = {path, filter};
        entry.Pick();
        platform.answers = {};
        return ReadWholeFile(path).value_or("");
    }
};

// 143.12925 dB is ITU 529's loss at 10 km, 450 MHz, 100 m and 1.5 m by hand; ITU 529's range ends
// at 100 km.
TEST_F(GraphViews, TheTableHasRoundDistancesAndTheInputsInBothUnits) {
    Main().txtPowerUnit.SetText("0.25");
    Main().txtPowerUnit.LostFocus.Raise();
    Graph().mnuGraph300.Pick();
    Graph().cmdUpdateGraph.Press();
    TheChart().SwitchCurve("Davidson");
    const std::string points = Saved(Graph().Export().mnuExportTable);
    EXPECT_THAT(points, HasSubstr("\n# Base antenna,100,m,328.083989501312,ft\n"));
    EXPECT_THAT(points, HasSubstr("\n# Power e.r.p.,250,W\n# vardel-inputs:,frequency_mhz=450,"));
    EXPECT_THAT(points, HasSubstr("\n# Out of range,ITU 529,from,100.1,to,300,km\n"));
    EXPECT_THAT(points, HasSubstr("\nDistance in km,ITU 529 in dB,Cost 231 in dB,"
                                  "Free Space in dB\n0.1,,,65.56425\n"));
    EXPECT_THAT(points,
                testing::ContainsRegex("\n10,143.12925[0-9]*,140.[0-9]+,105.[0-9]+\n10.1,"));
    EXPECT_THAT(points.substr(points.size() - 60),
                testing::ContainsRegex("\n300,[0-9.]+,[0-9.]+,[0-9.]+\n$"));
    TheChart().SetView({{{9.95, 10.05}, {0, 200}}});
    Graph().Export().mnuExportZoomed.Pick();
    const std::string commas = Saved(Graph().Export().mnuExportTable, 2);
    EXPECT_THAT(commas,
                testing::ContainsRegex("dB\n10;\"143,12925[0-9]*\";\"14[0-9,]+\";[^;]+\n$"));
    EXPECT_THAT(commas, HasSubstr("\n# Base antenna;100;m;\"328,083989501312\";ft\n"));
    Main().txtPowerUnit.SetText("1");
    Main().txtPowerUnit.LostFocus.Raise();
}

TEST_F(GraphViews, OwnAxesStayWithEveryDrawingAndWithTheNextGraph) {
    GraphView& view = Graph().View();
    view.mnuViewLog.Pick();
    EXPECT_EQ(TheChart().Scales()[0], (AxisRange{1, 100})) << "where the models begin";
    view.mnuViewLog.Pick();
    view.mnuViewRanges.Pick();
    EXPECT_EQ(view.txtTo[0].Text(), "100.0");
    view.txtTo[0].SetText("20");
    view.txtFrom[1].SetText("120");
    Graph().cmdUpdateGraph.Press();
    const ChartRanges own{{{0, 20}, {120, 250}}};
    EXPECT_EQ(TheChart().Scales(), own);
    for (const char* bad : {"", "x", "250", "400.1"}) {
        view.txtFrom[1].SetText(bad);
        const bool isOrder = std::string(bad) == "250";
        EXPECT_EQ((isOrder ? view.txtTo : view.txtFrom)[1].BackColor(), OutOfRangePink) << bad;
        EXPECT_EQ(TheChart().Scales(), own) << bad;
    }
    Graph().Unload();
    EXPECT_EQ(TheChart().Scales(), own);
    EXPECT_EQ(program.FrmOkumFieldStrength->CTWXfs.Scales()[0], (AxisRange{0, 100}));
    Graph().View().mnuViewRanges.Pick();
    EXPECT_EQ(TheChart().Scales()[1], (AxisRange{50, 250}));
}

TEST_F(GraphViews, ACurveThatIsOffIsNotToldAndStaysOff) {
    TheChart().SwitchCurve("Davidson");
    Graph().cmdUpdateGraph.Press();
    EXPECT_EQ(ChartSummary(TheChart()), "dB Loss Calculation, ITU 529, Cost 231, Free Space");
    EXPECT_EQ(ChartReadout(TheChart(), 10).size(), 4U);
    Graph().View().mnuViewCurves.Pick();
    EXPECT_EQ(ChartReadout(TheChart(), 10).size(), 5U);
}

TEST_F(GraphViews, TheSizeOfPicturesIsAsked) {
    const ChartFrame& frame = TheChart().FileFrame;
    const struct {
        const char* answer;
        int width, height;
        bool told;
    } cases[] = {{"1600 x 900", 1600, 900, false}, {"199x900", 1600, 900, true},
                 {"800", 1600, 900, true},         {"", 1600, 900, false},
                 {"600X6000", 600, 6000, false},   {"0", 0, 0, false}};
    for (const auto& c : cases) {
        platform.onQuestion = [&] { return c.answer; };
        Graph().Export().mnuExportSize.Pick();
        EXPECT_EQ(std::pair(frame.Width, frame.Height), std::pair(c.width, c.height)) << c.answer;
        EXPECT_EQ(platform.TakeMessages().size(), c.told ? 1U : 0U) << c.answer;
    }
}

TEST_F(GraphViews, AFilesInputsComeBackAfterAQuestion) {
    Graph().txtFreq.SetText("900");
    Graph().txtPctLoc.SetText("90");
    Graph().cmdUpdateGraph.Press();
    const std::string csv = ChartCsv(TheChart());
    const auto offer = [&](Answer answer) {
        platform.answers.push(answer);
        Main().OfferInputs({{"notes.txt", "nothing"}, {"loss.csv", csv}});
        return platform.TakeMessages();
    };
    EXPECT_THAT(offer(Answer::No), ElementsAre("Take the inputs of loss.csv?\n\n900 MHz, hb 100 m, "
                                               "hm 1.5 m, Urban, Small/Medium, 1000 W e.r.p., "
                                               "50 % of time, 90 % of locations"));
    EXPECT_EQ(Main().txtFreq.Text(), "450.0");
    offer(Answer::Yes);
    EXPECT_EQ(Main().txtFreq.Text(), "900.0");
    EXPECT_EQ(Main().txtPctLoc.Text(), "90");
    Main().OfferInputs({{"a.txt", ""}, {"b.csv", "1,2"}});
    EXPECT_THAT(platform.TakeMessages(),
                ElementsAre("a.txt, b.csv hold no inputs of a graph of Vardel"));
}

}  // namespace
}  // namespace vardel
