#include "cli/Program.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <system_error>

#include "cli/Calc.h"

namespace vardel::cli {
namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* Added =
    "itu529_loss_db,itu529_field_dbuvm,itu529_in_range,davidson_loss_db,davidson_field_dbuvm,"
    "davidson_in_range,cost231_loss_db,cost231_field_dbuvm,cost231_in_range,error";

// Hata's formula by itself: 143.129250234123 dB.
TEST(Program, OnePath) {
    EXPECT_THAT(Calc({"--frequency", "450"}).output,
                AllOf(HasSubstr("ITU 529   143.129250234123    49.3050000413837 "),
                      HasSubstr("yes\nCost 231  140.415"), EndsWith("no\n")));
    EXPECT_THAT(Calc({"--json", "--power=2", "--power-unit=kw"}).output,
                HasSubstr("\"itu529_field_dbuvm\":52.315299"));
    EXPECT_THAT(Calc({"curve", "--start=10"}).output,
                HasSubstr("\n10,143.129250234123,49.3050000413837,yes,"));
    EXPECT_THAT(Calc({"--dist=6.21388", "--units=english", "--power-unit", "dbm", "--power", "60",
                      "--json"})
                    .output,
                StartsWith("{\"itu529_loss_db\":143.1292"));
}

TEST(Program, WrongUsage) {
    const std::pair<std::vector<std::string>, const char*> cases[] = {
        {{"--height", "3"}, "unknown option --height"},
        {{"--base"}, "--base-height needs a value"},
        {{"--json=1"}, "--json takes no value"},
        {{"-q"}, "unknown option -q"},
        {{"plot"}, "unknown command 'plot'"},
        {{"--frequency", "4,5"}, "--frequency: '4,5' has a decimal comma"},
        {{"--frequency", "29"}, "Valid Frequency Range"},
        {{"--percent-time", "0.5"}, "--percent-time: '0.5' is not from 1 to 99"},
        {{"--locations", "99.5"}, "--locations: '99.5' is not from 1 to 99"},
        {{"--area", "Forest"}, "--area: 'Forest' is not one of Urban, Suburban, Open"},
        {{"--power", "-3"}, "--power: '-3' is no power"},
        {{"--power-unit", "w"}, "--power-unit needs --power"},
        {{"--step", "1"}, "--step does not go with a single path"},
        {{"batch"}, "batch needs a file"},
        {{"batch", "a", "b"}, "too much: 'b'"},
        {{"batch", "a", "--threads", "0"}, "--threads: a whole number"},
        {{"curve", "--distance", "3"}, "--distance does not go with curve"},
        {{"curve", "--end", "400"}, "Valid Range is 0 < Distance"},
        {{"curve", "--step", "-1"}, "--step is not above zero"},
        {{"curve", "--step", "1e-9"}, "--step is too small"},
        {{"curve", "--start", "50", "--end", "5"}, "--end is before --start"},
        {{"reach"}, "reach needs one of"},
        {{"reach", "--path-loss", "1", "--field-strength", "1"}, "reach needs one of"},
        {{"reach", "--path-loss", "1", "--cable-loss", "1"}, "go with --received-power"},
    };
    for (const auto& [words, error] : cases) {
        const Outcome outcome = Calc(words);
        EXPECT_EQ(outcome.status, ExitStatus::WrongUsage) << error;
        EXPECT_EQ(outcome.output, "") << error;
        EXPECT_THAT(outcome.errors, HasSubstr(error));
    }
}

// Losses by Hata's formula, computed by hand; columns in both systems, other names, defaults.
TEST(Program, BatchAddsColumns) {
    const Outcome outcome =
        Calc({"batch", "-", "--base-height", "60", "--area=suburban"},
             "\xEF\xBB\xBFsite;Distance_MI;FREQUENCY_mhz\r\n\"a;\n\";5;900\r\nb; 5;900");
    EXPECT_EQ(outcome.status, ExitStatus::Done) << outcome.errors;
    std::string names = std::string(";") + Added;
    std::replace(names.begin(), names.end(), ',', ';');
    EXPECT_THAT(outcome.output,
                AllOf(StartsWith("\xEF\xBB\xBFsite;Distance_MI;FREQUENCY_mhz" + names +
                                 "\r\n\"a;\n\";5;900;142.414693774827;"),
                      HasSubstr("\r\nb; 5;900;142.414693774827;"), EndsWith(";no;\r\n")));
}

constexpr const char* Head = "n,Distance_km,frequency_mhz,percent_time,power_dbm,city\n";

// Each row goes out as it came, or as what can be made of it, with a reason; the next one is
// calculated.
TEST(Program, BatchTellsWhatIsWrongWithARow) {
    const std::tuple<std::string, std::string, const char*> cases[] = {
        {"\"x,\",a,450,50,60,Large", "", "column Distance_km: 'a' is not a number"},
        {"x,\"4,5\",450,50,60,Large", "",
         "Distance_km: '4,5' has a decimal comma; a point is wanted"},
        {"x,,450,50,60,Large", "", "column Distance_km: is empty"},
        {"x,-0,450,50,60,Large", "", "column Distance_km: '-0' is not above zero"},
        {"x,1,450,99.5,60,Large", "", "column percent_time: '99.5' is not from 1 to 99"},
        {"x,1,450,50,1e9,Large", "", "column power_dbm: '1e9' is no power"},
        {"x,1,450,50,60,Huge", "", "column city: 'Huge' is not one of Small/Medium, Large"},
        {"x,1,20,50,60,Large", "", "Valid Frequency Range"},
        {"x,301,450,50,60,Large", "", "Valid Range is 0 < Distance"},
        {"x,1,450", "x,1,450,,,", "column 4: the row has 3 fields, the head 6"},
        {"x,1,450,50,60,Large,y", "x,1,450,50,60,Large", "column 7: the row has 7 fields"},
        {"x\"y,1,450,50,60,Large", "\"x\"\"y\",1,450,50,60,Large", "column n: a quote inside"},
        {std::string("x\0,1,450,50,60,Large", 21), std::string("x\0,1,450,50,60,Large", 21),
         "a NUL"},
    };
    for (const auto& [row, rewritten, error] : cases) {
        const Outcome outcome = Calc({"batch", "-"}, Head + row + "\nok,1,450,50,60,Large,,\n");
        EXPECT_EQ(outcome.status, ExitStatus::RowsWithErrors) << error;
        const std::string text = (rewritten.empty() ? row : rewritten) + ",,,,,,,,,,";
        const std::size_t at = outcome.output.find('\n') + 1;
        EXPECT_EQ(outcome.output.substr(at, text.size()), text);
        const std::size_t end = outcome.output.find("\nok,1,450,50,60,Large,1", at);
        ASSERT_NE(end, std::string::npos) << outcome.output;
        EXPECT_THAT(outcome.output.substr(at, end - at),
                    AllOf(HasSubstr("line 2, "), HasSubstr(error)));
        EXPECT_THAT(outcome.errors,
                    HasSubstr("standard input: 1 of 2 rows could not be calculated"));
    }
}

TEST(Program, BatchRefusesAHead) {
    const std::pair<std::string, const char*> cases[] = {
        {"", "is empty"},
        {"\xFF\xFEx", "UTF-16"},
        {"a,b\n1,2\n",
         "line 1: no column is an input. The inputs are: frequency_mhz, distance_km,"},
        {"distance_km,x,Distance_mi\n", "column 3: distance_km and distance_mi are the same input"},
        {"area,area\n", "column 2: area and area are the same input"},
        {"area,Davidson_Loss_dB\n",
         "column 2: davidson_loss_db is the name of a column that is added"},
        {"area,Error\n", "column 2: error is the name of a column that is added"},
        {"area,x\"y\n", "line 1, column 2: a quote inside"},
        {"area,\"x\n1,2\n", "line 1, column 2: a quote that is never closed"},
    };
    for (const auto& [input, error] : cases) {
        const Outcome outcome = Calc({"batch", "-"}, input);
        EXPECT_EQ(outcome.status, ExitStatus::Failed) << error;
        EXPECT_EQ(outcome.output, "") << error;
        EXPECT_THAT(outcome.errors, HasSubstr(std::string("standard input: ")));
        EXPECT_THAT(outcome.errors, HasSubstr(error));
    }
    EXPECT_THAT(Calc({"batch", "-", "--json"}, "area,x,x\n").errors, HasSubstr("a second 'x'"));
}

// A mistyped name is no silent default; one that only resembles an input that is there is none.
TEST(Program, BatchTellsOfColumnsLikeInputs) {
    const Outcome outcome =
        Calc({"batch", "-"}, "distance_km,Frequenz,distance_text\n1,900,near\n");
    EXPECT_EQ(outcome.errors,
              "vardel-calc: standard input: column 'Frequenz' passes through; the input is "
              "frequency_mhz\n");
}

TEST(Program, BatchAsJson) {
    const Outcome outcome =
        Calc({"batch", "-", "--json"},
             "\xEF\xBB\xBF\"a\"\"\xC3\xA9\",distance_km,x\n\"\xE9\t\\\",+1.50,2\nb,?,\n");
    EXPECT_THAT(
        outcome.output,
        AllOf(StartsWith("{\"a\\\"é\":\"\uFFFD\\u0009\\\\\",\"distance_km\":1.5,\"x\":\"2\","
                         "\"itu529_loss_db\":116.92895227209"),
              HasSubstr(",\"cost231_in_range\":false,\"error\":null}\n{\"a\\\"é\":\"b\","
                        "\"distance_km\":\"?\",\"x\":\"\",\"itu529_loss_db\":null,"),
              EndsWith("\"error\":\"line 3, column distance_km: '?' is not a number\"}\n")));
}

// Blocks of many sizes, errors among them.
TEST(Program, BatchIsTheSameOnAnyNumberOfThreads) {
    std::string input = "distance_km,note\n";
    for (int i = 0; i < 40000; ++i)
        input += std::to_string(i % 320) + ',' +
                 std::string(static_cast<std::size_t>(i) % 61, 'n') + '\n';
    const Outcome one = Calc({"batch", "-", "--threads", "1"}, input);
    const Outcome eight = Calc({"batch", "-", "--threads", "8"}, input);
    EXPECT_TRUE(one.output == eight.output);
    EXPECT_EQ(one.errors, eight.errors);
    EXPECT_EQ(std::count(one.output.begin(), one.output.end(), '\n'), 40001);
    // 125 times 0 and 301 to 319
    EXPECT_THAT(one.errors, HasSubstr("2500 of 40000 rows"));
}

TEST(Program, CurveMeetsItsEnd) {
    const Outcome outcome = Calc({"curve", "--start", "1", "--end", "4", "--step", "1.5"});
    EXPECT_THAT(
        outcome.output,
        AllOf(StartsWith("distance_km,itu529_loss_db,"), HasSubstr("\r\n1,111.329250234123,"),
              HasSubstr("\r\n2.5,123.983742509894,"), HasSubstr("\r\n4,130.474757958352,")));
    const std::string many = Calc({"curve", "--start=1", "--end=300", "--step=0.05"}).output;
    EXPECT_EQ(std::count(many.begin(), many.end(), '\n'), 5982) << "written in pieces, each once";
    const std::string tenths =
        Calc({"curve", "--start=.1", "--end=.7", "--step=.1", "--json", "--units=english"}).output;
    EXPECT_THAT(tenths,
                AllOf(HasSubstr("\n{\"distance_mi\":0.3,"), HasSubstr("\n{\"distance_mi\":0.7,")));
    EXPECT_EQ(std::count(tenths.begin(), tenths.end(), '\n'), 7);
}

// A line tells the inputs as they were taken: in English units where all of them are, else in
// metric ones.
TEST(Program, LogLinesTellTheInputs) {
    const std::tuple<std::vector<std::string>, const char*, const char*, const char*> cases[] = {
        {{},
         "distance_mi,base_height_ft,mobile_height_ft,percent_time,percent_locations\n5,100,6,10,"
         "90",
         "       5     450     100       6 Urban     Small/Medium ",
         " 10% 90% Enlish     1000"},
        {{},
         "distance_mi,base_height_m,mobile_height_ft,AREA,power_kw\n10,50,10,open,2",
         "   16.09     450      50    3.05 Open ",
         " 50% 50% Metric     2000"},
        {{"--units=english", "--distance=10", "--power=50", "--power-unit=dbm"},
         "base_height_m\n50",
         "   16.09     450      50     1.5 Urban ",
         " 50% 50% Metric      100"},
        {{"--time", "20", "--percent-locations", "80"},
         "city,power_dbw,frequency_mhz\nLARGE,10,900",
         "      10     900     100     1.5 Urban     Large ",
         " 20% 80% Metric       10"},
        {{}, "power_dbm\n40", "      10 ", " Metric       10"},
    };
    for (const auto& [options, input, start, end] : cases) {
        std::vector<std::string> words{"log", "-"};
        words.insert(words.end(), options.begin(), options.end());
        const Outcome outcome = Calc(words, input);
        EXPECT_EQ(outcome.errors, "") << input;
        EXPECT_THAT(outcome.output, AllOf(StartsWith(start),
                                          EndsWith(end + std::string(" 02/29/2024 01:05 pm\r\n"))));
    }
    const Outcome outcome = Calc({"log", "-", "--header"}, "distance_km\nx\n");
    EXPECT_EQ(outcome.errors,
              "line 2, column distance_km: 'x' is not a number\n"
              "vardel-calc: standard input: 1 of 1 rows could not be calculated\n");
    EXPECT_THAT(outcome.output, AllOf(StartsWith("  Dist     Frq "), EndsWith("Time\r\n")));
}

// The loss of 143.129250234123 dB, and the field strength of 49.3050000413837 dB(µV/m), are those
// of 10 km, or 6.21388 miles, and a mast of 100 m, or 328.084 ft.
TEST(Program, Reach) {
    EXPECT_THAT(Calc({"reach", "--path-loss", "143.129250234"}).output,
                AllOf(StartsWith("model,reach,reach_km,in_range,met_again\r\nitu529,ends,9.99999"),
                      HasSubstr(",yes,no\r\ndavidson,")));
    EXPECT_THAT(Calc({"reach", "--path-loss", "143.129250234", "--distance=10.0"}).output,
                AllOf(StartsWith("model,reach,reach_km,in_range,met_again,power_w_at_10_km,"
                                 "base_height_at_10_km,base_height_m_at_10_km\r\n"
                                 "itu529,ends,9.99999"),
                      HasSubstr(",yes,no,,found,100.00")));
    EXPECT_THAT(Calc({"reach", "--field-strength", "39.3050000413837", "--units", "english",
                      "--distance", "6.2138818119679"})
                    .output,
                HasSubstr(",yes,no,99.99999999999"));
    EXPECT_THAT(Calc({"reach", "--path-loss", "143.129250234", "--units", "english", "--distance",
                      "6.21388"})
                    .output,
                AllOf(HasSubstr(",base_height_ft_at_6.21388_mi\r\nitu529,ends,6.21388"),
                      HasSubstr(",found,328.08")));
    // 28.264 dB(µV/m) at the antenna, by 77.2
    EXPECT_THAT(Calc({"reach", "--received-power=-100", "--antenna-gain=3", "--cable-loss=1",
                      "--distance=10"})
                    .output,
                HasSubstr(",yes,no,7.869"));
    EXPECT_THAT(Calc({"reach", "--received-power", "-300", "--json"}).output,
                HasSubstr("\"davidson\",\"reach\":\"everywhere\",\"reach_km\":300,"));
    EXPECT_THAT(Calc({"reach", "--field-strength", "300"}).output,
                HasSubstr("cost231,never,,no,no\r\n"));
}

TEST(Program, AnOutputThatFails) {
    const std::tuple<std::errc, const char*> cases[] = {
        {std::errc::no_space_on_device, "vardel-calc: out: No space left on device\n"},
        {std::errc::broken_pipe, ""},
    };
    for (const auto& [code, told] : cases) {
        std::string errors;
        std::string words[] = {"vardel-calc", "batch", "x", "--threads=4"};
        char* arguments[] = {words[0].data(), words[1].data(), words[2].data(), words[3].data(),
                             nullptr};
        const auto status =
            RunProgram(4, arguments,
                       {.open = [](const std::string&) -> Source {
                            return [](char* bytes, std::size_t) {
                                return std::string("area\nOpen\n").copy(bytes, 10);
                            };
                        },
                        .output =
                            [&, error = code, calls = 0](std::string_view) mutable {
                                if (++calls > 5)
                                    throw std::system_error(std::make_error_code(error), "out");
                            },
                        .errors = [&](std::string_view text) { errors += text; },
                        .now = {}});
        EXPECT_EQ(status, ExitStatus::Failed);
        EXPECT_EQ(errors, told);
    }
}

}  // namespace
}  // namespace vardel::cli
