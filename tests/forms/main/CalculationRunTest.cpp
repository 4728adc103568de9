#include <gmock/gmock.h>

#include "models/Primitives.h"
#include "richtext/Rtf.h"
#include "services/Files.h"
#include "support/RunningProgram.h"
#include "text/NumberText.h"

namespace vardel {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr Color Pink{255, 150, 150};

class CalculationRun : public testing::Test, public RunningProgram {
protected:
    std::vector<std::string> Captions() {
        return {Main().lblDavidson.Caption(),     Main().lblcost231.Caption(),
                Main().lblOH529dBLoss.Caption(),  Main().lblFITU529.Caption(),
                Main().lblPalvernDavFS.Caption(), Main().lblFCost231.Caption()};
    }
    // The underlined parts of the last line.
    std::vector<std::string> Underlined() {
        const RichText& content = Log().Content();
        const std::size_t lineBegin = content.Length() - LastLine().size() - 2;
        std::vector<std::string> parts;
        for (std::size_t i = 0; i < content.Stretches().size(); ++i) {
            const RichText::Stretch& stretch = content.Stretches()[i];
            if (stretch.begin >= lineBegin && stretch.style.underline)
                parts.push_back(
                    content.Text().substr(stretch.begin, content.StretchEnd(i) - stretch.begin));
        }
        return parts;
    }
};

TEST_F(CalculationRun, DefaultInputs) {
    const std::string header = Log().Text();
    Main().cmdLossCalc.Press();

    EXPECT_THAT(Captions(), ElementsAre("143.13", "140.42", "143.13", "49.31", "49.30", "52.01"));
    EXPECT_EQ(Main().lblcost231.BackColor(), Pink);
    EXPECT_EQ(Main().lblFCost231.BackColor(), Pink);
    for (Label* value :
         {&Main().lblDavidson, &Main().lblOH529dBLoss, &Main().lblFITU529, &Main().lblPalvernDavFS})
        EXPECT_EQ(value->BackColor(), White) << value->Name();

    EXPECT_EQ(Log().Text(),
              header +
                  "      10     450     100     1.5 Urban     Small/Medium 143.13  140.42  143.13"
                  "   49.31    49.3   52.01  50% 50% Metric     1000 03/09/2026 02:05 pm\r\n");
    EXPECT_THAT(Underlined(), ElementsAre(" 140.42 ", "  52.01 "));
    EXPECT_EQ(platform.yields, 1);
    EXPECT_EQ(*ReadRtf(*ReadWholeFile(program.TempLogFile)), Log().Content());
    EXPECT_THAT(platform.TakeMessages(), IsEmpty());
}

TEST_F(CalculationRun, LimitsOfARun) {
    const struct {
        TextBox MainForm::*box;
        const char* text;
        const char* message;  // of the refusal; null: the run goes through
    } cases[] = {
        {&MainForm::txtFreq, "30", nullptr},
        {&MainForm::txtFreq, "2000", nullptr},
        {&MainForm::txtFreq, "29.99", "Valid Frequency Range 30Mhz to 2000 MHz"},
        {&MainForm::txtFreq, "2000.01", "Valid Frequency Range 30Mhz to 2000 MHz"},
        {&MainForm::txthb, "20", nullptr},
        {&MainForm::txthb, "2500", nullptr},
        {&MainForm::txthb, "19.9", "Valid Height of Base Station Antenna is 30m to 200m"},
        {&MainForm::txthb, "2500.1", "Valid Height of Base Station Antenna is 30m to 200m"},
        {&MainForm::txthm, "1", nullptr},
        {&MainForm::txthm, "30", nullptr},
        {&MainForm::txthm, "0.9", "Valid Height of Mobile Antenna is 1m to 30m"},
        {&MainForm::txthm, "30.1", "Valid Height of Mobile Antenna is 1m to 30m"},
        {&MainForm::txtDist, "0.1", nullptr},
        {&MainForm::txtDist, "300", nullptr},
        {&MainForm::txtDist, "0", "Valid Range is 0 < Distance <= 300 km"},
        {&MainForm::txtDist, "300.1", "Valid Range is 0 < Distance <= 300 km"},
        {&MainForm::txtDist, "12abc", "Distance must be a number, not \"12abc\""},
        {&MainForm::txthm, "", "Height of Mobile Antenna must be a number, not \"\""},
        {&MainForm::txtFreq, "nan", "Frequency must be a number, not \"nan\""},
    };
    for (const auto& c : cases) {
        Main().SetDefaultInputs();
        (Main().*c.box).SetText(c.text);
        const std::string before = Log().Text();
        const auto captions = Captions();
        Main().mnuCalculationCalculate.Pick();
        SCOPED_TRACE(std::string(c.text));
        if (c.message == nullptr) {
            EXPECT_THAT(platform.TakeMessages(), IsEmpty());
            EXPECT_GT(Log().Text().size(), before.size());
        } else {
            EXPECT_THAT(platform.TakeMessages(), ElementsAre(c.message));
            EXPECT_EQ(Log().Text(), before);
            EXPECT_EQ(Captions(), captions);
        }
    }
    Main().SetDefaultInputs();
    for (TextBox* box : {&Main().txtDist, &Main().txthb, &Main().txthm}) box->SetText("x");
    Main().cmdLossCalc.Press();
    EXPECT_THAT(platform.TakeMessages(), ElementsAre("Distance must be a number, not \"x\""));
}

TEST_F(CalculationRun, EnglishUnitsReachTheModelsInMetric) {
    Main().cmdLossCalc.Press();
    const auto metric = Captions();
    Main().mnuUnitsEnglish.SetChecked(true);
    Main().txtDist.SetText("6.21388181196");  // 10 km
    Main().txthb.SetText("328.083989501");    // 100 m
    Main().txthm.SetText("4.92125984252");    // 1.5 m
    Main().cmdLossCalc.Press();
    EXPECT_EQ(Captions(), metric);
    EXPECT_THAT(LastLine(), HasSubstr("    6.21     450  328.08    4.92 Urban"));
    EXPECT_EQ(LastLine().substr(112, 6), "Enlish");

    Main().txtDist.SetText("190");  // 305.767 km
    Main().cmdLossCalc.Press();
    EXPECT_THAT(platform.TakeMessages(), ElementsAre("Valid Range is 0 < Distance <= 300 km"));
}

TEST_F(CalculationRun, LogLineOfAnOpenAreaAndFractionalPercent) {
    Main().cmbareatype.SetText("Open");
    Main().txtFreq.SetText("100");
    Main().txtPctLoc.SetText("7.5");
    PowerWatts = 0.000001;  // field strengths below zero
    Main().cmdLossCalc.Press();
    EXPECT_EQ(LastLine().substr(32, 24), " Open                   ");
    EXPECT_EQ(LastLine().substr(103, 9), " 50% 08% ");
    EXPECT_EQ(LastLine().substr(119, 8), "       0");
    EXPECT_EQ(LastLine().size(), 147U);  // a sign takes no column of its own
    EXPECT_EQ(Main().lblFITU529.BackColor(), Pink);
    EXPECT_EQ(Main().lblPalvernDavFS.BackColor(), White);
}

TEST_F(CalculationRun, ClosingDuringTheYieldEndsTheRunInOrder) {
    platform.onYield = [this] { Main().Unload(); };
    program.MainForm->cmdLossCalc.Press();
    EXPECT_TRUE(platform.ended);
    EXPECT_FALSE(program.MainForm.Loaded());
}

TEST_F(CalculationRun, AFailingSaveLeavesTheRunAsUsual) {
    program.TempLogFile = platform.folder.Path("missing/log.rtf");
    Main().cmdLossCalc.Press();
    EXPECT_EQ(Main().lblDavidson.Caption(), "143.13");
    EXPECT_THAT(platform.TakeMessages(), IsEmpty());
}

TEST_F(CalculationRun, AnExceptionEndsAtTheEventWithAMessage) {
    Main().mnuFileNew.Click = [] { throw std::runtime_error("disk on fire"); };
    Main().mnuFileNew.Pick();
    ASSERT_EQ(platform.messages.size(), 1U);
    EXPECT_EQ(platform.messages[0].text, "disk on fire");
    EXPECT_EQ(platform.messages[0].icon, Message::Icon::Critical);
}

TEST_F(CalculationRun, NewSetsTheDefaultsAndDarkensTheResults) {
    Main().cmdLossCalc.Press();
    Main().txtFreq.SetText("900");
    Main().txtPctTime.SetText("10");
    Main().cmbareatype.SetText("Suburban");
    EXPECT_FALSE(Main().cmbcitysize.Enabled());
    Main().mnuFileNew.Pick();
    EXPECT_EQ(Main().txtFreq.Text(), "450.0");
    EXPECT_EQ(Main().txtPctTime.Text(), "10");
    EXPECT_TRUE(Main().cmbcitysize.Enabled());
    EXPECT_EQ(Main().lblDavidson.Caption(), "143.13");
    EXPECT_EQ(Main().lblDavidson.BackColor(), (Color{50, 50, 50}));
    EXPECT_EQ(Main().lblcost231.BackColor(), Black);
}

TEST_F(CalculationRun, TheStatusLineTellsWhatTheValuesAreNotOf) {
    const auto status = [this] { return Main().lblStatus.Caption(); };
    Main().txtPctLoc.SetText("90");
    EXPECT_EQ(status(), "") << "there are no values yet";
    Main().cmdLossCalc.Press();
    Main().txtPctLoc.SetText("50");
    Main().txtPowerUnit.SetText("2");
    Main().txtPowerUnit.LostFocus.Raise();
    EXPECT_EQ(status(),
              "Changed since the values were computed: power, % of locations. Calculate again.");
    Main().txthm.SetText("2");
    EXPECT_EQ(status(), "The values are for earlier inputs: calculate again.");
    EXPECT_EQ(Main().lblDavidson.ToolTipText(), "For earlier inputs: calculate again");
    Main().cmdLossCalc.Press();
    EXPECT_EQ(status(), "");
    EXPECT_EQ(Main().lblDavidson.ToolTipText(), "");
}

TEST_F(CalculationRun, RecentInputsComeBackAlsoAtTheNextStart) {
    const auto entry = [](MainForm& main, std::size_t i) {
        return main.mnuToolsRecent.Entries().at(i);
    };
    for (int i = 0; i < 22; ++i) {
        Main().txtDist.SetText(std::to_string(10 + i));
        Main().cmdLossCalc.Press();
    }
    Main().txtDist.SetText("20.5");
    Main().txtPowerUnit.SetText("2.5");
    Main().txtPowerUnit.LostFocus.Raise();
    Main().cmdLossCalc.Press();
    Main().cmdLossCalc.Press();
    EXPECT_EQ(entry(Main(), 1)->Caption(),
              "31 km, 450 MHz, hb 100 m, hm 1.5 m, Urban, Small/Medium, 1000 W e.r.p., "
              "50 % of time, 50 % of locations");
    platform.answers.push(Answer::Ok);
    Main().mnuFileExit.Pick();
    Program next(platform.Services());
    next.Start();
    entry(*next.MainForm, 19)->Pick();
    EXPECT_EQ(next.MainForm->txtDist.Text(), "13.0");
    entry(*next.MainForm, 0)->Pick();
    EXPECT_EQ(next.MainForm->txtDist.Text(), "20.5");
    EXPECT_EQ(Trimmed(next.MainForm->txtPowerUnit.Text()), "2.5");
}

TEST_F(CalculationRun, ExitAsksFirst) {
    platform.answers.push(Answer::Cancel);
    Main().mnuFileExit.Pick();
    EXPECT_FALSE(platform.ended);
    Main().mnuFileExit.Pick();
    EXPECT_TRUE(platform.ended);
    EXPECT_EQ(platform.messages[0].title, "Loss Calculation Program");
}

}  // namespace
}  // namespace vardel
