#include "coverage/CoverageValues.h"

#include <gtest/gtest.h>

#include <cmath>

#include "models/Model.h"

namespace vardel {
namespace {

const Place Site{50.0, 10.0};
const ModelInputs Town{390, 0, 0, 1.5, "Suburban", "Small/Medium", 50, 50};

CoverageStation LossesWith(AzimuthHeights heights) {
    return {Site, Town, 25.0, std::move(heights), ServiceQuantity::PathLoss};
}

struct Room {
    explicit Room(const CoverageGrid& grid) : Room(static_cast<std::size_t>(grid.Cells())) {}
    explicit Room(std::size_t cells)
        : km(cells), azimuths(cells), heights(cells), values(3 * cells), marks(3 * cells) {
        buffers = {km.data(), azimuths.data(), heights.data(), {}, {}};
        for (std::size_t i = 0; i < 3; ++i) {
            buffers.values[i] = values.data() + i * cells;
            buffers.inRange[i] = marks.data() + i * cells;
        }
    }

    std::vector<double> km, azimuths, heights, values;
    std::vector<std::uint8_t> marks;
    CoverageBuffers buffers;
};

CellRectangle All(const CoverageGrid& grid) { return {0, 0, grid.cells.columns, grid.cells.rows}; }

CoverageGrid GridIn(std::shared_ptr<const GridSystem> system, double metres, double radiusKm) {
    return MakeCoverageGrid(Site, system, PatternOf(*system, Site, metres), {radiusKm});
}

struct Pixel {
    int column, row;
    double km, azimuth, height;
    double losses[3];
};

void ExpectPixels(const CoverageGrid& grid, const Pixel (&pixels)[10]) {
    Room room(grid);
    ComputeCoverage(LossesWith(AzimuthHeights(std::vector<double>{60, 100, 350, 140})), grid,
                    All(grid), room.buffers);
    for (const Pixel& pixel : pixels) {
        SCOPED_TRACE(testing::Message() << pixel.column << ' ' << pixel.row);
        const auto at = static_cast<std::size_t>(pixel.row * grid.cells.columns + pixel.column);
        EXPECT_NEAR(room.km[at], pixel.km, 1e-6);
        EXPECT_NEAR(room.azimuths[at], pixel.azimuth, 1e-5);
        EXPECT_NEAR(room.heights[at], pixel.height, 1e-4);
        for (std::size_t i = 0; i < 3; ++i)
            EXPECT_NEAR(room.buffers.values[i][at], pixel.losses[i], 2e-5);
    }
}

// Of the published formulas, GeographicLib's Python package and PROJ's UTM, in Python.
TEST(CoverageValues, PixelsAroundTheSite) {
    const CoverageGrid grid = GridIn(GridSystemAround(Site), 1000, 50);
    EXPECT_EQ(grid.cells.columns, 100);
    EXPECT_EQ(grid.cells.rows, 100);
    EXPECT_EQ(grid.cells.toMap, (std::array<double, 6>{-50e3, 1e3, 0, 50e3, 0, -1e3}));
    ExpectPixels(grid,
                 {
                     {50, 49, 0.707107, 45.00000, 80.00000, {98.14939, 98.14939, 94.95423}},
                     {51, 40, 9.617692, 8.97263, 63.98783, {136.88196, 136.88196, 133.68680}},
                     {60, 45, 11.423660, 66.80141, 89.68952, {136.31076, 136.31076, 133.11560}},
                     {99, 50, 49.502525, 90.57873, 101.60757, {159.86329, 163.74987, 156.66813}},
                     {75, 20, 38.993589, 40.84036, 78.15127, {157.57831, 160.44004, 154.38315}},
                     {50, 0, 49.502525, 0.57873, 60.25721, {165.09926, 168.78063, 161.90410}},
                     {30, 70, 28.293109, 223.56790, 248.34156, {140.17935, 141.45491, 136.98419}},
                     {49, 80, 30.504098, 180.93919, 347.80855, {138.27776, 139.67739, 135.08260}},
                     {10, 49, 39.503164, 270.72522, 139.35536, {152.13123, 155.13074, 148.93607}},
                     {49, 99, 49.502525, 180.57873, 348.64964, {148.26890, 151.61338, 145.07374}},
                 });
}

TEST(CoverageValues, PixelsInUtm) {
    const CoverageGrid grid = GridIn(UtmSystemOf(Site), 1000, 50);
    EXPECT_EQ(grid.system->Definition(), "EPSG:32632");
    EXPECT_EQ(grid.cells.toMap, (std::array<double, 6>{521e3, 1e3, 0, 5590e3, 0, -1e3}));
    ExpectPixels(grid,
                 {
                     {50, 49, 1.400586, 353.93860, 65.38791, {109.07130, 109.07130, 105.87614}},
                     {51, 40, 10.427072, 5.35333, 62.37926, {138.26899, 138.26899, 135.07383}},
                     {60, 45, 11.217636, 62.03736, 87.57216, {136.27171, 136.27171, 133.07655}},
                     {98, 50, 47.848802, 90.29874, 100.82984, {159.21955, 162.96223, 156.02439}},
                     {75, 20, 39.258526, 40.02200, 77.78756, {157.75924, 160.65867, 154.56408}},
                     {50, 1, 49.407119, 0.57548, 60.25577, {165.05864, 168.73234, 161.86348}},
                     {30, 70, 28.138752, 226.56693, 241.34383, {140.35877, 141.61308, 137.16361}},
                     {49, 80, 29.642799, 183.02053, 342.95209, {137.88448, 139.18224, 134.68932}},
                     {10, 49, 40.205200, 272.74838, 137.55699, {152.61036, 155.71532, 149.41520}},
                     {49, 98, 47.640202, 182.16716, 344.94329, {147.50013, 150.73645, 144.30497}},
                 });
}

TEST(CoverageValues, EachHasTheBitsOfASingleCall) {
    const CoverageGrid grid = GridIn(GridSystemAround(Site), 4900, 290);
    const AzimuthHeights rough(std::vector<double>{25, 90, 90, 299.5, 300.5, 2000, 31, 150});
    const ModelInputs paths[] = {Town,
                                 {1800, 0, 0, 9, "Urban", "Large", 10, 95},
                                 {150, 0, 0, 3, "Open", "Small/Medium", 95, 10}};
    for (const ModelInputs& path : paths)
        for (const auto quantity : {ServiceQuantity::PathLoss, ServiceQuantity::FieldStrength}) {
            CoverageStation station{Site, path, 25.0, rough, quantity};
            Room room(grid);
            ComputeCoverage(station, grid, All(grid), room.buffers);
            ModelTermsRecord terms;
            for (std::size_t at = 0; at < room.km.size(); ++at)
                for (std::size_t i = 0; i < 3; ++i) {
                    ModelInputs in = path;
                    in.d = room.km[at];
                    in.hb = room.heights[at];
                    const Model& model = ModelOf(ComparedModels[i]);
                    const bool isKnown = in.d <= 300.0;
                    const double single = quantity == ServiceQuantity::PathLoss
                                              ? model.loss(in, terms)
                                              : model.fieldStrength(in, 25.0, terms);
                    const double value = room.buffers.values[i][at];
                    ASSERT_TRUE(isKnown ? value == single : std::isnan(value))
                        << model.name << ' ' << in.d << ' ' << in.hb;
                    ASSERT_EQ(room.buffers.inRange[i][at] == 1, isKnown && InRange(model, in));
                }
        }
}

TEST(CoverageValues, PartsAndThreadsGiveTheSameBytes) {
    const CoverageGrid grid = GridIn(GridSystemAround(Site), 1000, 60);
    const CoverageStation station =
        LossesWith(AzimuthHeights(std::vector<double>{60, 100, 350, 140}));
    Room whole(grid);
    ComputeCoverage(station, grid, All(grid), whole.buffers);
    for (const unsigned threads : {1U, 2U, 5U}) {
        Room room(grid);
        EXPECT_TRUE(ComputeCoverageOn(threads, station, grid, All(grid), room.buffers));
        EXPECT_EQ(room.values, whole.values);
        EXPECT_EQ(room.marks, whole.marks);
    }
    Room part(std::size_t{7 * 5});
    ComputeCoverage(station, grid, {13, 50, 7, 5}, part.buffers);
    for (std::size_t i = 0; i < 35; ++i)
        EXPECT_EQ(part.values[i], whole.values[(50 + i / 7) * 120 + 13 + i % 7]);
    const std::atomic<bool> stop{true};
    EXPECT_FALSE(ComputeCoverageOn(2, station, grid, All(grid), part.buffers, &stop));
}

TEST(CoverageValues, WhatIsNotKnownIsNoNumber) {
    const CoverageGrid grid = GridIn(GridSystemAround(Site), 1000, 2);
    CoverageStation station =
        LossesWith(AzimuthHeights(std::vector<double>{60, 60, std::nan(""), 60}));
    station.farthestKm = 2.0;
    Room room(grid);
    ComputeCoverage(station, grid, All(grid), room.buffers);
    std::string known;
    for (std::size_t i = 0; i < 16; ++i) known += std::isnan(room.values[i]) ? '.' : '#';
    EXPECT_EQ(known, ".##.####........");
}

TEST(CoverageGrid, LimitsAndAreas) {
    const auto around = GridSystemAround(Site);
    EXPECT_THROW(GridIn(around, 1.0, 60), CoverageError);
    const CoverageGrid far = GridIn(around, 1000, 300);
    // Areas shrink as sin(c) / c with the distance, c = 300 km / 6,381 km.
    EXPECT_NEAR(CellAreaNear(far, {300, 300, 1, 1}), 1.0, 1e-6);
    EXPECT_NEAR(CellAreaNear(far, {599, 299, 1, 1}), 1.0 - 0.000367, 3e-6);
    const CoverageGrid box =
        MakeCoverageGrid({0, 179.5}, GridSystemAround({0, 179.5}), {1000, 1000},
                         {0.0, CoverageBounds{-0.1, 179.0, 0.1, -179.9}});
    EXPECT_EQ(box.cells.toMap[0], -56e3);  // half a degree is 55.66 km
    EXPECT_EQ(box.cells.columns, 56 + 67);
    EXPECT_EQ(UtmSystemOf({-33.9, 151.2})->Definition(), "EPSG:32756");
    EXPECT_EQ(UtmSystemOf({88, 0})->Definition(), "EPSG:5041");
}

}  // namespace
}  // namespace vardel
