#include "engine/PathRecord.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace vardel {
namespace {

constexpr const char* Record =
    "vardel-inputs: frequency_mhz=450.5 base_m=30.48 base_ft=100 mobile_m=1.524 mobile_ft=5 "
    "area=Urban city=Small/Medium time_percent=10 location_percent=90 power_w=1234.56789012 "
    "units=english";

std::string With(const std::string& from, const std::string& to) {
    std::string text = Record;
    return text.replace(text.find(from), from.size(), to);
}

TEST(PathRecord, ComesBackFromWhatStandsAroundIt) {
    const PathInputs path{.frequency = 450.5,
                          .hb = 100,
                          .hm = 5,
                          .units = Units::English,
                          .area = "Urban",
                          .city = "Small/Medium",
                          .pctTime = 10,
                          .pctLoc = 90,
                          .powerWatts = 1234.56789012};
    EXPECT_EQ(PathRecord(path), Record);
    for (const std::string& around : {std::string("<desc>@</desc>"), std::string("# @;;;\r\n0.1;"),
                                      std::string("\"# @\",,\n"), std::string("a\0b@\nc", 6)}) {
        std::string text = around;
        const auto read = PathOfRecord(text.replace(text.find('@'), 1, Record));
        ASSERT_TRUE(read) << around;
        EXPECT_EQ(PathRecord(*read), Record) << around;
    }
    std::string cells = Record;
    std::replace(cells.begin(), cells.end(), ' ', ';');
    EXPECT_TRUE(PathOfRecord("# " + cells + ";;\n"));
    const auto metric = PathOfRecord(With("units=english", "units=metric"));
    EXPECT_EQ(metric->hb, 30.48);
    EXPECT_EQ(metric->hm, 1.524);

    // 1.55555555555556 / 0.3048, as the height is written
    PathInputs exact = *metric;
    exact.hm = 1.5555555555555556;
    EXPECT_NE(PathRecord(exact).find("mobile_ft=5.10352872557598 "), std::string::npos);
}

TEST(PathRecord, NothingOfWhatNoBoxWouldTake) {
    for (const auto& [from, to] :
         {std::pair("vardel-inputs", "inputs"), std::pair("450.5", "29"), std::pair("450.5", "nan"),
          std::pair("=100", "="), std::pair("=100", "=1e9"), std::pair("Urban", "Forest"),
          std::pair("Small/Medium", "Tiny"), std::pair("=10 ", "=0 "), std::pair("=90", "=100"),
          std::pair("1234.56789012", "-1"), std::pair("power_w=", "power="),
          std::pair("mobile_ft=5", "mobile_ft=5\n")})
        EXPECT_FALSE(PathOfRecord(With(from, to))) << from << " -> " << to;
}

}  // namespace
}  // namespace vardel
