#include <gmock/gmock.h>

#include <fstream>
#include <sstream>

#include "forms/graphs/FrmOkumFieldStrength.h"
#include "forms/graphs/GraphForm.h"
#include "forms/graphs/chart/ChartText.h"
#include "forms/reports/FrmReport.h"
#include "forms/tools/ExplainForm.h"
#include "forms/tools/MeasuredForm.h"
#include "forms/tools/ReachForm.h"
#include "support/RunningProgram.h"

// A fire brigade's channel: 390 MHz, 45 m, 1.5 m, suburban, 25 W. The reaches are computed by hand
// from the published formulas.

namespace vardel {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class Tools : public testing::Test, public RunningProgram {
protected:
    Tools() {
        Main().txtFreq.SetText("390");
        Main().txtDist.SetText("10");
        Main().txthb.SetText("45");
        Main().txtPctLoc.SetText("95");
        Main().cmbareatype.SetText("Suburban");
        Main().cmbPowerUnit.SetText("W e.r.p.");
        SetPower("25");
        Main().mnuToolsReach.Pick();
    }

    void SetPower(const char* watts) {
        Main().txtPowerUnit.SetText(watts);
        Main().txtPowerUnit.LostFocus.Raise();
    }
    ReachForm& Form() { return *program.ReachForm; }
    std::string Reach(std::size_t row, std::size_t column) {
        return Form().lblReach.at(row * ReachPercentages + column)->Caption();
    }
};

TEST_F(Tools, ReachFollowsWhatIsTypedHereAndInTheMainWindow) {
    EXPECT_EQ(Reach(0, 2), "5.196");
    EXPECT_EQ(Reach(1, 2), "5.192");
    EXPECT_EQ(Reach(2, 2), "6.444");
    EXPECT_EQ(Form().lblReach[8]->StateText(), "out of the model's range");
    EXPECT_EQ(Form().lblReach[2]->StateText(), "");
    // By the 9.69 dB that the field strength at 10 km lies below 32 dB(µV/m).
    EXPECT_EQ(Form().lblPower[0].Caption(), "232.7");
    EXPECT_EQ(Form().lblPower[0].BackColor(), White);
    Form().wanted.txtWanted.SetText("300");
    EXPECT_EQ(Reach(0, 2), "under 0.100");
    Form().wanted.txtWanted.SetText("-300");
    EXPECT_EQ(Reach(0, 2), "over 300.000");
    Form().wanted.txtWanted.SetText("32");
    EXPECT_THAT(platform.announcedAtRest,
                testing::MatchesRegex("ITU 529: .*, 5.196 km. Davidson: .*, 5.192 km. "
                                      "Cost 231: .*, 6.444 km. "));
    EXPECT_THAT(Form().lblPowerHead.Caption(), testing::EndsWith("km\nat 95 % of locations"));
    SetPower("1000000");
    EXPECT_EQ(Reach(0, 0), "119.522");
    SetPower("25");
    Main().txthb.SetText("2000");
    EXPECT_NE(Reach(0, 2), "5.196");
    Main().txthb.SetText("45");
    Main().mnuUnitsEnglish.Pick();
    EXPECT_EQ(Reach(0, 2), "3.229") << "miles";
    EXPECT_EQ(Form().lblReachHead.Caption(), "Reach in miles at % of locations");
    Main().txthm.SetText("");
    EXPECT_EQ(Reach(0, 2), "-");
    EXPECT_THAT(Form().lblProblem.Caption(), HasSubstr("main window"));
}

// The median reaches, and of 140 dB those of Davidson's and of free space, are hand calculations.
TEST_F(Tools, TheGraphsShowALineAtWhatIsWanted) {
    const Chart& fields = program.FrmOkumFieldStrength->CTWXfs;
    EXPECT_FALSE(fields.Threshold());
    Form().cmdGraph.Press();
    FrmOkumFieldStrength& graph = *program.FrmOkumFieldStrength;
    const auto crossings = [&](const Chart& chart) {
        std::vector<std::string> texts;
        for (const auto& crossing : chart.Threshold()->Crossings) texts.push_back(crossing.Text);
        return texts;
    };
    EXPECT_THAT(crossings(fields), ElementsAre("OkHat Dav: 5.192 km", "ITU 529: 5.196 km",
                                               "Cost 231: 6.444 km (out of range)"));
    EXPECT_THAT(ChartCsv(fields), HasSubstr("# threshold: 32.0 dB (uv/m)\n"
                                            "# reach of ITU 529: 5.196 km\n"));
    EXPECT_THAT(ChartSummary(fields), HasSubstr("Free Space: over 300.000 km"));
    EXPECT_EQ(graph.Threshold().txtThreshold.Text(), "32.0");

    graph.CTWXfs.MoveThreshold(41.687);
    EXPECT_EQ(graph.Threshold().txtThreshold.Text(), "41.7") << "in tenths";
    graph.Threshold().txtThreshold.SetText("4l");
    EXPECT_EQ(fields.Threshold()->Value, 41.7);
    EXPECT_NE(graph.Threshold().txtThreshold.BackColor(), White);
    graph.Threshold().txtThreshold.SetText("94.5");
    EXPECT_THAT(crossings(fields), ElementsAre("Free Space: 4.217 km"))
        << "of the models only what the graph shows";
    graph.Threshold().mnuToolsThreshold.Pick();
    EXPECT_FALSE(fields.Threshold());
    EXPECT_FALSE(graph.Threshold().txtThreshold.Visible());

    Form().wanted.cmbWanted.SetText("Path loss");
    Form().wanted.txtWanted.SetText("100");
    Form().cmdGraph.Press();
    EXPECT_THAT(crossings(program.GraphForm->CTWX1), ElementsAre("Free Space: 6.080 km"));
}

TEST_F(Tools, WhatIsWantedAsAReceivedPowerOrALoss) {
    Form().wanted.cmbWanted.SetText("Received power");
    Form().wanted.txtGain.SetText("2.15");
    Form().wanted.txtCable.SetText("3");
    Form().wanted.txtWanted.SetText("-97.871292");  // 32 dB(µV/m) less 77.2 + 20 log 390 - 2.15 + 3
    EXPECT_EQ(Reach(0, 2), "5.196");
    Form().cmdAdd.Press();
    EXPECT_THAT(Log().Text(), HasSubstr("-97.871292 dBm, antenna 2.15 dBi, cable 3 dB"));
    Form().wanted.cmbWanted.SetText("Path loss");
    Form().wanted.txtWanted.SetText("130");
    EXPECT_EQ(Form().lblPower[0].Caption(), "-");
    Form().wanted.cmbWanted.SetText("Received power");
    for (TextBox* box : {&Form().wanted.txtGain, &Form().txtPercent[1]}) {
        const std::string good = box->Text();
        box->SetText("2 dBi");
        EXPECT_FALSE(box->BackColor() == White);
        EXPECT_EQ(Reach(0, 0), "-");
        EXPECT_FALSE(Form().cmdAdd.Enabled());
        box->SetText(good);
        EXPECT_TRUE(box->BackColor() == White);
    }
    EXPECT_THAT(platform.TakeMessages(), testing::IsEmpty());
}

TEST_F(Tools, TheTableGoesToTheLogTheClipboardAndTheMap) {
    Form().cmdAdd.Press();
    EXPECT_THAT(
        Log().Text(),
        HasSubstr("Reach with 32 dB(µV/m): 390 MHz, hb 45 m, hm 1.5 m, Suburban, 25 W "
                  "e.r.p., 50 % of time\r\n  ITU 529: 11.933 km at 50 % of locations, 6.266 "
                  "km at 90 % of locations, 5.196 km at 95 % of locations\r\n"));
    Form().cmdCopy.Press();
    EXPECT_THAT(platform.clipboardText,
                HasSubstr("\nITU 529\t11.933\t\t6.266\t\t5.196\t\t232.7\t134.5\n"));
    EXPECT_THAT(platform.clipboardCsv, HasSubstr("\r\nCost 231,14.799,out of the model's range,"));
    EXPECT_FALSE(Form().cmdMap.Enabled());
    Form().site.txtLatitude.SetText("52 30 N");
    Form().site.txtLongitude.SetText("190");
    EXPECT_FALSE(Form().cmdMap.Enabled());
    Form().site.txtLongitude.SetText("13.4");
    platform.saveChoice = SaveChoice{platform.folder.Path("r.kml"), 2};
    Form().cmdMap.Press();
    std::stringstream saved;
    saved << std::ifstream(platform.folder.Path("r.kml")).rdbuf();
    EXPECT_THAT(saved.str(), HasSubstr("<name>ITU 529, 95 % of locations</name>"));
    EXPECT_THAT(saved.str(), HasSubstr("<Data name=\"distance_km\"><value>5.196</value>"));
}

TEST_F(Tools, MeasuredDataAreComparedForTheMainWindowsInputs) {
    ASSERT_FALSE(
        ParseMeasuredData("0,390,0.5,Suburban,1.5,1,45\n10,22.312\n", program.MeasuredTable));
    Main().mnuToolsMeasured.Pick();
    MeasuredForm& form = *program.MeasuredForm;
    const auto errors = [&](std::size_t series) {
        return form.CTWXErrors.AllSeries().at(series).Y;
    };
    form.txtPercents.SetText("95; 50");
    // 9.69 dB below 32 dB(µV/m), see above.
    ASSERT_EQ(errors(0).size(), 1U);
    EXPECT_NEAR(errors(0)[0], 0.0, 0.005);
    EXPECT_THAT(form.lblFit.Caption(), HasSubstr("\nDavidson, 50 % of locations\n"));
    form.cmdAdd.Press();
    EXPECT_THAT(program.FrmReport->rtbLog.Text(), HasSubstr("\r\nTable 0 of measured.csv"));
    form.txtPercents.SetText("95 x");
    EXPECT_FALSE(form.cmdSave.Enabled());
    EXPECT_NE(form.txtPercents.BackColor(), White);
    form.txtPercents.SetText("95");
    Main().txtFreq.SetText("391");
    EXPECT_THAT(form.lblMatch.Caption(), HasSubstr("390 MHz instead of 391 MHz"));
    EXPECT_FALSE(form.CTWXErrors.AllSeries()[0].Visible);
}

TEST_F(Tools, SettingsComeBack) {
    Form().wanted.txtWanted.SetText("40");
    Form().txtPercent[0].SetText("70");
    Form().wanted.cmbWanted.SetText("Path loss");
    Main().Unload();
    EXPECT_EQ(platform.store["Vardel/Reach/Value"], "40");
    Program again(platform.Services());
    again.Start();
    EXPECT_EQ(again.ReachForm->wanted.txtWanted.Text(), "40");
    EXPECT_EQ(again.ReachForm->txtPercent[0].Text(), "70");
    EXPECT_EQ(again.ReachForm->wanted.cmbWanted.Text(), "Path loss");
}

TEST_F(Tools, TheStationIsWhereTheHostSays) {
    Form().Unload();
    for (const auto& [part, text] : {std::pair("LatDeg_DD", "52"),
                                     {"LatMin_MM", "30"},
                                     {"LatSec_SS", "36"},
                                     {"LonDeg_DDD", "13"},
                                     {"LonMin_MM", "24"},
                                     {"LonH_EW", "E"}})
        platform.store[std::string("Ostrel_Quorne/Global Parameters/Tx") + part] = text;
    Main().mnuToolsReach.Pick();
    EXPECT_EQ(Form().site.txtLatitude.Text(), "52 30 36 N");
    EXPECT_EQ(Form().site.txtLongitude.Text(), "13 24 E");
}

TEST_F(Tools, ANumberIsExplained) {
    Main().mnuToolsExplain.Pick();
    ExplainForm& explain = *program.ExplainForm;
    explain.cmbModel.SetText("Cost 231");
    EXPECT_EQ(explain.cmbModel.HelpContextID(), HelpTopic::Cost231);
    const std::string& text = explain.lblTerms.Caption();
    EXPECT_THAT(text, HasSubstr("\nFrequency                          + 33.9 log f"));
    EXPECT_THAT(text, HasSubstr("− (2 (log(f / 28))² + 5.4)"));
    EXPECT_THAT(text, HasSubstr("Sum"));
    EXPECT_THAT(text, HasSubstr("Frequency 390 MHz, where the model covers 1500 to 2000 MHz\n"));
    explain.cmdCopy.Press();
    EXPECT_THAT(platform.clipboardText, HasSubstr("Cost 231: 10 km, 390 MHz, hb 45 m"));
    Main().txtFreq.SetText("1800");
    EXPECT_THAT(explain.lblTerms.Caption(), HasSubstr("The inputs are in the model's range."));
}

}  // namespace
}  // namespace vardel
