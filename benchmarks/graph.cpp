// The curves of a plot to 300 km, and their drawing.

#include <benchmark/benchmark.h>
#include <qcustomplot.h>

#include <QApplication>
#include <fstream>
#include <string_view>

#include "engine/curves/CurvePlot.h"
#include "forms/graphs/FrmOkumFieldStrength.h"
#include "forms/graphs/GraphForm.h"
#include "qt/chart/ChartPlot.h"
#include "qt/chart/FreeCorner.h"
#include "support/RunningProgram.h"

namespace vardel {
namespace {

const ModelInputs Inputs{450, 0, 100, 1.5, "Urban", "Small/Medium", 50, 50};

void ComputePlot(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(PlotOf(LossCurves(Inputs), 300.0));
}
BENCHMARK(ComputePlot)->Unit(benchmark::kMicrosecond);

// The redraw of a graph that was drawn before, at 900 by 600 points.
void Redraw(benchmark::State& state, PlotForm& form) {
    form.cmdUpdateGraph.Press();
    QCustomPlot plot;
    plot.resize(900, 600);
    KeepLegendFree(plot);
    FillPlot(plot, form.GraphChart(), form.GraphChart().Scales());
    plot.replot();
    for (auto _ : state) {
        FillPlot(plot, form.GraphChart(), form.GraphChart().Scales());
        plot.replot();
    }
}

// At 1500 MHz two of the models leave their range on the way: six series.
GraphForm& ToSixSeries(GraphForm& form) {
    form.txtFreq.SetText("1500");
    form.mnuGraph300.Pick();
    form.cmdUpdateGraph.Press();
    return form;
}

void RedrawPlot(benchmark::State& state) {
    RunningProgram running;
    Redraw(state, ToSixSeries(*running.program.GraphForm));
}
BENCHMARK(RedrawPlot)->Unit(benchmark::kMillisecond);

void RedrawFamily(benchmark::State& state) {
    RunningProgram running;
    running.program.GraphMode = FieldStrengthGraph::Itu529;
    running.program.FrmOkumFieldStrength->mnuModelDist300.Pick();
    Redraw(state, *running.program.FrmOkumFieldStrength);
}
BENCHMARK(RedrawFamily)->Unit(benchmark::kMillisecond);

// The same points as blocks of lines, for another program to draw.
void WritePoints(const char* path) {
    RunningProgram running;
    std::ofstream file(path);
    for (const ChartSeries& series : ToSixSeries(*running.program.GraphForm).CTWX1.AllSeries()) {
        for (std::size_t i = 0; i < series.X.size(); ++i)
            file << series.X[i] << ' ' << series.Y[i] << '\n';
        file << "\n\n";
    }
}

}  // namespace
}  // namespace vardel

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    if (argc == 3 && std::string_view(argv[1]) == "--points") {
        vardel::WritePoints(argv[2]);
        return 0;
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
