#include <gmock/gmock.h>

#include <sstream>

#include "forms/graphs/GraphForm.h"
#include "forms/graphs/ValuesForm.h"
#include "forms/graphs/chart/ChartText.h"
#include "models/ModCalculations.h"
#include "services/Files.h"
#include "support/RunningProgram.h"

namespace vardel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class LossGraph : public testing::Test, public RunningProgram {
protected:
    GraphForm& Graph() { return *program.GraphForm; }
    const Chart& TheChart() { return Graph().CTWX1; }
    // Each visible series as points, pattern and colour.
    std::vector<std::string> Shown() {
        std::vector<std::string> shown;
        for (const ChartSeries& series : TheChart().AllSeries()) {
            if (!series.Visible) continue;
            std::ostringstream text;
            text << series.X.size() << " points, pattern " << series.LineStyle << ", green "
                 << int(series.LineColor.green) << ", blue " << int(series.LineColor.blue);
            shown.push_back(text.str());
        }
        return shown;
    }
    void Plot(const char* frequency, MenuItem& distance) {
        Graph().txtFreq.SetText(frequency);
        distance.Pick();
        Graph().cmdUpdateGraph.Press();
    }
    bool IsGood() { return Graph().cmdUpdateGraph.PictureFile() == Graph().GoodPicture; }
};

TEST_F(LossGraph, SeriesAndLegendOfEachPlot) {
    Graph();
    EXPECT_EQ(TheChart().Redraws(), 0) << "the first plot shows itself";
    EXPECT_THAT(Shown(), ElementsAre("991 points, pattern 0, green 128, blue 0",
                                     "991 points, pattern 0, green 0, blue 0",
                                     "991 points, pattern 3, green 0, blue 180",
                                     "1000 points, pattern 2, green 40, blue 40"));
    EXPECT_EQ(TheChart().Legend.Text, "ITU 529\rDavidson\rCost 231\rFree Space");
    EXPECT_EQ(TheChart().AllSeries()[0].X.back(), 99.9999999999986);

    Plot("1500", Graph().mnuGraph300);
    EXPECT_EQ(TheChart().Redraws(), 1);
    EXPECT_THAT(Shown(), ElementsAre("991 points, pattern 0, green 128, blue 0",
                                     "2000 points, pattern 3, green 128, blue 0",
                                     "2991 points, pattern 0, green 0, blue 0",
                                     "991 points, pattern 0, green 0, blue 180",
                                     "2000 points, pattern 3, green 0, blue 180",
                                     "3000 points, pattern 2, green 40, blue 40"));
    EXPECT_EQ(TheChart().Legend.Text, "ITU 529\r(cont.)\rDavidson\rCost 231\r(cont.)\rFree Space");
    EXPECT_EQ(TheChart().AllSeries()[1].X.front(), 100.09999999999859);

    Plot("1800", Graph().mnuGraph100);
    EXPECT_THAT(Shown(), ElementsAre("991 points, pattern 3, green 128, blue 0",
                                     "991 points, pattern 3, green 0, blue 0",
                                     "991 points, pattern 0, green 0, blue 180",
                                     "1000 points, pattern 2, green 40, blue 40"));
}

TEST_F(LossGraph, EveryPointIsAModelsValue) {
    Graph().txtPctTime.SetText("10");
    Graph().txtPctLoc.SetText("90");
    Plot("450", Graph().mnuGraph100);
    const auto& series = TheChart().AllSeries();
    double (*const models[])(const ModelInputs&) noexcept = {Itu529Loss, DavidsonLoss, Cost231Loss};
    for (std::size_t m = 0; m < 3; ++m)
        for (const std::size_t i : {0U, 500U, 990U}) {
            const ModelInputs in{450, series[m].X[i], 100, 1.5, "Urban", "Small/Medium", 10, 90};
            EXPECT_EQ(series[m].Y[i], models[m](in)) << m << ' ' << i;
        }
    EXPECT_EQ(series[0].X[0], 1.0);
    EXPECT_EQ(series[3].X[0], 0.1);
    EXPECT_NEAR(series[3].Y[99], 32.5 + 53.0643 + 20.0, 1e-4) << "free space at 10 km";
}

