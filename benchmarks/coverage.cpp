// An area of three models, by its coordinates, beside the calls that a pixel cannot do without.

#include <benchmark/benchmark.h>

#include <cmath>

#include "coverage/CoverageValues.h"
#include "forms/tools/CoverageArea.h"

namespace vardel {
namespace {

constexpr int Side = 1024;  // pixels
const Place Site{50.0, 10.0};
const ModelInputs Town{390, 0, 0, 1.5, "Suburban", "Small/Medium", 50, 95};

// Of all directions another height.
AzimuthHeights Rough() {
    std::vector<double> metres(360);
    for (std::size_t i = 0; i < metres.size(); ++i)
        metres[i] = 90.0 + 50.0 * std::sin(static_cast<double>(i) * 0.3);
    return AzimuthHeights(std::move(metres));
}

CoverageStation StationOf(bool varied) {
    return {Site, Town, 25.0, varied ? Rough() : AzimuthHeights(90.0)};
}

// The grid's radius is such that a third of the pixels lies within the 20 km of the plain formulas.
CoverageGrid GridOf(const std::shared_ptr<const GridSystem>& system) {
    const double metres = 60'000.0 / Side;
    return MakeCoverageGrid(Site, system, PatternOf(*system, Site, metres), {30.0});
}

void PerPixel(benchmark::State& state, const CoverageGrid& grid) {
    state.counters["pixel"] = benchmark::Counter(
        grid.Cells(), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

struct Room {
    explicit Room(std::size_t cells)
        : values(3, std::vector<double>(cells)),
          marks(3, std::vector<std::uint8_t>(cells)),
          heights(cells) {
        for (std::size_t i = 0; i < 3; ++i) {
            buffers.values[i] = values[i].data();
            buffers.inRange[i] = marks[i].data();
        }
        buffers.heights = heights.data();
    }

    std::vector<std::vector<double>> values;
    std::vector<std::vector<std::uint8_t>> marks;
    std::vector<double> heights;
    CoverageBuffers buffers;
};

void CoverOn(benchmark::State& state, unsigned threads, const CoverageStation& station,
             const CoverageGrid& grid) {
    Room room(static_cast<std::size_t>(grid.Cells()));
    for (auto _ : state)
        benchmark::DoNotOptimize(ComputeCoverageOn(
            threads, station, grid, {0, 0, grid.cells.columns, grid.cells.rows}, room.buffers));
    PerPixel(state, grid);
}

void AreaAroundSite(benchmark::State& state) {
    CoverOn(state, static_cast<unsigned>(state.range(1)), StationOf(state.range(0) != 0),
            GridOf(GridSystemAround(Site)));
}
BENCHMARK(AreaAroundSite)
    ->ArgNames({"varied", "threads"})
    ->Args({0, 1})
    ->Args({1, 1})
    ->Args({1, 2})
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

void AreaInUtm(benchmark::State& state) {
    CoverOn(state, static_cast<unsigned>(state.range(0)), StationOf(true),
            GridOf(UtmSystemOf(Site)));
}
BENCHMARK(AreaInUtm)->ArgName("threads")->Arg(1)->Arg(2)->UseRealTime()->Unit(
    benchmark::kMillisecond);

// What the Terrain window paints, on all processors: 800 by 800 pixels of one model.
void AreaPictureOfWindow(benchmark::State& state) {
    ContourTable table{{{Site, 30.0, {}}, {}, 0.0, {}}, Town, Goal::FieldStrength(60.0, 25.0), {}};
    for (int i = 0; i < 360; ++i) {
        const double height = Rough().At(i);
        table.heights.radials.push_back({double(i), 0.0, height, height, 1.0});
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(PictureOf(table, {{ServiceQuantity::FieldStrength, 60.0}},
                                           ModelNumber::Itu529, 30.0, 800));
}
BENCHMARK(AreaPictureOfWindow)->UseRealTime()->Unit(benchmark::kMillisecond);

// The calls of the mathematical library with the arguments of the formulas, each once for all three
// models, and nothing else.
void AreaFloor(benchmark::State& state) {
    const bool varied = state.range(0) != 0;
    const CoverageStation station = StationOf(varied);
    const CoverageGrid grid = GridOf(GridSystemAround(Site));
    std::vector<double> km(Side), azimuths(Side), hb(Side, 90.0);
    for (auto _ : state) {
        double sum = 0.0;
        for (int row = 0; row < grid.cells.rows; ++row) {
            const double y = (row + 0.5) * -grid.cells.toMap[1] + grid.cells.toMap[3];
            for (int i = 0; i < grid.cells.columns; ++i) {
                const double x = (i + 0.5) * grid.cells.toMap[1] + grid.cells.toMap[0];
                km[static_cast<std::size_t>(i)] = std::sqrt(x * x + y * y) * 0.001;
                if (varied) azimuths[static_cast<std::size_t>(i)] = std::atan2(x, y);
            }
            for (std::size_t i = 0; i < km.size(); ++i) {
                if (varied) {
                    hb[i] = 90.0 + 10.0 * azimuths[i];
                    sum += std::log(hb[i]);
                }
                const double log = std::log(km[i]);
                sum += log;
                if (km[i] <= 20.0) continue;
                if (varied) sum += std::log(hb[i] / 121.92) + std::sqrt(hb[i]);
                const double growth = std::pow(std::log(km[i] / 20.0) / 2.302585092994046, 0.8);
                sum += std::pow(log / 2.302585092994046, 1.0 + 0.3 * growth);
            }
        }
        benchmark::DoNotOptimize(sum);
    }
    PerPixel(state, grid);
}
BENCHMARK(AreaFloor)->ArgName("varied")->Arg(0)->Arg(1)->UseRealTime()->Unit(
    benchmark::kMillisecond);

}  // namespace
}  // namespace vardel

BENCHMARK_MAIN();
