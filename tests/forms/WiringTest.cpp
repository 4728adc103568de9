#include <gmock/gmock.h>

#include "forms/graphs/FrmOkumFieldStrength.h"
#include "forms/graphs/GraphForm.h"
#include "forms/reports/frmLogDistRange.h"
#include "support/RunningProgram.h"
#include "text/NumberText.h"

// Where the models differ from each other, each value stands in its place: at 900 MHz, 60 km and
// 250 m, urban, computed by hand from the published formulas.

namespace vardel {
namespace {

using testing::ElementsAre;

class Wiring : public testing::Test, public RunningProgram {
protected:
    Wiring() {
        Main().txtFreq.SetText("900");
        Main().txtDist.SetText("60");
        Main().txthb.SetText("250");
    }

    // Each curve at 60 km, the point of this index.
    static std::vector<std::string> At60Km(const Chart& chart, std::size_t index,
                                           std::size_t count) {
        std::vector<std::string> values;
        for (std::size_t i = 0; i < count; ++i) {
            const ChartSeries& series = chart.AllSeries().at(i);
            EXPECT_NEAR(series.X.at(index), 60.0, 1e-9);
            values.push_back(series.Curve + ' ' + FormatNumber(series.Y[index], "0.000"));
        }
        return values;
    }
};

TEST_F(Wiring, EachResultHasItsLabelAndItsColumn) {
    Main().cmdLossCalc.Press();
    EXPECT_THAT(
        (std::vector<std::string>{Main().lblOH529dBLoss.Caption(), Main().lblDavidson.Caption(),
                                  Main().lblcost231.Caption(), Main().lblFITU529.Caption(),
                                  Main().lblPalvernDavFS.Caption(), Main().lblFCost231.Caption()}),
        ElementsAre("175.16", "178.69", "174.77", "23.30", "19.76", "23.67"));
    const std::string columns =
        "      60     900     250     1.5 Urban     Small/Medium 178.69  174.77  175.16    23.3"
        "   19.76   23.67  50% 50% Metric     1000 03/09/2026 02:05 pm";
    EXPECT_EQ(LastLine(), columns);

    frmLogDistRange& range = *program.frmLogDistRange;
    range.txtStart.SetText("60");
    range.txtEnd.SetText("60");
    range.cmdLogDistRange.Press();
    EXPECT_EQ(Log().Text(), columns + "\r\n\r\n");

    Main().txtPctTime.SetText("10");
    Main().txtPctLoc.SetText("90");
    Main().cmdLossCalc.Press();
    EXPECT_EQ(Main().lblDavidson.Caption(), "185.69");
    EXPECT_THAT(LastLine(), testing::HasSubstr(" 10% 90% "));
}

TEST_F(Wiring, EachCurveIsThatOfItsName) {
    EXPECT_THAT(At60Km(program.GraphForm->CTWX1, 590, 3),
                ElementsAre("ITU 529 175.159", "Davidson 178.687", "Cost 231 174.775"));

    program.GraphMode = FieldStrengthGraph::Comparison;
    FrmOkumFieldStrength& form = *program.FrmOkumFieldStrength;
    EXPECT_THAT(At60Km(form.CTWXfs, 599, 3),
                ElementsAre("ITU 529 23.296", "OkHat Dav 19.758", "Cost 231 23.670"));
    const struct {
        FieldStrengthGraph graph;
        const char* title;
        const char* lowest;
        const char* highest;
    } families[] = {
        {FieldStrengthGraph::Davidson, "Okumura-Hata-Davidson", "hb=30m -0.260", "hb=200m 17.651"},
        {FieldStrengthGraph::Itu529, "Okumura-Hata IUT-R P.529", "hb=30m 2.248", "hb=200m 21.295"},
        {FieldStrengthGraph::Us, "US", "hb=30m 2.396", "hb=200m 18.874"},
        {FieldStrengthGraph::Cost231, "Cost 231", "hb=30m 2.622", "hb=200m 21.670"},
    };
    for (const auto& family : families) {
        form.SelectPlot(family.graph);
        const auto values = At60Km(form.CTWXfs, 599, 6);
        EXPECT_EQ(values.front(), family.lowest);
        EXPECT_EQ(values.back(), family.highest);
        EXPECT_THAT(form.CTWXfs.Title[1].Text,
                    testing::StartsWith(family.title + std::string(" Field Strength, ")));
    }
}

TEST_F(Wiring, EachBoxOfAGraphGoesBackToItsOwn) {
    GraphForm& graph = *program.GraphForm;
    graph.txtFreq.SetText("910");
    graph.txthb.SetText("110");
    graph.txthm.SetText("2.5");
    graph.txtPctTime.SetText("20");
    graph.txtPctLoc.SetText("80");
    graph.cmbcitysize.SetText("Large");
    graph.Unload();
    EXPECT_THAT((std::vector<std::string>{Main().txtFreq.Text(), Main().txthb.Text(),
                                          Main().txthm.Text(), Main().txtPctTime.Text(),
                                          Main().txtPctLoc.Text(), Main().cmbcitysize.Text()}),
                ElementsAre("910", "110", "2.5", "20", "80", "Large"));
    program.FrmOkumFieldStrength->cmbareatype.SetText("Open");
    program.FrmOkumFieldStrength->Unload();
    EXPECT_EQ(Main().cmbareatype.Text(), "Open");
    EXPECT_EQ(Main().txtDist.Text(), "60");
}

TEST(HostWiring, TheHostGetsMetricValuesBack) {
    FakePlatform host;
    host.store["Ostrel_Quorne/Global Parameters/CalledFromQuorne"] = "True";
    Program program(host.Services());
    program.Start();
    MainForm& main = *program.MainForm;
    main.mnuUnitsEnglish.Pick();
    const struct {
        TextBox& box;
        const char* text;
        const char* parameter;
        const char* stored;
    } rows[] = {
        {main.txtPctTime, "10", "PctTime_pct", "0.1"}, {main.txtPctLoc, "90", "PctLoc_pct", "0.9"},
        {main.txthb, "1000", "TxHt_m", "304.8"},       {main.txthm, "10", "RxHt_m", "3.048"},
        {main.txtDist, "10", "Dist_Km", "16.093"},     {main.txtFreq, "900", "TxFreq_MHz", "900"},
    };
    for (const auto& row : rows) row.box.SetText(row.text);
    main.Unload();
    for (const auto& row : rows)
        EXPECT_EQ(host.store["Ostrel_Quorne/Global Parameters/" + std::string(row.parameter)],
                  row.stored);
}

}  // namespace
}  // namespace vardel
