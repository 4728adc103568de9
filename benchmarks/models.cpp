// Each model function beside its floor: the bare log, exp and pow calls that its formula needs, and
// nothing else. The ratio of a pair in one run is what counts.

#include <benchmark/benchmark.h>

#include <cmath>

#include "models/ModCalculations.h"

namespace vardel {
namespace {

// Distances on both sides of the thresholds at 20, 40.238 and 64.38 km.
ModelInputs InputsAt(double d) {
    return {.f = 900,
            .d = d,
            .hb = 100,
            .hm = 1.5,
            .area = "Suburban",
            .city = "Small/Medium",
            .pctTime = 10,
            .pctLoc = 90};
}

using Model = double (*)(const ModelInputs&) noexcept;

void Run(benchmark::State& state, Model model) {
    PowerWatts = 1000.0;
    ModelInputs in = InputsAt(static_cast<double>(state.range(0)));
    for (auto _ : state) {
        benchmark::DoNotOptimize(in);
        benchmark::DoNotOptimize(model(in));
    }
}

template <class Function>
double Bare(Function function, double x) {
    benchmark::DoNotOptimize(x);
    double result = function(x);
    benchmark::DoNotOptimize(result);
    return result;
}

double Log(double x) {
    return Bare([](double y) { return std::log(y); }, x);
}

double Power(double x, double exponent) {
    benchmark::DoNotOptimize(x);
    benchmark::DoNotOptimize(exponent);
    double result = std::pow(x, exponent);
    benchmark::DoNotOptimize(result);
    return result;
}

// Time variability: an exp and a log. Suburban area term: a log.
double StatisticsAndArea(const ModelInputs& in) {
    return Bare([](double y) { return std::exp(y); }, -0.01 * in.d) + Log(0.02 * in.pctTime) +
           Log(in.f / 28.0);
}

double HataLogs(const ModelInputs& in) { return Log(in.f) + Log(in.hb) + Log(in.d); }

double DavidsonFloor(const ModelInputs& in) noexcept {
    double sum = HataLogs(in) + StatisticsAndArea(in);
    if (in.d > 20.0) sum += Log(in.hb / 121.92);
    if (in.d > 40.238) sum += Log(1500.0 / in.f);
    return sum;
}

double P529Floor(const ModelInputs& in) noexcept {
    double sum = HataLogs(in) + StatisticsAndArea(in);
    if (in.d > 20.0) {
        sum += Power(Log(in.d / 20.0), 0.8);
        sum += Power(1.5, 1.3);
    }
    return sum;
}

double UsFloor(const ModelInputs& in) noexcept {
    return Log(in.f) + Log(in.d) + Log(in.hb * in.hm) + StatisticsAndArea(in);
}

template <Model floor>
double WithPower(const ModelInputs& in) noexcept {
    return floor(in) + Log(PowerWatts);
}

#define PAIR(name, floor)                                           \
    BENCHMARK_CAPTURE(Run, name, name)->Arg(10)->Arg(30)->Arg(100); \
    BENCHMARK_CAPTURE(Run, name##_floor, floor)->Arg(10)->Arg(30)->Arg(100)

PAIR(DavidsonLoss, DavidsonFloor);
PAIR(DavidsonFieldStrength, WithPower<DavidsonFloor>);
PAIR(Itu529Loss, P529Floor);
PAIR(Itu529FieldStrength, WithPower<P529Floor>);
PAIR(Cost231Loss, P529Floor);
PAIR(Cost231FieldStrength, WithPower<P529Floor>);
PAIR(UsLoss, UsFloor);
PAIR(UsFieldStrength, WithPower<UsFloor>);

}  // namespace
}  // namespace vardel
