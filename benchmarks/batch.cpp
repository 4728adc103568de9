// A batch of a million rows of CSV, from bytes in memory to bytes in memory, beside its model calls
// and the formatting of its numbers alone. The ratio of a pair in one run is what counts.

#include "cli/batch/Batch.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>
#include <thread>
#include <vector>

#include "cli/batch/RowFormats.h"
#include "engine/Calculation.h"
#include "text/NumberText.h"

namespace vardel::cli {
namespace {

constexpr std::size_t Rows = 1000000;
constexpr std::size_t DistinctPaths = 4096;

std::vector<PathInputs> Paths() {
    std::mt19937 random(1);
    const auto tenths = [&random](int low, int high) {
        return std::uniform_int_distribution<int>(low * 10, high * 10)(random) / 10.0;
    };
    constexpr std::array<const char*, 3> Areas = {"Urban", "Suburban", "Open"};
    std::vector<PathInputs> paths(DistinctPaths);
    for (std::size_t i = 0; i < paths.size(); ++i)
        paths[i] = {.distance = tenths(1, 100),
                    .frequency = tenths(150, 2000),
                    .hb = tenths(30, 200),
                    .hm = tenths(1, 10),
                    .area = Areas.at(i % 3),
                    .city = "Small/Medium",
                    .pctTime = tenths(1, 99),
                    .pctLoc = tenths(1, 99),
                    .powerWatts = tenths(1, 1000)};
    return paths;
}

std::string MillionRows() {
    std::vector<std::string> lines;
    for (const PathInputs& path : Paths())
        lines.push_back(',' + ShortestText(path.frequency) + ',' + ShortestText(path.distance) +
                        ',' + ShortestText(path.hb) + ',' + ShortestText(path.hm) + ',' +
                        path.area + ',' + path.city + ',' + ShortestText(path.pctTime) + ',' +
                        ShortestText(path.pctLoc) + ',' + ShortestText(path.powerWatts) + '\n');
    std::string csv =
        "site,frequency_mhz,distance_km,base_height_m,mobile_height_m,area,city,percent_time,"
        "percent_locations,power_w\n";
    for (std::size_t i = 0; i < Rows; ++i)
        csv += "Site " + std::to_string(i) + lines[i % lines.size()];
    return csv;
}

unsigned ThreadsOf(const benchmark::State& state) {
    return state.range(0) > 0 ? static_cast<unsigned>(state.range(0))
                              : std::max(1U, std::thread::hardware_concurrency());
}

void Batch(benchmark::State& state) {
    const std::string csv = MillionRows();
    std::string out;
    for (auto _ : state) {
        std::size_t at = 0;
        CsvRows format;
        const BatchCount count = RunBatch({.source =
                                               [&](char* bytes, std::size_t size) {
                                                   const std::size_t come =
                                                       csv.copy(bytes, size, at);
                                                   at += come;
                                                   return come;
                                               },
                                           .output = [&](std::string_view text) { out = text; },
                                           .messages = {},
                                           .defaults = DefaultPath(Units::Metric),
                                           .threads = ThreadsOf(state)},
                                          format);
        if (count.rows != Rows || count.errors != 0) state.SkipWithError("rows with errors");
    }
}

// So many rows' share of it on each thread.
void CallsAndFormattingAlone(benchmark::State& state) {
    std::vector<ModelInputs> inputs;
    for (const PathInputs& path : Paths()) inputs.push_back(MetricInputs(path));
    const unsigned threads = ThreadsOf(state);
    const auto work = [&inputs, threads] {
        for (std::size_t i = 0; i < Rows / threads; ++i) {
            const Calculation calculation(inputs[i % inputs.size()], 25.0);
            for (const ModelNumber model : ComparedModels) {
                benchmark::DoNotOptimize(ShortestText(calculation.Of(model).loss));
                benchmark::DoNotOptimize(ShortestText(calculation.Of(model).fieldStrength));
            }
        }
    };
    for (auto _ : state) {
        std::vector<std::thread> others;
        for (unsigned i = 1; i < threads; ++i) others.emplace_back(work);
        work();
        for (std::thread& other : others) other.join();
    }
}

// 0 threads: as many as the machine has.
BENCHMARK(Batch)->Arg(1)->Arg(0)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(CallsAndFormattingAlone)->Arg(1)->Arg(0)->UseRealTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vardel::cli
