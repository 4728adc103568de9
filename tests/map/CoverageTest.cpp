#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <tuple>

#include "map/CoverageRings.h"
#include "map/MapFeatures.h"
#include "support/FakePlatform.h"
#include "support/Shell.h"

namespace vardel {
namespace {

// What GDAL reads of a file's one ring, quotation marks left out: whether it is valid and goes
// against the clock (1 1), its area in square degrees and its bounds, and some properties.
std::string ReadByGdal(const std::string& text, const std::string& ending) {
    const ScratchFolder folder;
    const std::string file = folder.Path("Coverage." + ending);
    std::ofstream(file) << text;
    std::string read =
        Output("ogr2ogr -f CSV /vsistdout/ " + file +
               " -dialect sqlite -sql 'SELECT ST_IsValid(geometry), ST_IsPolygonCCW(geometry), "
               "ST_Area(geometry), MbrMinX(geometry), MbrMinY(geometry), MbrMaxX(geometry), "
               "MbrMaxY(geometry), model, distance_km, percent_locations, area FROM Coverage'");
    if (ending == "geojson") Output("python3 -m json.tool " + file + " > /dev/null");
    std::erase(read, '"');
    return read.substr(read.find('\n') + 1);
}

// A degree of latitude is 111.27 km long at 52.5°, 110.67 km at 17° and 111.69 km at the poles, one
// of longitude 67.91 km and 106.47 km. The area round a pole is 360° by the mean way to it.
TEST(CoverageRings, AreReadByGdal) {
    using Numbers = std::array<double, 5>;  // area, west, south, east, north
    constexpr std::tuple<Place, double, Numbers> Cases[] = {
        {{52.5, 13.4}, 5.15, {0.01103, 13.3242, 52.4537, 13.4758, 52.5463}},
        {{-17, 179.9}, 100, {2.666, -180, -17.9036, 180, -16.0964}},
        {{89.5, 10}, 100, {295.6, -180, 88.6047, 180, 90}},
        // Through the pole.
        {{-89.60058142942648, 180}, 44.6126458390812, {91.54, -180, -90, 180, -89.2012}},
        {{-90, 0}, 50, {161.2, -180, -90, 180, -89.5523}}};
    for (const auto& [place, km, expected] : Cases) {
        const Coverage coverage{place,
                                {390, 0, 45, 1.5, "\x01<&\\/\"'>", "Small/Medium", 50, 95},
                                Goal::FieldStrength(32, 25),
                                {{ModelNumber::Itu529, 95, km, true}}};
        for (const bool isKml : {false, true}) {
            const auto text = isKml ? CoverageKml(coverage) : CoverageGeoJson(coverage);
            const std::string read = ReadByGdal(text.value(), isKml ? "kml" : "geojson");
            Numbers n{};
            std::sscanf(read.c_str(), "1,1,%lf,%lf,%lf,%lf,%lf", &n[0], &n[1], &n[2], &n[3], &n[4]);
            EXPECT_NEAR(n[0], expected[0], 0.01 * expected[0]) << read;
            for (std::size_t i = 1; i < n.size(); ++i)
                EXPECT_NEAR(n[i], expected[i], 0.005 * (expected[4] - expected[2]));
            EXPECT_NE(read.find(",ITU 529,"), read.npos) << read;
            EXPECT_NE(read.find(R"(<&\/'>)"), read.npos) << read;
        }
    }
}

// What GDAL says of a polygon: whether it is valid, its parts, and its area in square degrees.
struct SeenPolygon {
    int valid, parts;
    double area;
};

SeenPolygon SeenByGdal(const std::vector<PolygonRing>& polygons) {
    const ScratchFolder folder;
    std::ofstream(folder.Path("Outline.geojson"))
        << GeoJsonOf({{"", ModelNumber::Itu529, {}, polygons}});
    std::string read = Output("ogr2ogr -f CSV /vsistdout/ " + folder.Path("Outline.geojson") +
                              " -dialect sqlite -sql 'SELECT ST_IsValid(geometry), "
                              "ST_NumGeometries(geometry), ST_Area(geometry) FROM Outline'");
    std::erase(read, '"');
    SeenPolygon seen{};
    std::sscanf(read.c_str() + read.find('\n'), "%d,%d,%lf", &seen.valid, &seen.parts, &seen.area);
    return seen;
}

// Outlines with spikes that cross the antimeridian many times have there the area that they have
// elsewhere, in more parts; so do those that are nothing in some directions.
TEST(GeodesicOutline, IsWholeAtTheAntimeridian) {
    std::vector<double> spikes, lobes;
    for (int i = 0; i < 72; ++i) {
        spikes.push_back(i % 4 < 2 ? 20 : 100);
        lobes.push_back(i % 12 == 3 ? 0 : 100);
    }
    const SeenPolygon whole = SeenByGdal(GeodesicOutline({-17, 10}, spikes));
    EXPECT_EQ(whole.valid, 1);
    EXPECT_EQ(whole.parts, 1);
    const SeenPolygon cut = SeenByGdal(GeodesicOutline({-17, 179.7}, spikes));
    EXPECT_EQ(cut.valid, 1);
    EXPECT_GT(cut.parts, 4);
    EXPECT_NEAR(cut.area, whole.area, 1e-5);

    const SeenPolygon apart = SeenByGdal(GeodesicOutline({-17, 10}, lobes));
    EXPECT_EQ(apart.valid, 1);
    EXPECT_EQ(apart.parts, 6);
    const SeenPolygon apartCut = SeenByGdal(GeodesicOutline({-17, 180}, lobes));
    EXPECT_EQ(apartCut.valid, 1);
    EXPECT_NEAR(apartCut.area, apart.area, 1e-5);
    EXPECT_TRUE(GeodesicOutline({-17, 10}, std::vector<double>(36, 0.0)).empty());

    // Round a pole, where the longitudes run back and forth.
    for (double& km : spikes) km += 130;
    const SeenPolygon pole = SeenByGdal(GeodesicOutline({89.3, 178}, spikes));
    EXPECT_EQ(pole.valid, 1);
    EXPECT_NEAR(pole.area, SeenByGdal(GeodesicOutline({89.3, 31}, spikes)).area, 0.01);
}

TEST(GeodesicWay, IsTheShortest) {
    // By GeographicLib's Python package.
    const GeodesicWay way = WayBetween({36.59, -84.245}, {36.65, -84.3});
    EXPECT_NEAR(way.km, 8.2787334, 1e-6);
    EXPECT_NEAR(way.azimuth, 323.5549895, 1e-6);
    EXPECT_NEAR(WayBetween({-17, 179.9}, {-17, -179.9}).azimuth, 90.029237, 1e-5);
}

TEST(CoverageRings, HaveTheirModelsColoursAndNoImpossibleRadius) {
    Coverage coverage{{50, 8}, {}, Goal::AllowedLoss(130), {{ModelNumber::Davidson, 50, 100}}};
    EXPECT_NE(CoverageKml(coverage)->find("<color>ff0000ff</color>"), std::string::npos);
    for (const double km : {0.0, 1e-9, -1.0, 1000.1, std::nan("")}) {
        coverage.rings[0].km = km;
        EXPECT_FALSE(CoverageGeoJson(coverage));
    }
    coverage.rings.clear();
    EXPECT_TRUE(CoverageKml(coverage));
    coverage.station.latitude = 90.1;
    EXPECT_FALSE(CoverageKml(coverage));
}

TEST(Coordinates, OfAPlaceArePartedWhereOnlyOnePartingCanBeMeant) {
    constexpr std::tuple<const char*, double, double> Read[] = {
        {"49.8 6.1", 49.8, 6.1},       {"-33.5,  151.25", -33.5, 151.25},
        {"52 30, 13 15", 52.5, 13.25}, {"52 30 N 13 15 E", 52.5, 13.25},
        {"49.8  -6.1", 49.8, -6.1},    {"52°30' 13°15'", 52.5, 13.25}};
    for (const auto& [text, latitude, longitude] : Read) {
        const auto place = ParsePlace(text);
        ASSERT_TRUE(place) << text;
        EXPECT_NEAR(place->latitude, latitude, 1e-12) << text;
        EXPECT_NEAR(place->longitude, longitude, 1e-12) << text;
    }
    for (const char* text : {"", "49.8", "52 30 13 15", "91 6", "49,8 6,1", "x y", "1 2 3"})
        EXPECT_FALSE(ParsePlace(text)) << text;
}

TEST(Coordinates, AreReadAsPeopleTypeThem) {
    constexpr std::pair<const char*, double> Read[] = {
        {"52.5", 52.5},         {" -0.12 ", -0.12},    {"52.5 n", 52.5},
        {"S33.25", -33.25},     {"−90", -90},          {"0", 0},
        {"52 30 36 N", 52.51},  {"52:30:36", 52.51},   {"52° 30′ 36″ S", -52.51},
        {"52°30'36''N", 52.51}, {"52°30'36\"", 52.51}, {"-52d30.6'", -52.51}};
    for (const auto& [text, degrees] : Read)
        EXPECT_NEAR(ParseLatitude(text).value_or(999), degrees, 1e-12) << text;
    EXPECT_EQ(ParseLongitude("180W"), -180.0);
    for (const char* text : {"", "N", "-", "52,5", "90.1", "N52S", "-52S", "52E", "1.5 30", "1 60",
                             "1 2 3 4", "1:", "1.2.3", "nan", "inf", "1e400", "52 -30", "1°°"})
        EXPECT_FALSE(ParseLatitude(text)) << text;
}

}  // namespace
}  // namespace vardel
