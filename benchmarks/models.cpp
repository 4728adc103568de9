// Each model function beside its floor, see ModelFloors.h; and each curve beside a loop of single
// calls. The ratio of a pair in one run is what counts.

#include <benchmark/benchmark.h>

#include <random>
#include <vector>

#include "ModelFloors.h"
#include "models/ModCalculations.h"

namespace vardel {
namespace {

// Random paths in the models' ranges, at one distance.
std::vector<ModelInputs> PathsAt(double d) {
    std::mt19937 random(1);
    const auto uniform = [&random](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random);
    };
    std::vector<ModelInputs> paths(256);
    for (ModelInputs& in : paths)
        in = {uniform(150, 1500), d,
              uniform(30, 200),   uniform(1, 10),
              "Suburban",         "Small/Medium",
              uniform(1, 99),     uniform(1, 99)};
    return paths;
}

// The inputs are those of a model function or of a floor.
template <class Inputs>
void Run(benchmark::State& state, double (*function)(const Inputs&) noexcept) {
    PowerWatts = 1000.0;
    const auto drawn = PathsAt(static_cast<double>(state.range(0)));
    const std::vector<Inputs> paths(drawn.begin(), drawn.end());
    std::size_t i = 0;
    for (auto _ : state) {
        double result = function(paths[i]);
        benchmark::DoNotOptimize(result);
        i = (i + 1) % paths.size();
    }
}

#define PAIR(name, floor)                                           \
    BENCHMARK_CAPTURE(Run, name, name)->Arg(10)->Arg(30)->Arg(100); \
    BENCHMARK_CAPTURE(Run, name##_floor, floor)->Arg(10)->Arg(30)->Arg(100)

PAIR(DavidsonLoss, DavidsonFloor);
PAIR(DavidsonFieldStrength, WithPower<DavidsonFloor>);
PAIR(Itu529Loss, Itu529Floor);
PAIR(Itu529FieldStrength, WithPower<Itu529Floor>);
PAIR(Cost231Loss, Cost231Floor);
PAIR(Cost231FieldStrength, WithPower<Cost231Floor>);
PAIR(UsLoss, UsFloor);
PAIR(UsFieldStrength, WithPower<UsFloor>);

// The graphs' distances, 1 km to 300 km in steps of 0.1 km.
std::vector<double> GraphDistances() {
    std::vector<double> distances;
    for (double d = 1.0; d <= 300.0; d = d + 0.1) distances.push_back(d);
    return distances;
}

void SingleCalls(benchmark::State& state, ModelFunction function) {
    const auto distances = GraphDistances();
    std::vector<double> values(distances.size());
    ModelInputs in = PathsAt(1.0)[0];
    for (auto _ : state) {
        for (std::size_t i = 0; i < distances.size(); ++i) {
            in.d = distances[i];
            values[i] = function(in);
        }
        benchmark::DoNotOptimize(values.data());
        benchmark::ClobberMemory();
    }
}

void CurveOnGrid(benchmark::State& state, ModelNumber model) {
    const auto distances = GraphDistances();
    const DistanceGrid grid(distances.data(), distances.size());
    std::vector<double> values(distances.size());
    const ModelInputs in = PathsAt(1.0)[0];
    for (auto _ : state) {
        ModelOf(model).lossCurve(in, grid.begin(), grid.Size(), values.data());
        benchmark::DoNotOptimize(values.data());
        benchmark::ClobberMemory();
    }
}

void CurveOver(benchmark::State& state, ModelNumber model, const ModelInputs& in,
               const std::vector<double>& distances) {
    std::vector<double> values(distances.size());
    for (auto _ : state) {
        ModelOf(model).lossOverKm(in, distances.data(), distances.size(), values.data());
        benchmark::DoNotOptimize(values.data());
        benchmark::ClobberMemory();
    }
}

void CurveOnNewDistances(benchmark::State& state, ModelNumber model) {
    CurveOver(state, model, PathsAt(1.0)[0], GraphDistances());
}

// What benchmarks/module.py compares the Python module with: the same path and distances.
void CurveOfAMillion(benchmark::State& state, ModelNumber model) {
    std::vector<double> distances;
    for (int i = 0; i < 1'000'000; ++i) distances.push_back(0.1 + i * 299.9 / 999'999);
    CurveOver(state, model, {450, 0, 100, 1.5, "Urban", "Small/Medium", 50, 50}, distances);
}

#define CURVES(name, model)                                                          \
    BENCHMARK_CAPTURE(SingleCalls, name, name##Loss)->Unit(benchmark::kMicrosecond); \
    BENCHMARK_CAPTURE(CurveOnGrid, name, model)->Unit(benchmark::kMicrosecond);      \
    BENCHMARK_CAPTURE(CurveOnNewDistances, name, model)->Unit(benchmark::kMicrosecond)

CURVES(Itu529, ModelNumber::Itu529);
CURVES(Cost231, ModelNumber::Cost231);
CURVES(Davidson, ModelNumber::Davidson);
BENCHMARK_CAPTURE(CurveOfAMillion, itu529_loss, ModelNumber::Itu529);
BENCHMARK_CAPTURE(CurveOfAMillion, davidson_loss, ModelNumber::Davidson);
BENCHMARK_CAPTURE(CurveOfAMillion, cost231_loss, ModelNumber::Cost231);
BENCHMARK_CAPTURE(CurveOfAMillion, us_loss, ModelNumber::Us);

}  // namespace
}  // namespace vardel
