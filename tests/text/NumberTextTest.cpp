#include "text/NumberText.h"

#include <gtest/gtest.h>

#include <clocale>
#include <initializer_list>
#include <limits>
#include <locale>
#include <optional>
#include <string_view>
#include <utility>

namespace vardel {

namespace {

void ExpectNumbers(std::string_view pattern,
                   std::initializer_list<std::pair<double, std::string_view>> cases) {
    for (const auto& [x, text] : cases)
        EXPECT_EQ(FormatNumber(x, pattern), text) << x << " by " << pattern;
}

// Halves are those of the decimal digits: 2.675 and 100 times 0.285 or 0.575 are less in binary.
TEST(NumberText, FormatNumber) {
    ExpectNumbers("00000.00", {{12.5, "00012.50"}, {-12.3, "-00012.30"}, {-0.004, "00000.00"}});
    ExpectNumbers("###0.00", {{12.5, "12.50"}, {0.5, "0.50"}, {-0.0, "0.00"}, {2.675, "2.68"}});
    ExpectNumbers("0.00", {{0.005, "0.01"}, {0.0049, "0.00"}, {0.0005, "0.00"}});
    ExpectNumbers("0.00", {{-9.995, "-10.00"}, {123456.789, "123456.79"}});
    ExpectNumbers("000000.0", {{1000, "001000.0"}});
    ExpectNumbers("###.##", {{1, "1."}, {0.256, ".26"}});
    ExpectNumbers("#0", {{0.4999, "0"}, {0.5, "1"}, {2.5, "3"}, {-1.5, "-2"}});
    ExpectNumbers("#####0.0###", {{450, "450.0"}, {1.25, "1.25"}, {1.23456, "1.2346"}});
    ExpectNumbers("#####0.0###", {{999999.99996, "1000000.0"}, {1e15, "1000000000000000.0"}});
    ExpectNumbers("0000000.000000000000", {{1e-12, "0000000.000000000001"}});
    ExpectNumbers("00%", {{0.5, "50%"}, {0.05, "05%"}, {0.075, "08%"}, {1, "100%"}});
    ExpectNumbers("00%", {{0.285, "29%"}, {0.575, "58%"}, {-0.075, "-08%"}});
}

TEST(NumberText, ShortestText) {
    const std::pair<double, std::string_view> cases[] = {
        {0.5, "0.5"}, {12.5, "12.5"}, {100, "100"}, {-3, "-3"}, {-0.0, "0"}, {0.1 + 0.2, "0.3"}};
    for (const auto& [x, text] : cases) EXPECT_EQ(ShortestText(x), text);
    EXPECT_EQ(ShortestText(2.0 / 3.0), "0.666666666666667");
    EXPECT_EQ(ShortestText(-std::numeric_limits<double>::infinity()), "-inf");
    EXPECT_EQ(ShortestText(1e-12), "0.000000000001");
    EXPECT_EQ(ShortestText(1e15), "1000000000000000");
}

TEST(NumberText, FixedWidthNumber) {
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"00010.00", "      10"}, {"0123.46", " 123.46"},     {"-0012.30", "  -12.3"},
        {"0000.00", "      0"},   {"-0123.46", "-123.46"},    {"-1234.56", "-1234.5"},
        {"-0000.50", "   -0.5"},  {"123456.79", "123456.79"}, {"000.001000", "     0.001"}};
    for (const auto& [text, field] : cases) EXPECT_EQ(FixedWidthNumber(text), field) << text;
}

TEST(NumberText, TextToNumber) {
    constexpr double Largest = std::numeric_limits<double>::max();
    const std::pair<std::string_view, double> whole[] = {
        {"450.0", 450}, {"   7.5 ", 7.5}, {"-3", -3}, {"+7", 7}, {".5", 0.5}, {"5.", 5}};
    for (const auto& [text, x] : whole) {
        EXPECT_EQ(LeadingNumber(text), x) << text;
        EXPECT_EQ(WholeTextNumber(text), x) << text;
    }
    EXPECT_EQ(WholeTextNumber(std::string_view("12.5", 2)), 12);
    const std::pair<std::string_view, double> leadingOnly[] = {
        {"12abc", 12}, {"1 2", 12}, {"1,5", 1},           {"1.2.3", 1.2},
        {"12e", 12},   {"", 0},     {"   ", 0},           {"-", 0},
        {".", 0},      {"--5", 0},  {"1e-400 m", 0},      {"nan", 0},
        {"inf", 0},    {"0x10", 0}, {"1e400 m", Largest}, {"-1e400 m", -Largest}};
    for (const auto& [text, x] : leadingOnly) {
        EXPECT_EQ(LeadingNumber(text), x) << "'" << text << "'";
        EXPECT_EQ(WholeTextNumber(text), std::nullopt) << "'" << text << "'";
    }
}

TEST(NumberText, FormatText) {
    EXPECT_EQ(FormatText("Urban", "@@@@@@@@!"), "Urban   ");
    EXPECT_EQ(FormatText("Small/Medium", "@@@@@@@@!"), "Small/Medium");
}

TEST(NumberText, FormatDateTime) {
    EXPECT_EQ(FormatDateTime({2024, 1, 5, 0, 7}), "01/05/2024 12:07 am");
    EXPECT_EQ(FormatDateTime({1999, 12, 31, 12, 0}), "12/31/1999 12:00 pm");
    EXPECT_EQ(FormatDateTime({2031, 10, 9, 23, 5}), "10/09/2031 11:05 pm");
}

TEST(NumberText, CommaLocaleChangesNothing) {
    ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr) << "LOCPATH must lead to the locale";
    const std::locale before = std::locale::global(std::locale("de_DE.UTF-8"));
    EXPECT_STREQ(std::localeconv()->decimal_point, ",");
    EXPECT_EQ(FormatNumber(1234567.25, "###0.00"), "1234567.25");
    EXPECT_EQ(ShortestText(12345.5), "12345.5");
    EXPECT_EQ(FixedWidthNumber("-0012.30"), "  -12.3");
    EXPECT_EQ(LeadingNumber("1234.5 km"), 1234.5);
    EXPECT_EQ(WholeTextNumber("1234.5"), 1234.5);
    EXPECT_EQ(WholeTextNumber("12,5"), std::nullopt);
    EXPECT_EQ(FormatDateTime({2024, 1, 5, 13, 7}), "01/05/2024 01:07 pm");
    std::locale::global(before);  // and the C library's with it
}

}  // namespace

}  // namespace vardel
