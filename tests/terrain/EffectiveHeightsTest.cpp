#include "terrain/EffectiveHeights.h"

#include <gmock/gmock.h>

#include <cmath>
#include <functional>
#include <tuple>

#include "terrain/Contours.h"
#include "terrain/RasterMosaic.h"

namespace vardel {
namespace {

using Ground = std::function<double(double latitude, double longitude)>;

// Square cells of so many degrees, with the ground's heights at their centres.
void AddTile(RasterMosaic& mosaic, const std::shared_ptr<MapProjection>& earth,
             const RasterGrid& grid, const Ground& ground) {
    mosaic.Add(grid, earth, [=](int column, int row, int columns, int rows, float* metres) {
        for (int r = row; r < row + rows; ++r)
            for (int c = column; c < column + columns; ++c)
                *metres++ = static_cast<float>(ground(grid.toMap[3] + (r + 0.5) * grid.toMap[5],
                                                      grid.toMap[0] + (c + 0.5) * grid.toMap[1]));
    });
}

RasterGrid Square(double west, double north, int columns, int rows, double cell = 0.01) {
    return {columns, rows, {west, cell, 0, north, 0, -cell}};
}

std::unique_ptr<RasterMosaic> Tile(const RasterGrid& grid, const Ground& ground) {
    auto mosaic = std::make_unique<RasterMosaic>();
    AddTile(*mosaic, std::make_shared<Geographic>(), grid, ground);
    return mosaic;
}

double MeanToward(Elevations& elevations, const Place& site, double azimuth) {
    return EffectiveHeightToward(elevations, {site, 30, 0.0}, 0.0, HeightDefinitions[0], {3, 16},
                                 azimuth)
        .averageTerrain;
}

const auto Tilted = [](double latitude, double longitude) {
    return 200 + 1000 * (latitude - 50) + 500 * (longitude - 10);
};

// Expected means are of GeographicLib's Python package and a bilinear interpolation of its own.
TEST(AverageTerrain, OfGroundThatFormulasGive) {
    const RasterGrid grid = Square(9, 51, 200, 200);
    const auto plane = Tile(grid, Tilted);
    const auto step = Tile(grid, [](double, double x) { return x < 10.1 ? 100.0 : 300.0; });
    const auto peak = Tile(grid, [](double y, double x) {
        return std::hypot(y - 50.055, x - 10.105) < 0.004 ? 1000.0 : 0.0;
    });
    const std::tuple<RasterMosaic*, double, double> cases[] = {
        {plane.get(), 0, 285.4086}, {plane.get(), 50, 305.6674}, {plane.get(), 225, 92.7830},
        {step.get(), 0, 100.0},     {step.get(), 45, 190.4945},  {step.get(), 90, 235.2606},
        {peak.get(), 45, 1.7238},   {peak.get(), 50, 54.0205},   {peak.get(), 90, 0.0}};
    for (const auto& [ground, azimuth, mean] : cases)
        EXPECT_NEAR(MeanToward(*ground, {50, 10}, azimuth), mean, 0.01) << azimuth;
}

TEST(AverageTerrain, AcrossTheDatelineAndThePole) {
    const auto rising = [](double, double x) { return 500 + 1000 * (x < 0 ? x + 180 : x - 180); };
    RasterMosaic dateline;
    const auto earth = std::make_shared<Geographic>();
    AddTile(dateline, earth, Square(178, -16, 200, 200), rising);
    AddTile(dateline, earth, Square(-180, -16, 200, 200), rising);
    EXPECT_NEAR(MeanToward(dateline, {-17, 179.95}, 45), 513.0601, 0.01);
    EXPECT_NEAR(MeanToward(dateline, {-17, 179.95}, 90), 539.2137, 0.01);
    EXPECT_NEAR(MeanToward(dateline, {-17, 179.95}, 270), 360.7863, 0.01);
    const auto pole =
        Tile(Square(-180, 90, 3600, 100, 0.1), [](double y, double) { return 1000 * (90 - y); });
    EXPECT_NEAR(MeanToward(*pole, {89.95, 20}, 0), 58.3109, 0.01);
    EXPECT_NEAR(MeanToward(*pole, {89.95, 20}, 90), 100.4381, 0.01);
}

TEST(EffectiveHeights, TellWhatWasSeenAndWhatWasFloored) {
    // Nothing is known east of 10.1 degrees, 7.17 km away: 17 of 50 points, up to 7.145 km.
    const auto half = Tile(Square(9, 51, 200, 200), [](double y, double x) {
        return x > 10.1 ? std::nan("") : y > 50.01 ? 20.0 : 100.0;
    });
    const auto table = EffectiveHeights(*half, {{50, 10}, 40, {}}, HeightDefinitions[0], 8);
    ASSERT_EQ(table.radials.size(), 8U);
    EXPECT_EQ(table.ground, 100.0);
    const RadialHeight &north = table.radials[0], &east = table.radials[2],
                       &south = table.radials[4];
    EXPECT_EQ(north.azimuth, 0.0);
    EXPECT_NEAR(north.effectiveHeight, 120.0, 1e-6);
    EXPECT_FALSE(north.Floored());
    EXPECT_NEAR(east.seen, 0.32, 0.021);
    EXPECT_NEAR(east.effectiveHeight, 40.0, 1e-6);
    EXPECT_EQ(south.seen, 1.0);

    const auto low = EffectiveHeights(*half, {{50, 10}, 40, 85.0}, HeightDefinitions[0], 8);
    EXPECT_NEAR(low.radials[4].aboveAverage, 25.0, 1e-6);
    EXPECT_EQ(low.radials[4].effectiveHeight, 30.0);
    EXPECT_TRUE(low.radials[4].Floored());
    EXPECT_THAT(NotesOn(low), testing::Contains(testing::HasSubstr("azimuths have an effective "
                                                                   "height below 30 m")));
    EXPECT_THAT(NotesOn(low), testing::Contains(testing::HasSubstr("for only part of the way")));
}

TEST(EffectiveHeights, OfNoDataAreNone) {
    const auto unknownEast = Tile(Square(9, 51, 200, 200),
                                  [](double, double x) { return x > 10.02 ? std::nan("") : 0.0; });
    const auto table = EffectiveHeights(*unknownEast, {{50, 10}, 40, {}}, HeightDefinitions[0], 8);
    EXPECT_EQ(table.radials[2].seen, 0.0);
    EXPECT_TRUE(std::isnan(table.radials[2].effectiveHeight));
    EXPECT_FALSE(table.radials[2].Floored());

    const std::pair<Mast, const char*> cases[] = {
        {{{50, 10.5}, 40, {}}, "the site 50 10.5 is outside the elevation data, or on a cell"},
        {{{-50, 10}, 40, {}}, "the site -50 10 is outside"},
        {{{-50, 10}, 40, 7.0},
         "the elevation data have nothing from 3 to 16 km of the site -50 10"}};
    for (const auto& [mast, error] : cases) {
        try {
            EffectiveHeights(*unknownEast, mast, HeightDefinitions[0], 8);
            ADD_FAILURE() << error;
        } catch (const ElevationError& told) {
            EXPECT_THAT(told.what(), testing::HasSubstr(error));
        }
    }
}

TEST(HeightDefinitions, TakeThePartOfThePathThatTheySay) {
    const std::tuple<const char*, double, double, double> cases[] = {
        {"3-16", 5, 3, 16},   {"3-15", 100, 3, 15}, {"3.2-16.1", 5, 3.2, 16.1},
        {"p1546", 10, 2, 10}, {"p1546", 15, 3, 15}, {"p1546", 14.9, 2.98, 14.9}};
    for (const auto& [key, km, from, to] : cases) {
        const AverageBounds bounds = BoundsFor(*FindHeightDefinition(key), km);
        EXPECT_NEAR(bounds.fromKm, from, 1e-12) << key;
        EXPECT_EQ(bounds.toKm, to) << key;
    }
    EXPECT_EQ(FindHeightDefinition("3-17"), nullptr);
}

// The rings of the Reach window for 390 MHz, 45 m: 5.195683 and 5.192173 km, see Reach's tests.
TEST(Contours, OfFlatGroundAreTheRings) {
    const auto flat = Tile(Square(9, 51, 200, 200), [](double, double) { return 300.0; });
    const ModelInputs town{390, 0, 0, 1.5, "Suburban", "Small/Medium", 50, 95};
    const auto table =
        ContoursOf(EffectiveHeights(*flat, {{50, 10}, 45, {}}, HeightDefinitions[0], 8), town,
                   Goal::FieldStrength(32, 25));
    ASSERT_EQ(table.contours.size(), 3U);
    for (std::size_t i = 0; i < 8; ++i) {
        EXPECT_NEAR(table.contours[0].reaches[i].km, 5.195683, 0.001) << i;
        EXPECT_NEAR(table.contours[1].reaches[i].km, 5.192173, 0.001) << i;
    }
    const std::string json = ContourGeoJson(table).value();
    EXPECT_THAT(json, testing::HasSubstr("\"model\":\"ITU 529\",\"distance_km_least\":5.196,"
                                         "\"distance_km_most\":5.196,"));
    // 5195.683 m north of 50 degrees by GeographicLib's Python package.
    EXPECT_THAT(json, testing::HasSubstr("[[[10,50.0467114],"));
}

// Each azimuth has its own height: one that is not known has no reach, and two alike have the same.
TEST(Contours, FollowTheHeights) {
    EffectiveHeightTable heights{{{50, 10}, 30, {}}, HeightDefinitions[0], 0, {}};
    const double metres[] = {45, 90, 45, std::nan(""), 30, 30, 30, 30};
    for (const double hb : metres)
        heights.radials.push_back({0, 0, hb, hb, std::isnan(hb) ? 0.0 : 1.0});
    const ModelInputs town{390, 0, 0, 1.5, "Suburban", "Small/Medium", 50, 95};
    const auto table = ContoursOf(heights, town, Goal::FieldStrength(32, 25));
    const auto& reaches = table.contours[0].reaches;
    EXPECT_NEAR(reaches[0].km, 5.195683, 1e-5);
    EXPECT_NEAR(reaches[1].km, 7.74827, 1e-5);  // by Hata's formula
    EXPECT_EQ(reaches[2].km, reaches[0].km);
    EXPECT_EQ(reaches[3].outcome, Reach::Outcome::Invalid);
    EXPECT_THAT(ContourKml(table).value(),
                testing::HasSubstr("<Data name=\"azimuths_unseen\"><value>1</value>"));
}

}  // namespace
}  // namespace vardel