TEST_F(LossGraph, ScalesAndTitles) {
    Main().mnuUnitsEnglish.Pick();
    Graph().cmdUpdateGraph.Press();
    EXPECT_EQ(TheChart().Title[0].Text, "dB Loss Calculation");
    EXPECT_EQ(TheChart().Title[1].Text, "50%Time, 50%Loc, 03/09/2026 02:05 pm");
    EXPECT_EQ(TheChart().Title[2].Text,
              "Freq: 450.0MHz,  Antenna Mobile Height: 4.9213m,  Antenna Base Height: 328.084m,"
              "  Area: Urban, City Size: Small/Medium");
    const auto& [x, y] = TheChart().Axis;
    EXPECT_EQ(x.Title + '/' + y.Title, "Distance (Km)/dB");
    EXPECT_EQ(x.Minimum, 0);
    EXPECT_EQ(x.Maximum, 100);
    EXPECT_EQ(x.MajorStep, 10);
    EXPECT_EQ(y.Minimum, 50);
    EXPECT_EQ(y.Maximum, 250);
    EXPECT_NEAR(TheChart().AllSeries()[1].Y[90], 143.13, 0.005) << "feet reach the models in m";

    Graph().cmbareatype.SetText("Open");
    Plot("450.0", Graph().mnuGraph300);
    EXPECT_THAT(TheChart().Title[2].Text, testing::EndsWith(",  Area: Open"));
    EXPECT_EQ(x.Maximum, 300);
    EXPECT_EQ(x.MajorStep, 50);
}

// The range of the first curve ends between 2 and 2.5 km.
TEST_F(LossGraph, TheChartInWords) {
    Chart& chart = Graph().CTWX1;
    const double x[] = {1, 2, 2.5, 4}, y[] = {10.5, 20, 30, 40};
    chart.SetSeriesData(0, "", x, y, 2);
    chart.SetSeriesData(1, "", x + 2, y + 2, 2);
    chart.SetSeriesData(2, "", x, y, 4);
    chart.Series(1).Continued = true;
    chart.Series(1).LineStyle = 3;
    chart.Series(2).LineStyle = chart.Series(3).Visible = false;
    const std::string head = "Distance (Km): ";
    EXPECT_THAT(ChartReadout(chart, 1.5),
                ElementsAre(head + "1.5", "ITU 529: 15.25 dB", "Cost 231: 15.25 dB"));
    EXPECT_THAT(
        ChartReadout(chart, 2.3),
        ElementsAre(head + "2.3", "Davidson: 26.00 dB (out of range)", "Cost 231: 26.00 dB"));
    EXPECT_THAT(
        ChartReadout(chart, 3.1),
        ElementsAre(head + "3.1", "Davidson: 34.00 dB (out of range)", "Cost 231: 34.00 dB"));
    EXPECT_THAT(ChartCsv(chart),
                testing::EndsWith("\n# value: dB\ncurve,distance_km,value,in_range\n"
                                  "ITU 529,1,10.5,yes\nITU 529,2,20,yes\n"
                                  "Davidson,2.5,30,no\nDavidson,4,40,no\n"
                                  "Cost 231,1,10.5,yes\nCost 231,2,20,yes\n"
                                  "Cost 231,2.5,30,yes\nCost 231,4,40,yes\n"));
}

TEST_F(LossGraph, WhatTheMainFormWillGetIsToldBefore) {
    Main().txtFreq.SetText("80");
    EXPECT_FALSE(Graph().lblHandBack.Visible());
    Graph().txtFreq.LostFocus.Raise();
    Graph().cmbareatype.SetText("Open");
    EXPECT_EQ(Graph().lblHandBack.Caption(),
              "When this window closes, the main window takes: Frequency 150.0 instead of 80, "
              "Area Open instead of Urban");
    Graph().Unload();
    EXPECT_EQ(Main().txtFreq.Text(), "150.0");
    EXPECT_FALSE(Graph().lblHandBack.Visible());
}

// One that unit switches have made keeps the inputs of then, and gives back all of what it shows.
TEST_F(LossGraph, AllInputsOfAFormMadeBeforeGoBackAndTheChartIsOfThem) {
    Main().mnuUnitsEnglish.Pick();
    Main().mnuUnitsMetric.Pick();
    Main().txtFreq.SetText("900");
    Main().cmbareatype.SetText("Open");
    program.EndSession();
    EXPECT_EQ(Main().txtFreq.Text(), "900") << "a form that is hidden gives nothing back";
    platform.whileShown["GraphForm"] = [&] {
        EXPECT_NEAR(TheChart().AllSeries()[1].Y[90], 143.13, 0.005) << "not of 100 feet";
        Graph().txthb.SetText("50");
        EXPECT_EQ(Graph().lblHandBack.Caption(),
                  "When this window closes, the main window takes: Frequency 450.0 instead of 900, "
                  "Base Antenna 50 instead of 100.0, Area Urban instead of Open");
        Graph().mnuFileClose.Pick();
    };
    Main().mnuGraphdBloss.Pick();
    EXPECT_EQ(Main().txtFreq.Text() + ' ' + Main().cmbareatype.Text() + ' ' + Main().txthb.Text(),
              "450.0 Urban 50");
    EXPECT_TRUE(Main().cmbcitysize.Enabled());
}

