// Opening the log window on a log of so many lines, up to its first painting.

#include <benchmark/benchmark.h>

#include <QApplication>

#include "SampleLine.h"
#include "platform/qt/QtPlatform.h"
#include "reports/FrmReport.h"
#include "reports/RLogClass.h"
#include "workbench/Program.h"

namespace vardel {
namespace {

void OpenLogWindow(benchmark::State& state) {
    QtPlatform platform;
    Program program(platform.Services());
    for (long i = 0; i < state.range(0); ++i) AddLogLine(program.ReportLog(), SampleLine, platform);
    FormWindow& window = platform.WindowOf(*program.FrmReport);
    for (auto _ : state) {
        window.show();
        window.grab();
        state.PauseTiming();
        window.hide();
        state.ResumeTiming();
    }
}
BENCHMARK(OpenLogWindow)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace vardel

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    vardel::SetUpApplication(application);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
