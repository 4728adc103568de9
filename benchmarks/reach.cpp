// The questions that are asked backwards, by the three models that are compared.

#include "engine/reach/Reach.h"

#include <benchmark/benchmark.h>

#include "map/CoverageRings.h"

namespace vardel {
namespace {

const ModelInputs Inputs{390, 10, 45, 1.5, "Suburban", "Small/Medium", 50, 95};
const Goal FieldStrength = Goal::FieldStrength(32, 25);

void ReachOfAll(benchmark::State& state) {
    for (auto _ : state)
        for (const ModelNumber model : ComparedModels)
            benchmark::DoNotOptimize(ReachOf(ModelOf(model), Inputs, FieldStrength));
}
BENCHMARK(ReachOfAll)->Unit(benchmark::kMicrosecond);

// Davidson's loss turns on the way: service ends and begins again.
void ReachOfTurningLoss(benchmark::State& state) {
    const ModelInputs in{35, 0, 20, 1.5, "Urban", "Small/Medium", 50, 50};
    for (auto _ : state)
        for (const ModelNumber model : ComparedModels)
            benchmark::DoNotOptimize(ReachOf(ModelOf(model), in, Goal::AllowedLoss(165)));
}
BENCHMARK(ReachOfTurningLoss)->Unit(benchmark::kMicrosecond);

void BaseHeightForAll(benchmark::State& state) {
    for (auto _ : state)
        for (const ModelNumber model : ComparedModels)
            benchmark::DoNotOptimize(BaseHeightFor(ModelOf(model), Inputs, FieldStrength));
}
BENCHMARK(BaseHeightForAll)->Unit(benchmark::kMicrosecond);

void GeoJsonOfAll(benchmark::State& state) {
    Coverage coverage{{52.5, 13.4}, Inputs, FieldStrength, {}};
    for (const ModelNumber model : ComparedModels) coverage.rings.push_back({model, 95, 5.15});
    for (auto _ : state) benchmark::DoNotOptimize(CoverageGeoJson(coverage));
}
BENCHMARK(GeoJsonOfAll)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace vardel
