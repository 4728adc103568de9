#include <gmock/gmock.h>

#include <limits>

#include "forms/graphs/FrmOkumFieldStrength.h"
#include "forms/graphs/GraphForm.h"
#include "models/Primitives.h"
#include "support/RunningProgram.h"

namespace vardel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Color Stale{50, 50, 50};
constexpr Color Pink{255, 150, 150};

class InputRules : public testing::Test, public RunningProgram {
protected:
    void Leave(TextBox& box, const std::string& text) {
        box.SetText(text);
        box.LostFocus.Raise();
    }
    void EnterPower(const std::string& text) { Leave(Main().txtPowerUnit, text); }
    std::string Boxes() {
        return Main().txtDist.Text() + ' ' + Main().txthb.Text() + ' ' + Main().txthm.Text();
    }
    std::string Reddened() {
        std::string names;
        for (TextBox* box : {&Main().txtFreq, &Main().txtDist, &Main().txthb, &Main().txthm})
            if (box->BackColor() != White) names += box->Name() + ' ';
        return names;
    }
};

TEST_F(InputRules, ABoxIsPutRightWhenItIsLeft) {
    const struct {
        TextBox MainForm::*box;
        const char* message;
        std::vector<std::pair<const char*, const char*>> good;  // typed, written back
        std::vector<const char*> bad;
        const char* replacement;
    } cases[] = {
        {&MainForm::txtFreq,
         "Valid Frequency Range 30Mhz to 2000 MHz",
         {{"30", "30.0"}, {"2000", "2000.0"}, {" 1 50MHz", "150.0"}, {"450.12345", "450.1235"}},
         {"29.9", "2000.1", "abc", "", "-100"},
         "150.0"},
        {&MainForm::txtDist,
         "Valid Range is  1 <= Distance <= 300 km",
         {{"1", "1.0"}, {"300", "300.0"}, {"1.23456", "1.2346"}},
         {"0.5", "300.1"},
         "10.0"},
        {&MainForm::txthb,
         "Valid Height of Base Station Antenna is 30m to 2500m",
         {{"20", "20.0"}, {"2500", "2500.0"}},
         {"19.9", "2501"},
         "20.0"},
        {&MainForm::txthm,
         "Valid Height of Mobile Antenna is 1m to 30m",
         {{"1", "1.0"}, {"30", "30.0"}},
         {"0.99", "30.5"},
         "1.0"},
        {&MainForm::txtPctTime,
         "Percent Time Range 1 to 99",
         {{"1", "1"}, {"99", "99"}, {"12.5", "13"}, {"12.4", "12"}},
         {"99.5", "0"},
         "50"},
        {&MainForm::txtPctLoc,
         "Percent Location Range 1 to 99",
         {{"1", "1"}, {"99", "99"}, {"12.50", "12.5"}},
         {"99.5", "0"},
         "50"},
    };
    for (const auto& c : cases) {
        TextBox& box = Main().*c.box;
        for (const auto& [typed, written] : c.good) {
            Leave(box, typed);
            EXPECT_EQ(box.Text(), written) << box.Name();
            EXPECT_THAT(platform.TakeMessages(), IsEmpty()) << box.Name() << ' ' << typed;
        }
        for (const char* typed : c.bad) {
            Leave(box, typed);
            EXPECT_EQ(box.Text(), c.replacement) << box.Name() << ' ' << typed;
            EXPECT_THAT(platform.TakeMessages(), ElementsAre(c.message)) << typed;
        }
    }
}

TEST_F(InputRules, ChangesThatReachTheModelsDarkenTheResults) {
    const std::pair<const char*, std::function<void()>> changes[] = {
        {"frequency", [&] { Main().txtFreq.SetText("451"); }},
        {"distance", [&] { Main().txtDist.SetText("11"); }},
        {"hb", [&] { Main().txthb.SetText("101"); }},
        {"hm", [&] { Main().txthm.SetText("2"); }},
        {"city", [&] { Main().cmbcitysize.SetText("Large"); }},
        {"area", [&] { Main().cmbareatype.SetText("Open"); }},
        {"units", [&] { Main().mnuUnitsEnglish.Pick(); }},
    };
    for (const auto& [what, change] : changes) {
        Main().cmdLossCalc.Press();
        EXPECT_EQ(Main().lblDavidson.StateText(), "In the model's range");
        EXPECT_EQ(Main().lblFCost231.StateText(), "Out of the model's range");
        const std::string caption = Main().lblDavidson.Caption();
        change();
        EXPECT_EQ(Main().lblDavidson.BackColor(), Stale) << what;
        EXPECT_EQ(Main().lblFCost231.BackColor(), Stale) << what;
        EXPECT_EQ(Main().lblDavidson.StateText(), "Not for the present inputs");
        EXPECT_EQ(Main().lblDavidson.Caption(), caption);
    }
    Main().mnuFileNew.Pick();
    Main().cmdLossCalc.Press();
    Main().mnuFileNew.Pick();
    EXPECT_EQ(Main().lblDavidson.BackColor(), Stale) << "though no input has changed";
    EXPECT_EQ(Main().lblFCost231.BackColor(), Black);
    EXPECT_EQ(Main().lblFCost231.StateText(), "Not for the present inputs");
    Main().cmdLossCalc.Press();
    Leave(Main().txtPctTime, "10");
    EnterPower("5");
    Main().cmbPowerUnit.SetText("dBm");
    EXPECT_EQ(Main().lblDavidson.BackColor(), White) << "power and percentages do not darken";
}

