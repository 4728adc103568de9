#include <gtest/gtest.h>

#include "archive/ArchivedInputs.h"
#include "archive/RunCsv.h"

namespace vardel {
namespace {

TEST(RunCsv, HasAColumnForEachCurveOrARowForEachPoint) {
    const RunRow run{7, "Okumura-Hata", "hb:100\r\nx", "on\nhill", "2026-03-09 14:05:00"};
    const std::string head = "# run 7, 2026-03-09 14:05:00\r\n# hb:100  x\r\n# on hill\r\n";
    EXPECT_EQ(RunCsv(run, {{"a", {1, 2.5}, {100.5, 110}, {}}, {"b, c", {1, 2.5}, {99, -8}, {}}}),
              head + "distance_km,a,\"b, c\"\r\n1,100.5,99\r\n2.5,110,-8\r\n");
    EXPECT_EQ(RunCsv(run, {{"a", {1}, {100.5}, {}}, {"b, c", {2, 3}, {99, 98}, {}}}),
              head + "curve,distance_km,value\r\na,1,100.5\r\n\"b, c\",2,99\r\n\"b, c\",3,98\r\n");
}

// The losses of the published formula at 450 MHz, 100 m, 1.5 m, small city: 111.32925023412 dB at
// 1 km, 31.8 dB more at 10 km.
TEST(ArchivedInputs, AreThoseThatGiveTheStoredCurves) {
    const auto units = [](const std::string& heights, double lossAt1, const char* legend) {
        const auto inputs =
            InputsOfRun(heights + ",frq:450.0,Urban,,Small/Medium,Power:1.kW e.r.p.,50%T,50%L",
                        {{legend, {1, 10}, {lossAt1, lossAt1 + 31.8}, {}}});
        return inputs ? inputs->path.units == Units::Metric ? "metric" : "English" : "none";
    };
    constexpr double Loss = 111.32925023412321;
    constexpr const char* Legend = "ITU 529 Urban";
    EXPECT_STREQ(units("hb:100.0,hm:1.5", Loss, Legend), "metric");
    EXPECT_STREQ(units("hb:328.0839895,hm:4.92125984", Loss, Legend), "English");
    EXPECT_STREQ(units("hb:100.0,hm:1.5", Loss + 1.0, Legend), "none");
    EXPECT_STREQ(units("hb:100.0,hm:1.5", Loss, "another model"), "none");
}

TEST(ArchivedInputs, NeedEachFieldOfTheLineAndAPoint) {
    const std::string good = "hb:100.0,hm:1.5,frq:450.0,Urban,,Large,Power:1.kW e.r.p.,50%T,50%L";
    const std::vector<CurveRow> curves = {{"Davidson Urban", {}, {}, {}}};
    EXPECT_FALSE(InputsOfRun(good, curves)) << "no point is as good as another";
    EXPECT_FALSE(InputsOfRun(good, {}));
    for (const char* part : {"hb:", "100.0", "hm:", "frq:", ",Power:", "kW e.r.p.", "%T", "%L"}) {
        std::string line = good;
        line.erase(line.find(part), std::string(part).size());
        EXPECT_FALSE(InputsOfRun(line, {{"ITU 529 Urban", {1}, {111.32925023412321}, {}}})) << line;
    }
}

}  // namespace
}  // namespace vardel
