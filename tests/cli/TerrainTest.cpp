#include <gmock/gmock.h>

#include "cli/Calc.h"
#include "terrain/RasterMosaic.h"

namespace vardel::cli {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

// 300 m above the sea from 49 to 51 degrees north and 9 to 11 east; nothing is known elsewhere.
std::unique_ptr<Elevations> Flat(const std::vector<std::string>& paths) {
    if (paths != std::vector<std::string>{"tiles", "more"}) throw ElevationError("other files");
    auto ground =
        ElevationsOfArray({200, 200, {9, 0.01, 0, 51, 0, -0.01}}, std::vector<float>(40'000, 300));
    ground->AddNote("left out: x");
    return ground;
}

Outcome CalcOnFlat(std::vector<std::string> words, const std::string& input = {}) {
    for (const char* file : {"tiles", "more"}) words.insert(words.end(), {"--elevation", file});
    return Calc(std::move(words), input, Flat);
}

TEST(Terrain, HeightsAreARowForEachAzimuth) {
    const Outcome metric = CalcOnFlat({"heights", "--site", "50 10", "--antenna", "45"});
    EXPECT_EQ(metric.status, ExitStatus::Done) << metric.errors;
    EXPECT_THAT(metric.output,
                AllOf(StartsWith("azimuth_deg,ground_m,average_terrain_m,above_average_m,"
                                 "effective_height_m,floored,seen\r\n0,300,300,45,45,no,1\r\n"),
                      HasSubstr("\n350,300,300,45,45,no,1\r\n")));
    EXPECT_EQ(metric.errors, "vardel-calc: left out: x\n");
    const Outcome english =
        CalcOnFlat({"heights", "--site", "50 10", "--antenna", "50", "--units", "english",
                    "--azimuths", "8", "--ground", "1000", "--definition", "5-6", "--json"});
    EXPECT_THAT(english.output, AllOf(HasSubstr("{\"azimuth_deg\":45,\"ground_ft\":1000,"),
                                      HasSubstr("\"effective_height_ft\":65.748031496063,")));
}

// 45 m at 390 MHz reach 5.195683 km, see Reach's tests.
TEST(Terrain, ContoursAreRowsOrPolygons) {
    const auto contour = [](const char* format) {
        return CalcOnFlat({"contour", "--site", "50 10", "--antenna", "45", "--frequency", "390",
                           "--area", "Suburban", "--locations", "95", "--power", "25",
                           "--field-strength", "32", "--format", format});
    };
    EXPECT_THAT(
        contour("csv").output,
        AllOf(HasSubstr(",seen,itu529_reach,itu529_reach_km,itu529_in_range,"
                        "itu529_met_again,davidson_reach,"),
              HasSubstr("\n359,300,300,45,45,no,1,ends,5.19568"), HasSubstr(",yes,no,ends,")));
    EXPECT_THAT(contour("geojson").output,
                AllOf(StartsWith("{\"type\":\"FeatureCollection\""), HasSubstr("[10,50.0467114]")));
    EXPECT_THAT(contour("kml").output, HasSubstr("10,50.0467114"));
    // The sea is not seen: the radial of 16 km to the east has 7.1 km of the ground.
    const Outcome edge = CalcOnFlat({"contour", "--site", "50 10.9", "--antenna", "25",
                                     "--path-loss", "140", "--azimuths", "8"});
    EXPECT_THAT(edge.errors,
                AllOf(HasSubstr("of 8 azimuths have elevation data for only part of the way"),
                      HasSubstr("8 of 8 azimuths have an effective height below 30 m")));
}

TEST(Terrain, FaultsAreOneSentenceAndNothingIsWritten) {
    const std::vector<std::string> site = {"heights", "--site", "50 10", "--antenna", "30"};
    const auto with = [&](std::vector<std::string> more) {
        more.insert(more.begin(), site.begin(), site.end());
        return more;
    };
    const std::pair<std::vector<std::string>, const char*> cases[] = {
        {{"heights", "--antenna", "30"}, "heights needs --site"},
        {{"heights", "--site", "50 10"}, "heights needs --antenna"},
        {{"contour", "--site", "50 10", "--antenna", "30"}, "contour needs one of --field"},
        {with({"--azimuths", "7"}), "--azimuths: a whole number from 8 to 3600"},
        {with({"--azimuths", "8.5"}), "--azimuths: a whole number"},
        {with({"--definition", "9-3"}),
         "--definition: '9-3' is not one of 3-16, 3-15, 3.2-16.1, p1546"},
        {with({"--definition", "0-301"}), "--definition: '0-301'"},
        {with({"--site", "5010"}), "--site: '5010' is no latitude and longitude"},
        {with({"--antenna", "0"}), "--antenna: '0' is not above zero"},
        {with({"--distance", "9"}), "--distance does not go with heights"},
        {with({"--format", "csv"}), "--format does not go with heights"},
        {{"contour", "--site", "50 10", "--antenna", "30", "--path-loss", "9", "--json", "--format",
          "kml"},
         "--json goes with --format csv only"},
        {{"log"}, "--elevation needs a file of paths"}};
    for (const auto& [words, error] : cases) {
        const Outcome outcome = CalcOnFlat(words);
        EXPECT_EQ(outcome.status, ExitStatus::WrongUsage) << error;
        EXPECT_EQ(outcome.output, "") << error;
        EXPECT_THAT(outcome.errors, HasSubstr(error));
    }
    const Outcome outside = CalcOnFlat({"heights", "--site", "50 20", "--antenna", "30"});
    EXPECT_EQ(outside.status, ExitStatus::Failed);
    EXPECT_EQ(outside.output, "");
    EXPECT_THAT(outside.errors, HasSubstr("vardel-calc: the site 50 20 is outside"));
    EXPECT_THAT(Calc({"batch", "-", "--antenna", "3"}).errors, HasSubstr("want --elevation, too"));
    EXPECT_THAT(Calc(site).errors, HasSubstr("heights needs --elevation"));
}

constexpr const char* Places = "Base_Lat,base_lon,mobile_lat,mobile_lon";

// Distances by GeographicLib's Python package, losses by Hata's formula in Python.
TEST(Terrain, BatchFindsDistancesAndHeights) {
    const Outcome distance = Calc({"batch", "-"}, Places + std::string("\n50,10,50 5 24 N,10\n"));
    EXPECT_EQ(distance.status, ExitStatus::Done) << distance.errors;
    EXPECT_THAT(distance.output, AllOf(HasSubstr("mobile_lon,distance_km,itu529_loss_db,"),
                                       HasSubstr("N,10,10.01069380"), HasSubstr(",143.14401108")));
    const Outcome ground =
        CalcOnFlat({"batch", "-", "--json"}, Places + std::string(",antenna_above_ground_m\n"
                                                                  "50,10,50.09,10,60\n"
                                                                  "50.9,10,50.99,10,10\n"));
    EXPECT_EQ(ground.status, ExitStatus::Done) << ground.errors;
    // The lower antenna counts as 20 m; all of the path, 2 to 10 km of it, is seen.
    EXPECT_THAT(ground.output, AllOf(HasSubstr("\"distance_km\":10.01069380"),
                                     HasSubstr("\"itu529_loss_db\":147.66374461"),
                                     HasSubstr("\"effective_height_m\":60,\"terrain_seen\":1,"),
                                     HasSubstr("\"effective_height_m\":20,")));
    EXPECT_THAT(
        CalcOnFlat({"log", "-", "--antenna", "60"}, Places + std::string("\n50,10,50.09,10"))
            .output,
        HasSubstr("60"));
}

TEST(Terrain, BatchTellsWhatIsWrongWithPlaces) {
    const std::pair<const char*, const char*> rows[] = {
        {"91,10,50.1,10,60", "column Base_Lat: '91' is no latitude in degrees"},
        {"50,10,50.1,,60", "column mobile_lon: '' is no longitude in degrees"},
        {"50,10,50,10,60", "base and mobile are at the same place"},
        {"50,10,50.1,10,x", "column antenna_above_ground_m: 'x' is not a number"},
        {"50,10,50.1,10,-1", "column antenna_above_ground_m: '-1' is not above zero"},
        {"50,20,50.1,20,60", "the site 50 20 is outside the elevation data"},
        {"50,10.99,50,11.1,60", "the elevation data do not cover the path"},
        {"50,10,54,10,60", "Valid Range is 0 < Distance"}};
    for (const auto& [row, error] : rows) {
        const Outcome outcome = CalcOnFlat(
            {"batch", "-"}, Places + std::string(",antenna_above_ground_m\n") + row + "\n");
        EXPECT_EQ(outcome.status, ExitStatus::RowsWithErrors) << error;
        EXPECT_THAT(outcome.output, HasSubstr(std::string(row) + ",,,,,,,,,,,,")) << error;
        EXPECT_THAT(outcome.output, HasSubstr(error));
    }
    const std::tuple<bool, const char*, const char*> heads[] = {
        {false, "base_lat,base_lon,mobile_lat", "go together, and one is missing"},
        {false, "base_lat,BASE_LAT", "a second column gives the same as base_lat"},
        {false, "distance_km,base_lat,base_lon,mobile_lat,mobile_lon", "are the same input"},
        {false, "distance_km,antenna_above_ground_ft", "antenna_above_ground needs --elevation"},
        {false, "base_lat,base_lon,mobile_lat,mobile_lon,Distance_mi",
         "distance_mi and the places"},
        {true, "distance_km", "--elevation needs the columns base_lat,"},
        {true, "base_lat,base_lon,mobile_lat,mobile_lon",
         "needs the column antenna_above_ground_m"},
        {true, "base_lat,base_lon,mobile_lat,mobile_lon,antenna_above_ground_m,base_height_ft",
         "with --elevation the base height is found; base_height_ft gives it"},
        {true, "base_lat,base_lon,mobile_lat,mobile_lon,antenna_above_ground_m,Terrain_seen",
         "Terrain_seen is the name of a column that is added"}};
    for (const auto& [ground, head, error] : heads) {
        const std::vector<std::string> words = {"batch", "-"};
        const Outcome outcome = ground ? CalcOnFlat(words, head) : Calc(words, head);
        EXPECT_EQ(outcome.status, ExitStatus::Failed) << error;
        EXPECT_EQ(outcome.output, "") << error;
        EXPECT_THAT(outcome.errors, HasSubstr(error));
    }
}

}  // namespace
}  // namespace vardel::cli