TEST_F(InputRules, TheAreaRulesTheCity) {
    Main().cmbcitysize.SetText("Large");
    Main().cmbareatype.SetText("Suburban");
    EXPECT_EQ(Main().cmbcitysize.Text(), "Small/Medium");
    EXPECT_FALSE(Main().cmbcitysize.Enabled());
    Main().cmbareatype.SetText("Urban");
    EXPECT_EQ(Main().cmbcitysize.Text(), "Small/Medium");
    EXPECT_TRUE(Main().cmbcitysize.Enabled());
}

TEST_F(InputRules, LeavingThePowerBoxSetsThePower) {
    const struct {
        const char* unit;
        const char* typed;
        const char* written;
        double watts;
    } cases[] = {
        {"W e.r.p.", "-5", " 1", 1},
        {"kW e.r.p.", "0", " 1", 1000},
        {"kW e.r.p.", "2.50", " 2.5", 2500},
        {"dBm", "-10", "-10", 0.0001},
        {"dBw", "0", " 0", 1},
        {"dBw", "x", " 0", 1},
        {"W e.r.p.", "x", " 1", 1},
        {"dBw", "99999", " 99999", std::numeric_limits<double>::max()},
        {"dBm", "-99999", "-99999", std::numeric_limits<double>::denorm_min()},
    };
    for (const auto& c : cases) {
        Main().cmbPowerUnit.SetText(c.unit);
        EnterPower(c.typed);
        EXPECT_EQ(Main().txtPowerUnit.Text(), c.written) << c.unit << ' ' << c.typed;
        EXPECT_NEAR(PowerWatts, c.watts, 1e-12 * c.watts) << c.unit << ' ' << c.typed;
    }
    EXPECT_THAT(platform.TakeMessages(), IsEmpty());
}

TEST_F(InputRules, TheUnitSwitchChangesWhatIsShownAndNotThePhysics) {
    Main().mnuUnitsEnglish.Pick();
    EXPECT_EQ(Boxes(), "6.2139 328.084 4.9213");
    EXPECT_TRUE(Main().mnuUnitsEnglish.Checked());
    EXPECT_FALSE(Main().mnuUnitsMetric.Checked());
    EXPECT_EQ(Main().Label10.Caption() + Main().Label11.Caption() + Main().Label12.Caption(),
              "ftftmiles");
    EXPECT_EQ(Main().MousePointer(), Form::Pointer::Normal);
    EXPECT_GE(platform.yields, 1);
    Main().mnuUnitsEnglish.Pick();
    EXPECT_EQ(Boxes(), "6.2139 328.084 4.9213") << "a second pick changes nothing";
    Main().cmdLossCalc.Press();
    EXPECT_EQ(Main().lblDavidson.Caption(), "143.13");
    Main().mnuUnitsMetric.Pick();
    EXPECT_EQ(Boxes(), "10.0 100.0 1.5");

    Main().mnuUnitsEnglish.Pick();
    Leave(Main().txthm, "30");  // feet, but within the numbers of the limits
    EXPECT_THAT(platform.TakeMessages(), IsEmpty());
    Main().mnuFileNew.Pick();
    EXPECT_EQ(Boxes(), "10.0 100.0 1.5") << "the defaults are not converted";
    EXPECT_TRUE(Main().mnuUnitsMetric.Checked());
    EXPECT_EQ(Main().Label12.Caption(), "Km");

    for (TextBox* box : {&Main().txthb, &Main().txthm, &Main().txtDist}) {
        Main().mnuFileNew.Pick();
        box->SetText("tall");
        const std::string before = Boxes();
        Main().mnuUnitsEnglish.Pick();
        EXPECT_EQ(Boxes(), before);
        EXPECT_TRUE(Main().mnuUnitsMetric.Checked());
        EXPECT_EQ(Main().MousePointer(), Form::Pointer::Normal);
        EXPECT_EQ(platform.TakeMessages().size(), 1U);
    }
}

