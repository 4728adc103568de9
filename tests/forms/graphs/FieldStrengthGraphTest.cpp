#include <gmock/gmock.h>

#include "forms/graphs/FrmOkumFieldStrength.h"
#include "forms/graphs/GraphForm.h"
#include "models/ModCalculations.h"
#include "services/Files.h"
#include "support/RunningProgram.h"

namespace vardel {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class FieldStrengthGraphs : public testing::Test, public RunningProgram {
protected:
    FrmOkumFieldStrength& Graph() { return *program.FrmOkumFieldStrength; }
    const Chart& TheChart() { return Graph().CTWXfs; }
    // Of each visible series the number of points and the pattern.
    std::vector<std::pair<std::size_t, int>> Shown() {
        std::vector<std::pair<std::size_t, int>> shown;
        for (const ChartSeries& series : TheChart().AllSeries())
            if (series.Visible) shown.emplace_back(series.X.size(), series.LineStyle);
        return shown;
    }
    // From the main form's menu, as a user opens it.
    void WhileOpen(MenuItem& entry, const std::function<void()>& action) {
        bool shown = false;
        platform.whileShown["FrmOkumFieldStrength"] = [&] {
            shown = true;
            action();
            Graph().CloseByFrame();
        };
        entry.Pick();
        EXPECT_TRUE(shown);
        EXPECT_FALSE(program.FrmOkumFieldStrength.Loaded());
    }
    void Plot300() {
        Graph().mnuModelDist300.Pick();
        Graph().cmdUpdateGraph.Press();
    }
    bool IsGood() { return Graph().cmdUpdateGraph.PictureFile() == Graph().GoodPicture; }
};

constexpr const char* FamilyLegend =
    "hb=30m\rhb=50m\rhb=70m\rhb=100m\rhb=150m\rhb=200m\rFree Space";

TEST_F(FieldStrengthGraphs, FamiliesOfEachModelAtBothDistances) {
    using Series = std::vector<std::pair<std::size_t, int>>;
    const Series inRange(6, {1000, 0});
    const auto with = [](Series series, std::pair<std::size_t, int> last) {
        series.push_back(last);
        return series;
    };
    const std::pair<std::size_t, int> free100{991, 2};
    const std::pair<std::size_t, int> free300{2991, 2};
    Series broken;
    for (int height = 0; height < 6; ++height) {
        broken.emplace_back(1000, 0);
        broken.emplace_back(2000, 3);
    }
    Main().txthm.SetText("2");  // 200 m is beyond what the US variant covers then
    const struct {
        void (*select)(FrmOkumFieldStrength&);
        const char* title;
        Series at100;
        Series at300;
    } cases[] = {
        {[](FrmOkumFieldStrength& form) { form.mnuModelPalvernFS.Pick(); },
         "Okumura-Hata-Davidson Field Strength, 03/09/2026 02:05 pm", inRange,
         Series(6, {3000, 0})},
        {[](FrmOkumFieldStrength& form) { form.mnuModelOkum529FS.Pick(); },
         "Okumura-Hata IUT-R P.529 Field Strength, 03/09/2026 02:05 pm", inRange, broken},
        {[](FrmOkumFieldStrength& form) { form.SelectUsPlot(); },
         "US Field Strength, 03/09/2026 02:05 pm", with(Series(5, {1000, 0}), {1000, 3}),
         with(Series(5, {3000, 0}), {3000, 3})},
        {[](FrmOkumFieldStrength& form) { form.mnuModelCost231.Pick(); },
         "Cost 231 Field Strength, 03/09/2026 02:05 pm", Series(6, {1000, 3}),
         Series(6, {3000, 3})},
    };
    for (const auto& c : cases) {
        Graph().mnuModelDist100.Pick();
        c.select(Graph());
        EXPECT_EQ(TheChart().Title[1].Text, c.title);
        EXPECT_EQ(Shown(), with(c.at100, free100)) << c.title;
        EXPECT_EQ(TheChart().Legend.Text, FamilyLegend);
        std::vector<Color> colors;
        for (int i = 0; i < 6; ++i) colors.push_back(Graph().CTWXfs.Series(i).LineColor);
        EXPECT_THAT(colors, ElementsAre(Color{0, 128, 0}, Color{255, 0, 0}, Color{0, 0, 180},
                                        Color{255, 0, 255}, Color{0, 0, 0}, Color{0, 200, 200}));
        EXPECT_EQ(TheChart().Axis[0].MajorStep, 10);
        Plot300();
        EXPECT_EQ(Shown(), with(c.at300, free300)) << c.title;
        EXPECT_EQ(TheChart().Axis[0].MajorStep, 50);
    }
    Graph().mnuModelOkum529FS.Pick();
    EXPECT_EQ(TheChart().AllSeries()[1].X.front(), 100.09999999999859);
    EXPECT_THAT(TheChart().Legend.Text, StartsWith("hb=30m\r(cont.)\rhb=50m\r(cont.)\r"));
    EXPECT_EQ(TheChart().AllSeries()[12].X.front(), 1.0) << "free space";
    EXPECT_EQ(TheChart().AllSeries()[12].LineColor, (Color{200, 200, 200}));
    EXPECT_EQ(TheChart().Axis[1].Minimum, -10);
    EXPECT_EQ(TheChart().Axis[1].Maximum, 110);
}

TEST_F(FieldStrengthGraphs, EveryPointIsTheModelsAtTheFamilysHeight) {
    PowerWatts = 2500.0;
    Main().mnuUnitsEnglish.Pick();
    Graph().txthb.SetText("999");
    Graph().txtPctTime.SetText("10");
    Graph().mnuModelCost231.Pick();
    EXPECT_EQ(TheChart().Title[2].Text,
              "Frq:450.0MHz, Ant Hm:4.9213m, Area:Urban, City Size:Small/Medium, "
              "Power:2.5kW e.r.p.,10%time,50%Loc");
    for (const auto& [series, hb] : {std::pair(0U, 30.0), std::pair(5U, 200.0)})
        for (const std::size_t i : {0U, 9U, 999U}) {
            const ChartSeries& curve = TheChart().AllSeries()[series];
            const ModelInputs in{450,     curve.X[i],     hb, 4.9213 * 0.3048,
                                 "Urban", "Small/Medium", 10, 50};
            EXPECT_EQ(curve.Y[i], Cost231FieldStrength(in)) << hb << ' ' << i;
        }
    EXPECT_EQ(TheChart().AllSeries()[0].X[9], 0.9999999999999999);
    EXPECT_NEAR(TheChart().AllSeries()[6].Y[90], 87.0, 1e-9) << "free space at 10 km, no power";
    PowerWatts = 1000.0;
}

// The measured table fits the main form's default inputs.
class Comparison : public FieldStrengthGraphs {
protected:
    Comparison() {
        ReplaceFile(platform.folder.Path("measured.csv"),
                    "0,450,0.5,\"urban\",1.5,2,30,100\n2,70,71\n30.5,40,41\n90,20,21\n");
        ReadMeasuredData(platform.folder.Path("measured.csv"), program.MeasuredTable, platform);
    }
};

TEST_F(Comparison, ThreeModelsFreeSpaceAndWhatWasMeasured) {
    WhileOpen(Main().mnuGraphCompare, [&] {
        EXPECT_EQ(TheChart().Redraws(), 0);
        EXPECT_TRUE(Graph().txthb.Enabled());
        EXPECT_THAT(Shown(), ElementsAre(std::pair(1000, 0), std::pair(1000, 0), std::pair(1000, 3),
                                         std::pair(991, 2)));
        EXPECT_EQ(TheChart().Legend.Text, "ITU 529\rOkHat Dav\rCost 231\rFree Space");
        EXPECT_EQ(TheChart().Title[2].Text,
                  "Frq:450.0MHz, Ant Hb:100.0m, Ant Hm:1.5m, Area:Urban, City Size:Small/Medium, "
                  "Power:1.kW e.r.p.,50%time,50%Loc");
        Graph().mnuGraphMeasured.Pick();
        EXPECT_EQ(Graph().mnuGraphMeasured.Caption(), "&Hide Measured Data");
        EXPECT_EQ(Shown().size(), 4U) << "until the next plot";
        EXPECT_TRUE(IsGood());
        Graph().cmdUpdateGraph.Press();
        ASSERT_EQ(Shown().size(), 5U);
        const ChartSeries& measured = TheChart().AllSeries()[4];
        EXPECT_THAT(measured.X, ElementsAre(2, 30.5, 90));
        EXPECT_THAT(measured.Y, ElementsAre(71, 41, 21));
        EXPECT_EQ(measured.LineColor, (Color{0, 200, 200}));
        EXPECT_TRUE(measured.SinglePoints);
        EXPECT_THAT(TheChart().Legend.Text, testing::EndsWith("Free Space\rMeasured"));

        // What fits no longer, or is a family, shows none; and a series that showed it is plain.
        Graph().txtPctTime.SetText("49");
        Graph().cmdUpdateGraph.Press();
        EXPECT_EQ(Shown().size(), 4U);
        Graph().txtPctTime.SetText("50");
        Graph().mnuModelPalvernFS.Pick();
        EXPECT_EQ(TheChart().Legend.Text, FamilyLegend);
        EXPECT_FALSE(TheChart().AllSeries()[4].SinglePoints);
    });
    EXPECT_EQ(Main().mnuGraphMeasured.Caption(), "&Hide Measured Data");
    Main().mnuGraphMeasured.Pick();
    EXPECT_EQ(Main().mnuGraphMeasured.Caption(), "&Show Measured Data");
    EXPECT_FALSE(program.ShowMeasuredData);
}

TEST_F(FieldStrengthGraphs, ModelsChangeAtOnceAndDistancesWithTheNextPlot) {
    WhileOpen(Main().mnuOkum529GraphFieldStrength, [&] {
        EXPECT_TRUE(Graph().mnuModelOkum529FS.Checked());
        EXPECT_FALSE(Graph().txthb.Enabled());
        EXPECT_TRUE(IsGood());
        Graph().mnuModelDist100.Pick();
        EXPECT_TRUE(IsGood()) << "it was there already";
        Graph().mnuModelDist300.Pick();
        EXPECT_FALSE(IsGood());
        EXPECT_EQ(TheChart().Axis[0].Maximum, 100);
        Graph().mnuModelCompare.Pick();
        EXPECT_EQ(TheChart().Axis[0].Maximum, 300);
        EXPECT_TRUE(Graph().txthb.Enabled());
        EXPECT_TRUE(Graph().mnuModelCompare.Checked());
        EXPECT_FALSE(Graph().mnuModelOkum529FS.Checked());
        EXPECT_FALSE(Graph().mnuModelCost231.Checked());
        EXPECT_FALSE(IsGood()) << "though the plot has taken in all the inputs";
        Graph().cmdUpdateGraph.Press();
        EXPECT_TRUE(IsGood());
        Graph().SelectUsPlot();
        EXPECT_FALSE(Graph().mnuModelCompare.Checked());
        EXPECT_TRUE(Graph().txthb.Enabled()) << "as it was";

        Graph().txthm.SetText("tall");
        const auto before = Shown();
        Graph().mnuModelCost231.Pick();
        EXPECT_THAT(platform.TakeMessages(),
                    ElementsAre("Mobile Antenna must be a number, not \"tall\""));
        EXPECT_EQ(Shown(), before);
        EXPECT_FALSE(IsGood());
        Graph().txthm.LostFocus.Raise();
        EXPECT_EQ(Graph().txthm.Text(), "1.0");
    });
    EXPECT_EQ(Main().txthm.Text(), "1.0");
    WhileOpen(Main().mnuOkumGraphFieldStrength,
              [&] { EXPECT_TRUE(Graph().mnuModelPalvernFS.Checked()); });
}

TEST_F(FieldStrengthGraphs, PowerGoesToTheMainFormAtOnce) {
    Main().txtPowerUnit.SetText(" 2");
    Main().txtPowerUnit.LostFocus.Raise();
    platform.messages.clear();
    EXPECT_EQ(Graph().txtPowerUnit.Text(), " 2") << "and opening rewrites nothing";
    EXPECT_EQ(Main().txtPowerUnit.Text(), " 2");
    const struct {
        const char* unit;
        const char* converted;
        const char* typed;
        const char* left;
        double watts;
    } cases[] = {
        {"dBm", "63.0103", "-3", "-3", 0.000501187233627272},
        {"W e.r.p.", "0.000501187234", "-3", " 1", 1.0},
        {"dBw", "0", "30", " 30", 1000.0},
        {"kW e.r.p.", "1", "0", " 1", 1000.0},
    };
    for (const auto& c : cases) {
        Graph().cmdUpdateGraph.Press();
        Graph().cmbPowerUnit.SetText(c.unit);
        EXPECT_TRUE(IsGood());
        EXPECT_EQ(Graph().txtPowerUnit.Text(), c.converted) << c.unit;
        EXPECT_EQ(Main().txtPowerUnit.Text(), c.converted);
        EXPECT_EQ(Main().cmbPowerUnit.Text(), c.unit);
        Graph().txtPowerUnit.SetText(c.typed);
        Graph().txtPowerUnit.LostFocus.Raise();
        EXPECT_EQ(Graph().txtPowerUnit.Text(), c.left) << c.unit;
        EXPECT_EQ(Main().txtPowerUnit.Text(), c.left);
        EXPECT_DOUBLE_EQ(PowerWatts, c.watts);
        EXPECT_FALSE(IsGood());
        EXPECT_THAT(platform.TakeMessages(), IsEmpty());
    }
}

TEST_F(FieldStrengthGraphs, UnitsOfAFormMadeHidden) {
    Main().mnuUnitsEnglish.Pick();
    ASSERT_TRUE(program.FrmOkumFieldStrength.Loaded());
    EXPECT_EQ(Graph().txthb.Text(), "328.084");
    EXPECT_EQ(Graph().Label10.Caption(), "ft");
    Main().txthb.SetText("500.0");
    Main().cmbPowerUnit.SetText("dBm");
    Main().mnuGraphMeasured.Pick();
    WhileOpen(Main().mnuGraphCompare, [&] {
        EXPECT_EQ(Graph().cmbPowerUnit.Text() + Graph().txtPowerUnit.Text(), "dBm60");
        EXPECT_EQ(Graph().mnuGraphMeasured.Caption(), "&Hide Measured Data");
        EXPECT_EQ(Graph().txthb.Text(), "328.084") << "as the switch has left it";
        EXPECT_THAT(Graph().lblHandBack.Caption(), HasSubstr("Antenna 328.084 instead of 500.0"));
        EXPECT_TRUE(Graph().mnuModelCompare.Checked());
        EXPECT_THAT(TheChart().Title[1].Text, StartsWith("Field Strength Model Comparison"));
        EXPECT_TRUE(Graph().txthb.Enabled());
    });
    EXPECT_EQ(Main().txthb.Text(), "328.084") << "handed back as it stood";
    Main().txthb.SetText("400.0");
    WhileOpen(Main().mnuGraphCompare, [&] {
        EXPECT_EQ(Graph().txthb.Text(), "400.0") << "afresh from now on";
        Main().mnuFileNew.Pick();
        EXPECT_EQ(Graph().Label10.Caption(), "ft");
        EXPECT_TRUE(Graph().mnuUnitsEnglish.Checked());
        Graph().mnuUnitsEnglish.Pick();
        EXPECT_EQ(Graph().txthb.Text(), "328.084") << "of the main form's new inputs";
    });
}

TEST_F(FieldStrengthGraphs, AFormThatASwitchMadeIsOpenedAfterNew) {
    Main().mnuUnitsEnglish.Pick();
    Main().mnuFileNew.Pick();
    WhileOpen(Main().mnuGraphCompare, [&] {
        EXPECT_EQ(Graph().txthb.Text() + Graph().Label10.Caption(), "100.0m");
        EXPECT_TRUE(IsGood());
    });
    EXPECT_EQ(Main().txthb.Text(), "100.0");

    // Closed at the yield of the plot that brings it up to date.
    Main().mnuUnitsEnglish.Pick();
    Main().mnuFileNew.Pick();
    platform.onYield = [&] {
        platform.onYield = nullptr;
        Graph().Unload();
    };
    WhileOpen(Main().mnuGraphCompare, [&] { EXPECT_EQ(Graph().txthb.Text(), "100.0"); });
}

}  // namespace
}  // namespace vardel
