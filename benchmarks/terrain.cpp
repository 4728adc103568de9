// Contours from the ground: with the data in memory beside what they cannot do without, from files
// of 3601 x 3601 cells, and from a folder of a hundred of them.

#include <benchmark/benchmark.h>

#include <GeographicLib/Geodesic.hpp>
#include <GeographicLib/GeodesicLine.hpp>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "support/FakePlatform.h"
#include "terrain/Contours.h"
#include "terrain/ElevationModule.h"
#include "terrain/RasterMosaic.h"

namespace vardel {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t Azimuths = 360;
const Mast Site{{50.5, 10.5}, 40, {}};
const ModelInputs Town{390, 0, 0, 1.5, "Suburban", "Small/Medium", 50, 95};
const Goal FieldStrength = Goal::FieldStrength(32, 25);

float Hills(int column, int row) {
    return static_cast<float>(300 + 7 * (column / 50 % 40) + 5 * (row / 70 % 50));
}

// A degree in cells of so many to the degree.
std::unique_ptr<RasterMosaic> InMemory(int cells) {
    std::vector<float> metres;
    for (int row = 0; row < cells; ++row)
        for (int column = 0; column < cells; ++column) metres.push_back(Hills(column, row));
    return ElevationsOfArray({cells, cells, {10, 1.0 / cells, 0, 51, 0, -1.0 / cells}},
                             std::move(metres));
}

void Contours(benchmark::State& state) {
    const auto ground = InMemory(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(ContoursOf(
            EffectiveHeights(*ground, Site, HeightDefinitions[0], Azimuths), Town, FieldStrength));
}
BENCHMARK(Contours)->Arg(1200)->Arg(3600)->Unit(benchmark::kMillisecond);

// The same places on the geodesics, each by GeographicLib, and nothing else.
void GeodesicPlacesAlone(benchmark::State& state) {
    const auto& earth = GeographicLib::Geodesic::WGS84();
    const int points = static_cast<int>(13'000 * state.range(0) / 111'195) + 2;
    for (auto _ : state)
        for (std::size_t i = 0; i < Azimuths; ++i) {
            const auto line =
                earth.Line(Site.site.latitude, Site.site.longitude, static_cast<double>(i));
            for (int k = 0; k < points; ++k) {
                double latitude = 0.0, longitude = 0.0;
                line.Position(3000.0 + 13'000.0 * k / (points - 1), latitude, longitude);
                benchmark::DoNotOptimize(latitude);
            }
        }
}
BENCHMARK(GeodesicPlacesAlone)->Arg(1200)->Arg(3600)->Unit(benchmark::kMillisecond);

constexpr int TileSide = 3601;

void WriteTile(const fs::path& folder, int north, int east) {
    char name[16];
    std::snprintf(name, sizeof name, "N%02dE%03d.hgt", north, east);
    std::string bytes;
    for (int row = 0; row < TileSide; ++row)
        for (int column = 0; column < TileSide; ++column) {
            const auto metres = static_cast<unsigned>(Hills(column, row));
            bytes += {static_cast<char>(metres >> 8U), static_cast<char>(metres & 0xFFU)};
        }
    std::ofstream(folder / name, std::ios::binary) << bytes;
}

// Its files are links to one, whose name alone says where a tile lies.
void LinkTiles(const fs::path& folder) {
    WriteTile(folder, 50, 10);
    for (int north = 45; north < 55; ++north)
        for (int east = 5; east < 15; ++east) {
            char name[16];
            std::snprintf(name, sizeof name, "N%02dE%03d.hgt", north, east);
            if (!fs::exists(folder / name))
                fs::create_hard_link(folder / "N50E010.hgt", folder / name);
        }
}

std::vector<std::string> FilesOf(const fs::path& folder, bool all) {
    return {all ? folder.string() : (folder / "N50E010.hgt").string()};
}

// Opening, heights and contours; the module is loaded by the first run.
void FirstContour(benchmark::State& state) {
    const ScratchFolder scratch;
    LinkTiles(scratch.Path(""));
    for (auto _ : state) {
        const auto ground =
            OpenElevationsWith(ELEVATION_MODULE, FilesOf(scratch.Path(""), state.range(0)));
        benchmark::DoNotOptimize(ContoursOf(
            EffectiveHeights(*ground, Site, HeightDefinitions[0], Azimuths), Town, FieldStrength));
    }
}
BENCHMARK(FirstContour)->ArgName("folder")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

// Beside it: the bytes of the tile from the disk's cache.
void ReadTileAlone(benchmark::State& state) {
    const ScratchFolder scratch;
    WriteTile(scratch.Path(""), 50, 10);
    std::string bytes(std::size_t{2} * TileSide * TileSide, '\0');
    for (auto _ : state) {
        std::ifstream file(scratch.Path("N50E010.hgt"), std::ios::binary);
        file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        benchmark::DoNotOptimize(bytes.data());
    }
}
BENCHMARK(ReadTileAlone)->Unit(benchmark::kMillisecond);

double ResidentMegabytes() {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;)
        if (double kilobytes = 0.0; word == "VmHWM:" && status >> kilobytes)
            return kilobytes / 1024.0;
    return 0.0;
}

// Sites all over a hundred tiles; the counter is the most memory that the process had.
void SitesOverAFolder(benchmark::State& state) {
    const ScratchFolder scratch;
    LinkTiles(scratch.Path(""));
    const auto ground = OpenElevationsWith(ELEVATION_MODULE, FilesOf(scratch.Path(""), true));
    for (auto _ : state)
        for (int i = 0; i < 100; ++i) {
            const Mast mast{{45.5 + i / 10 * 0.99, 5.5 + i % 10 * 0.99}, 40, {}};
            benchmark::DoNotOptimize(EffectiveHeights(*ground, mast, HeightDefinitions[0], 72));
        }
    state.counters["most_MiB"] = ResidentMegabytes();
}
BENCHMARK(SitesOverAFolder)->Iterations(2)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vardel

BENCHMARK_MAIN();