// The graph forms, which a first switch makes, take marks and labels from the main form.
TEST_F(InputRules, TheMainFormHasTheNewUnitsBeforeAGraphFormIsMade) {
    std::vector<std::string> seen;
    platform.onYield = [&] {
        seen.push_back(Main().Label10.Caption() +
                       (Main().mnuUnitsEnglish.Checked() ? " English " : " ") +
                       Main().Label12.Caption() + ' ' + Boxes());
    };
    Main().mnuUnitsEnglish.Pick();
    EXPECT_THAT(seen, ElementsAre("m Km 10.0 100.0 1.5", "ft English miles 10.0 100.0 1.5",
                                  "ft English miles 10.0 100.0 1.5"));
    EXPECT_EQ(program.GraphForm->txthb.Text() + program.GraphForm->Label10.Caption(), "328.084ft");
    EXPECT_TRUE(program.FrmOkumFieldStrength->mnuUnitsEnglish.Checked());
}

TEST_F(InputRules, TheProgramMayBeClosedAtEachYieldOfASwitch) {
    for (int closing = 1; closing <= 3; ++closing) {
        FakePlatform its;
        Program closed{its.Services()};
        closed.Start();
        its.onYield = [&] {
            if (its.yields == closing) closed.MainForm->Unload();
        };
        closed.MainForm->mnuUnitsEnglish.Pick();
        EXPECT_TRUE(its.ended) << closing;
        EXPECT_FALSE(closed.MainForm.Loaded()) << closing;
    }
}

TEST_F(InputRules, AHeldModelNameTellsItsRange) {
    const struct {
        std::array<Label, 2> MainForm::*heads;
        const char *freq, *dist, *hb, *hm;
        const char* reddened;
    } cases[] = {
        {&MainForm::lblLCost231, "450", "10", "100", "1.5", "txtFreq "},
        {&MainForm::lblLDavidson, "450", "10", "25", "1.5", "txthb "},
        {&MainForm::lblLITU529, "1500", "100", "30", "10", ""},
        {&MainForm::lblLCost231, "1500", "1", "200", "1", ""},
        {&MainForm::lblLCost231, "2000", "100", "30", "10", ""},
        {&MainForm::lblLDavidson, "1500", "300", "2500", "10", ""},
        {&MainForm::lblLITU529, "149", "100.1", "201", "11", "txtFreq txtDist txthb txthm "},
        {&MainForm::lblLDavidson, "450", "0.9", "x", "0.9", "txtDist txthb txthm "},
    };
    for (const auto& c : cases) {
        Main().txtFreq.SetText(c.freq);
        Main().txtDist.SetText(c.dist);
        Main().txthb.SetText(c.hb);
        Main().txthm.SetText(c.hm);
        for (Label& head : Main().*c.heads) {
            head.MouseDown.Raise();
            EXPECT_EQ(Reddened(), c.reddened) << head.Caption();
            EXPECT_NE(Main().lblHelpRange.Caption(), "");
            head.MouseUp.Raise();
            EXPECT_EQ(Reddened(), "");
            EXPECT_EQ(Main().lblHelpRange.Caption(), "");
        }
    }
    Main().mnuFileNew.Pick();
    Main().mnuUnitsEnglish.Pick();
    Main().lblLDavidson[0].MouseDown.Raise();
    EXPECT_EQ(Reddened(), "") << "328 ft are 100 m";
    EXPECT_EQ(Main().lblHelpRange.Caption(),
              "Davidson> Freq: 30Mhz - 1500Mhz, hb: 30m - 2500m, hm: 1m - 10m, Dist: 1km - 300km");
}

TEST_F(InputRules, HidingBlacksOutFromTheNextRunOn) {
    constexpr Color Hidden{40, 40, 40};
    Main().cmdLossCalc.Press();
    Main().mnuHideShow.Pick();
    EXPECT_EQ(Main().mnuHideShow.Caption(), "&Show Out of Range Values");
    EXPECT_EQ(Main().lblcost231.BackColor(), Pink);
    Main().cmdLossCalc.Press();
    EXPECT_EQ(Main().lblcost231.BackColor(), Hidden);
    Main().lblLCost231[1].MouseDown.Raise();
    EXPECT_EQ(Main().txtFreq.BackColor(), Hidden);
    Main().mnuHideShow.Pick();
    EXPECT_EQ(Main().mnuHideShow.Caption(), "&Hide Out of Range Values");
    Main().cmdLossCalc.Press();
    EXPECT_EQ(Main().lblcost231.BackColor(), Pink);
}

}  // namespace
}  // namespace vardel