TEST_F(LossGraph, ItsValuesAreATable) {
    RowList::Row at10;
    platform.whileShown["ValuesForm"] = [&] {
        EXPECT_EQ(program.ValuesForm->lstValues.Count(), 100U);
        EXPECT_EQ(program.ValuesForm->lstValues.Columns().at(2).title, "Davidson, dB");
        at10 = program.ValuesForm->lstValues.RowAt(9);
        program.ValuesForm->Unload();
    };
    Graph().View().mnuViewValues.Pick();
    EXPECT_THAT(at10.cells,
                ElementsAre("10", "143.13", "143.13", "140.42 (out of range)", "105.56"));
}

TEST_F(LossGraph, BoxRules) {
    const struct {
        TextBox GraphForm::*box;
        const char* typed;
        const char* written;
        const char* message;  // null: none
    } cases[] = {
        {&GraphForm::txtFreq, "2000", "2000.0", nullptr},
        {&GraphForm::txtFreq, "2000.1", "150.0", "Valid Frequency Range 150 MHz to 2000 MHz"},
        {&GraphForm::txtFreq, "149", "150.0", "Valid Frequency Range 150 MHz to 2000 MHz"},
        {&GraphForm::txthb, "2400", "2400.0", nullptr},
        {&GraphForm::txthb, "2501", "30.0", "Valid Height of Base Station Antenna is 30m to 200m"},
        {&GraphForm::txthb, "29", "30.0", "Valid Height of Base Station Antenna is 30m to 200m"},
        {&GraphForm::txthm, "x", "1.0", "Valid Height of Mobile Antenna is 1m to 30m"},
        {&GraphForm::txtPctTime, "12.5", "13", nullptr},
        {&GraphForm::txtPctLoc, "7.5", "8", nullptr},
        {&GraphForm::txtPctLoc, "0.5", "50", "Percent Range 1 to 99"},
    };
    for (const auto& c : cases) {
        Graph().cmdUpdateGraph.Press();
        EXPECT_TRUE(IsGood());
        TextBox& box = Graph().*c.box;
        box.SetText(c.typed);
        EXPECT_TRUE(IsGood()) << "not while it is typed";
        box.LostFocus.Raise();
        EXPECT_EQ(box.Text(), c.written) << c.typed;
        EXPECT_FALSE(IsGood()) << "also where nothing changed";
        if (c.message != nullptr)
            EXPECT_THAT(platform.TakeMessages(), ElementsAre(c.message));
        else
            EXPECT_THAT(platform.TakeMessages(), IsEmpty());
    }
}

TEST_F(LossGraph, WhatMarksTheGraphStale) {
    const std::pair<const char*, std::function<void()>> actions[] = {
        {"area", [&] { Graph().cmbareatype.SetText("Open"); }},
        {"300 km", [&] { Graph().mnuGraph300.Pick(); }},
        {"100 km", [&] { Graph().mnuGraph100.Pick(); }},
    };
    for (const auto& [what, action] : actions) {
        Graph().cmdUpdateGraph.Press();
        action();
        EXPECT_FALSE(IsGood()) << what;
        EXPECT_THAT(Graph().cmdUpdateGraph.StateText(), testing::HasSubstr("may have changed"));
    }
    EXPECT_FALSE(Graph().cmbcitysize.Enabled());
    EXPECT_TRUE(Graph().mnuGraph100.Checked());
    EXPECT_FALSE(Graph().mnuGraph300.Checked());
    Graph().cmdUpdateGraph.Press();
    Graph().mnuUnitsEnglish.Pick();
    EXPECT_TRUE(IsGood()) << "units change nothing";
}

TEST_F(LossGraph, ATextThatIsNoNumberLeavesTheGraphAsItWas) {
    Graph();
    const auto before = Shown();
    Graph().txthb.SetText("high");
    Graph().cmdUpdateGraph.Press();
    Graph().txthb.SetText("-5");
    Graph().cmdUpdateGraph.Press();
    EXPECT_THAT(platform.TakeMessages(),
                ElementsAre("Base Antenna must be a number, not \"high\"",
                            "Base Antenna must be above zero, not \"-5\""));
    EXPECT_EQ(Shown(), before);
    EXPECT_FALSE(IsGood());
    EXPECT_EQ(Graph().MousePointer(), Form::Pointer::Normal);
}

