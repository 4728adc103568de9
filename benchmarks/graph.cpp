// A plot of the loss graph to 300 km beside its single model calls, and its drawing.

#include <benchmark/benchmark.h>
#include <qcustomplot.h>

#include <QApplication>

#include "graphs/CurveData.h"
#include "graphs/GraphForm.h"
#include "models/ModCalculations.h"
#include "platform/qt/ChartPlot.h"
#include "support/RunningProgram.h"

namespace vardel {
namespace {

const ModelInputs Inputs{450, 0, 100, 1.5, "Urban", "Small/Medium", 50, 50};

constexpr std::array<ModelFunction, 3> Losses = {Itu529Loss, DavidsonLoss, Cost231Loss};

void ComputePlot(benchmark::State& state) {
    for (auto _ : state)
        for (int model = 0; model < 3; ++model)
            benchmark::DoNotOptimize(ComputeModelCurve(
                model, Losses[static_cast<std::size_t>(model)], Inputs, 1.0, 300.0));
}
BENCHMARK(ComputePlot)->Unit(benchmark::kMicrosecond);

void ComputePlot_floor(benchmark::State& state) {
    for (auto _ : state)
        for (const ModelFunction loss : Losses) {
            ModelInputs in = Inputs;
            for (in.d = 1.0; in.d <= 300.0; in.d = in.d + 0.1) benchmark::DoNotOptimize(loss(in));
        }
}
BENCHMARK(ComputePlot_floor)->Unit(benchmark::kMicrosecond);

// The redraw of a graph that was drawn before, at 900 by 600 points.
void RedrawPlot(benchmark::State& state) {
    RunningProgram running;
    GraphForm& form = *running.program.GraphForm;
    form.mnuGraph300.Pick();
    form.cmdUpdateGraph.Press();
    QCustomPlot plot;
    plot.resize(900, 600);
    FillPlot(plot, form.CTWX1);
    plot.replot();
    for (auto _ : state) {
        FillPlot(plot, form.CTWX1);
        plot.replot();
    }
}
BENCHMARK(RedrawPlot)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vardel

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
