#include <gmock/gmock.h>

#include "engine/measured/MeasuredFit.h"
#include "engine/measured/MeasuredMatchText.h"

namespace vardel {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

MeasuredTable TableOf(const char* text) {
    MeasuredTable table;
    EXPECT_FALSE(ParseMeasuredData(text, table));
    return table;
}

PathInputs UrbanPath() {
    return {.distance = 10,
            .frequency = 450,
            .hb = 100,
            .hm = 1.5,
            .area = "Urban",
            .city = "Small/Medium"};
}

TEST(MeasuredFit, StatisticsOfErrors) {
    const FitStatistics counted = StatisticsOf({1, 2, 6});
    EXPECT_EQ(counted.points, 3);
    EXPECT_DOUBLE_EQ(counted.mean, 3.0);
    EXPECT_NEAR(counted.deviation, 2.160247, 1e-6) << "of all points, not of a sample";
    EXPECT_NEAR(counted.rms, 3.696846, 1e-6);
    EXPECT_EQ(counted.BestConstant(), -3.0);
    EXPECT_EQ(StatisticsOf({}).points, 0);
}

// By hand P.529 has 49.305 dB(µV/m) at 10 km and 39.732 at 20 km, and knows nothing of 110 km.
TEST(MeasuredFit, CountsTheErrorsOfEachModelByDistance) {
    const MeasuredTable table =
        TableOf("0,450,0.5,Urban,1.5,2,50,100\n20,0,40.734\n10,0,47.302\n110,0,5\n-1,0,9\n");
    const auto fits = FitsOf(UrbanPath(), table[0], 1, {50, 90});
    ASSERT_EQ(fits.size(), 6U);
    EXPECT_THAT(FitTable(fits),
                HasSubstr("ITU 529, 50 % of locations\n"
                          "  all in range                             2       0.50       1.50"
                          "       1.58      -0.50\n"
                          "  10 to 20 km                              1       2.00       0.00"
                          "       2.00      -2.00\n"
                          "  20 to 50 km                              1      -1.00       0.00"
                          "       1.00       1.00\n"
                          "  out of range                             1 "));
    EXPECT_THAT(FitTable(fits), HasSubstr("not above zero: 1\n"));
    EXPECT_THAT(FitCsv(fits), HasSubstr("\r\nCost 231,90,all in range,0,,,,\r\n"));
    const CurvePlot plot = ErrorPlot(fits, 50);
    ASSERT_EQ(plot.size(), 4U) << "of ITU 529 two, of Cost 231 one";
    EXPECT_EQ(plot[1].pattern, LinePattern::OutOfRange);
    EXPECT_EQ(plot[1].distances, std::vector<double>{110});
    EXPECT_EQ(LegendText(plot), "ITU 529\r(cont.)\rDavidson\rCost 231");
}

TEST(MeasuredFit, TellsWhichTableFitsOrNearlyDoes) {
    const MeasuredTable table = TableOf(
        "0,900,0.5,Urban,1.5,1,100\n5,1\n0,450,0.5,urban,1.5,2,50,100\n5,1,2\n"
        "0,450,0.1,Open,3,1,30\n5,1\n");
    const auto text = [&table](const PathInputs& path) {
        const ModelInputs in = MetricInputs(path);
        return MatchText(path, table, FindMeasuredSegment(in.f, in.hb, in.hm, in.area, 0.5, table));
    };
    PathInputs path = UrbanPath();
    EXPECT_EQ(text(path),
              "Table 1 of measured.csv: 450 MHz, hb 100 m, hm 1.5 m, urban, 50 % of time");
    path.hb = 90;
    EXPECT_THAT(text(path), HasSubstr("The nearest:\n  Table 1 has hb 100 m instead of 90 m\n"
                                      "  Table 1 has hb 50 m instead of 90 m\n"
                                      "  Table 0 has 900 MHz instead of 450 MHz, hb 100 m"));
    path = UrbanPath();
    path.units = Units::English;
    path.hb = 328.084;
    path.hm = 4.9213;
    EXPECT_THAT(text(path), HasSubstr("\nHeights in feet are rounded"));
    EXPECT_THAT(MatchText(path, {}, {}), StartsWith("There are no measured data"));
}

}  // namespace
}  // namespace vardel