TEST_F(LossGraph, ClosingHandsTheInputsBack) {
    Main().cmdLossCalc.Press();
    platform.whileShown["GraphForm"] = [&] {
        EXPECT_EQ(Graph().txthb.Text(), "100.0");
        Graph().txthb.SetText("77.0");
        Graph().cmbareatype.SetText("Suburban");
        Graph().txtPctTime.SetText("20");
        Graph().mnuFileClose.Pick();
    };
    Main().mnuGraphdBloss.Pick();
    EXPECT_FALSE(program.GraphForm.Loaded());
    Graph().txtFreq.SetText("700");
    Graph().SetVisible(true);
    program.EndSession();
    EXPECT_EQ(Main().txtFreq.Text(), "700") << "as the end of the session does";
    EXPECT_EQ(Main().txthb.Text(), "77.0");
    EXPECT_EQ(Main().cmbareatype.Text(), "Suburban");
    EXPECT_FALSE(Main().cmbcitysize.Enabled());
    EXPECT_EQ(Main().txtPctTime.Text(), "20");
    EXPECT_EQ(Main().lblDavidson.BackColor(), (Color{50, 50, 50}));
}

TEST_F(LossGraph, AFormThatASwitchMadeKnowsTheUnitsItIsOpenedIn) {
    Main().cmbareatype.SetText("Suburban");
    Main().mnuUnitsEnglish.Pick();
    Main().mnuFileNew.Pick();
    platform.whileShown["GraphForm"] = [&] {
        EXPECT_EQ(Graph().txthb.Text() + Graph().Label10.Caption(), "100.0m");
        EXPECT_NEAR(TheChart().AllSeries()[1].Y[90], 143.13, 0.005) << "at 10 km";
        EXPECT_TRUE(IsGood());
        Graph().CloseByFrame();
    };
    Main().mnuGraphdBloss.Pick();
    EXPECT_EQ(Main().txthb.Text() + Main().Label10.Caption(), "100.0m");
    EXPECT_TRUE(Main().mnuUnitsMetric.Checked());
}

TEST_F(LossGraph, AStartInEnglishUnitsPlotsFeet) {
    Main().cmbareatype.SetText("Suburban");
    Main().mnuUnitsEnglish.Pick();
    Main().mnuFileExit.Pick();
    Program next{platform.Services()};
    next.Start();
    const ModelInputs in{450, 10, 100, 1.5, "Urban", "Small/Medium", 50, 50};
    EXPECT_NEAR(next.GraphForm->CTWX1.AllSeries()[1].Y[90], DavidsonLoss(in), 0.001);
    EXPECT_EQ(next.MainForm->cmbareatype.Text(), "Suburban");
    next.GraphForm->Unload();
    EXPECT_EQ(next.MainForm->cmbareatype.Text(), "Urban") << "made before the area was restored";
    EXPECT_EQ(next.MainForm->txthb.Text(), "328.084");
}

TEST_F(LossGraph, AFormTellsOfItsInputsWhenItIsOpenedAndNotWhenASwitchMakesIt) {
    Main().mnuUnitsEnglish.Pick();
    Main().txtFreq.SetText("none");
    Main().mnuFileExit.Pick();
    Program next{platform.Services()};
    platform.TakeMessages();
    next.Start();
    EXPECT_THAT(platform.TakeMessages(), ElementsAre(testing::HasSubstr("Cannot find file")));
    next.GraphForm->Unload();  // so that its opening makes it
    for (MenuItem* entry : {&next.MainForm->mnuGraphdBloss, &next.MainForm->mnuGraphCompare}) {
        entry->Pick();
        EXPECT_THAT(platform.TakeMessages(),
                    ElementsAre("Frequency must be a number, not \"none\""));
    }
}

TEST_F(LossGraph, SavingAndCopying) {
    platform.saveChoice = SaveChoice{platform.folder.Path("graph.wmf"), 1};
    Graph().mnuFileSave.Pick();
    EXPECT_EQ(ReadWholeFile(platform.saveChoice->path), "a metafile");
    EXPECT_EQ(platform.saveDialogs[0].filters, "Windows Meta File (*.wmf)|*.wmf");
    platform.saveChoice->path = platform.folder.Path("missing/graph.wmf");
    Graph().mnuFileSave.Pick();
    ASSERT_EQ(platform.messages.size(), 1U);
    EXPECT_EQ(platform.messages[0].text, "Error in saving file " + platform.saveChoice->path);
    EXPECT_EQ(platform.messages[0].title, "File Save");
    EXPECT_EQ(platform.messages[0].icon, Message::Icon::Critical);
    EXPECT_EQ(Graph().MousePointer(), Form::Pointer::Normal);

    const std::string log = Log().Text();
    Graph().mnuFileCopyToReportLog.Pick();
    EXPECT_EQ(Log().Text(), log + std::string(RichText::PictureMark) + "[Clip Board Image]\r\n");
    ASSERT_EQ(Log().Content().Pictures().size(), 1U);
    EXPECT_EQ(Log().Content().Pictures()[0].picture->png, "a chart");
}

}  // namespace
}  // namespace vardel
