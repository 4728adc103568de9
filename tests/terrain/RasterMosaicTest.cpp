#include "terrain/RasterMosaic.h"

#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

namespace vardel {
namespace {

const float None = std::nanf("");

double At(Elevations& elevations, const Place& place) {
    double metres = 0.0;
    elevations.At(&place, 1, &metres);
    return metres;
}

// Two columns and rows of one degree, with the centres of cells on half degrees.
const RasterGrid TwoByTwo{2, 2, {10, 1, 0, 52, 0, -1}};

TEST(RasterMosaic, IsBilinearBetweenCentresAndFlatInTheOuterHalfCell) {
    const auto ground = ElevationsOfArray(TwoByTwo, {10, 20, 30, 60});
    const std::tuple<Place, double> cases[] = {
        {{51.5, 10.5}, 10}, {{51.5, 11}, 15}, {{51, 11}, 30},    {{50.75, 11.25}, 43.75},
        {{52, 10}, 10},     {{50, 12}, 60},   {{50.5, 11.9}, 60}};
    for (const auto& [place, metres] : cases)
        EXPECT_NEAR(At(*ground, place), metres, 1e-6) << place.latitude << ' ' << place.longitude;
    for (const Place& outside : {Place{52.1, 11}, Place{51, 9.9}, Place{51, 12.1}, Place{-51, 11}})
        EXPECT_TRUE(std::isnan(At(*ground, outside)));
}

TEST(RasterMosaic, NeedsOnlyCellsThatHaveWeight) {
    const auto ground = ElevationsOfArray(TwoByTwo, {10, None, 30, 60});
    EXPECT_EQ(At(*ground, {51, 10.5}), 20);
    EXPECT_TRUE(std::isnan(At(*ground, {51, 10.6})));
    EXPECT_EQ(At(*ground, {50.5, 11}), 45);
}

// Tiles of cells a degree apart in one pattern: what lies between their outer cells is known, from
// both. A tile of another pattern is one of its own.
TEST(RasterMosaic, GoesOnInTheNextTile) {
    const auto add = [](RasterMosaic& mosaic, const std::shared_ptr<MapProjection>& earth,
                        double west, float metres) {
        mosaic.Add({2, 1, {west, 1, 0, 51, 0, -1}}, earth,
                   [=](int, int, int columns, int, float* to) {
                       for (int i = 0; i < columns; ++i) to[i] = metres;
                   });
    };
    const auto earth = std::make_shared<Geographic>();
    RasterMosaic mosaic;
    add(mosaic, earth, 178, 100);
    add(mosaic, earth, -180, 200);
    add(mosaic, earth, 20, 300);
    add(mosaic, earth, 22.3, 400);
    EXPECT_EQ(mosaic.Count(), 4U);
    const std::tuple<double, double> cases[] = {{179.5, 100}, {179.75, 125}, {-180, 150},
                                                {180, 150},   {-179.6, 190}, {-179.5, 200},
                                                {21.95, 300}, {22.35, 400}};
    for (const auto& [longitude, metres] : cases)
        EXPECT_NEAR(At(mosaic, {50.5, longitude}), metres, 1e-6) << longitude;
    EXPECT_TRUE(std::isnan(At(mosaic, {50.5, 22.15})));
}

// Where rasters lie over each other the first one answers, wherever the place before was.
TEST(RasterMosaic, AsksTheFirstThatKnows) {
    RasterMosaic mosaic;
    const auto earth = std::make_shared<Geographic>();
    const auto constant = [](float left, float right) {
        return [=](int column, int, int columns, int rows, float* to) {
            for (int i = 0; i < columns * rows; ++i)
                to[i] = column + i % columns == 0 ? left : right;
        };
    };
    mosaic.Add({2, 1, {10, 1, 0, 51, 0, -1}}, earth, constant(1, None));
    mosaic.Add({2, 1, {10, 1, 0, 51, 0, -1}}, earth, constant(2, 2));
    for (int turn = 0; turn < 2; ++turn) {
        EXPECT_EQ(At(mosaic, {50.5, 10.5}), 1);
        EXPECT_EQ(At(mosaic, {50.5, 11.5}), 2);
    }
}

TEST(RasterMosaic, KeepsNoMoreBlocksThanItsMemoryHolds) {
    constexpr int Size = 8 * RasterMosaic::BlockSize;
    RasterMosaic mosaic(std::size_t{5} << 18U);  // five blocks of 256 KiB
    int reads = 0;
    mosaic.Add({Size, Size, {0, 0.04, 0, 0, 0, 0.04}}, std::make_shared<Geographic>(),
               [&](int column, int row, int columns, int rows, float* to) {
                   ++reads;
                   for (int i = 0; i < columns * rows; ++i)
                       to[i] = static_cast<float>(column + i % columns + 10 * (row + i / columns));
               });
    // Cell 100 of the first, and 356 of the second block, and so on, twice.
    for (int turn = 0; turn < 2; ++turn)
        for (int block = 0; block < 8; ++block) {
            const int column = RasterMosaic::BlockSize * block + 100;
            EXPECT_NEAR(At(mosaic, {2.02, 0.04 * column + 0.02}), column + 500, 1e-3);
        }
    EXPECT_EQ(mosaic.BlocksInMemory(), 5U);
    EXPECT_EQ(reads, 16);
}

TEST(RasterMosaic, KnowsItsStep) {
    const auto ground =
        ElevationsOfArray({100, 100, {10, 0.01, 0, 51, 0, -0.01}}, std::vector<float>(10'000));
    EXPECT_NEAR(ground->Step({50.5, 10.5}), 1112, 2);  // to the north; 707 m to the east
    EXPECT_TRUE(std::isnan(ground->Step({49, 10.5})));
}

TEST(RasterMosaic, RefusesGridsThatAreNone) {
    const RasterGrid none[] = {{0, 2, {10, 1, 0, 52, 0, -1}},
                               {2, -1, {10, 1, 0, 52, 0, -1}},
                               {2, 2, {10, 0, 0, 52, 0, -1}},
                               {2, 2, {10, 1, 1, 52, 1, 1}},
                               {2, 2, {std::nan(""), 1, 0, 52, 0, -1}}};
    for (const RasterGrid& grid : none)
        EXPECT_THROW(ElevationsOfArray(grid, {1, 2, 3, 4}), ElevationError);
    EXPECT_THROW(ElevationsOfArray(TwoByTwo, {1, 2, 3}), ElevationError);
}

}  // namespace
}  // namespace vardel
