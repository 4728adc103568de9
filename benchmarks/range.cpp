// The distance range report: runs of 300 and 3,000 lines with their yields and their saving,
// without a window and on real widgets; a line beside the calls that it is made of; the log window
// on a long log, up to its first painting; and a line appended to such a log whose window was open
// before.

#include <benchmark/benchmark.h>

#include <QApplication>

#include "SamplePath.h"
#include "forms/reports/frmLogDistRange.h"
#include "models/ModCalculations.h"
#include "qt/services/QtPlatform.h"
#include "services/Files.h"
#include "support/RunningProgram.h"
#include "text/NumberText.h"

namespace vardel {
namespace {

// From 0.1 km on, so many lines.
void FillIn(frmLogDistRange& form, long lines) {
    form.txtStart.SetText("0.1");
    form.txtStep.SetText(ShortestText(299.9 / static_cast<double>(lines)));
    form.txtEnd.SetText("299.99");
}

void RangeReport(benchmark::State& state) {
    RunningProgram running;
    for (auto _ : state) {
        FillIn(*running.program.frmLogDistRange, state.range(0));
        running.program.frmLogDistRange->cmdLogDistRange.Press();
    }
}
BENCHMARK(RangeReport)->Arg(300)->Arg(3'000)->Unit(benchmark::kMillisecond)->UseRealTime();

void RangeReportOnWidgets(benchmark::State& state) {
    QtPlatform platform;
    Platform services = platform.Services();
    // A start without measured data waits for an answer.
    const ScratchFolder folder;
    services.programDirectory = folder.Path();
    ReplaceFile(folder.Path("measured.csv"), "0,450,0.5,Urban,1.5,1,100\n10,49.9\n");
    Program program(services);
    program.Start();
    for (auto _ : state) {
        frmLogDistRange& form = *program.frmLogDistRange;
        FillIn(form, state.range(0));
        form.Show();
        QApplication::processEvents();
        form.cmdLogDistRange.Press();
    }
}
BENCHMARK(RangeReportOnWidgets)->Arg(300)->Arg(3'000)->Unit(benchmark::kMillisecond)->UseRealTime();

void RangeLine(benchmark::State& state) {
    RunningProgram running;
    for (long i = 0; i < state.range(0); ++i)
        AddSampleLine(running.program.ReportLog(), running.platform);
    for (auto _ : state) AddSampleLine(running.program.ReportLog(), running.platform);
}
BENCHMARK(RangeLine)->Arg(0)->Arg(100'000)->Iterations(20'000);

// The six model calls and the formatting of a line, and nothing else.
void RangeLine_floor(benchmark::State& state) {
    const ModelInputs& in = SampleInputs;
    FakePlatform platform;
    std::string text;
    const auto add = [&](double x, std::string_view pattern) {
        text += FixedWidthNumber(FormatNumber(x, pattern));
    };
    for (auto _ : state) {
        text.clear();
        add(SamplePath.distance, "00000.00");
        add(SamplePath.frequency, "00000.0");
        add(SamplePath.hb, "0000.00");
        add(SamplePath.hm, "000.00");
        text += FormatText(in.area, "@@@@@@@@!");
        text += FormatText(in.city, "@@@@@@@@@@@@!");
        for (const double result :
             {DavidsonLoss(in), Cost231Loss(in), Itu529Loss(in), Itu529FieldStrength(in),
              DavidsonFieldStrength(in), Cost231FieldStrength(in)})
            add(result, "0000.00");
        text += FormatNumber(in.pctTime / 100.0, "00%");
        text += FormatNumber(in.pctLoc / 100.0, "00%");
        add(SamplePath.powerWatts, "000000.0");
        text += FormatDateTime(platform.Now());
        benchmark::DoNotOptimize(text.data());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(RangeLine_floor);

void OpenLogWindow(benchmark::State& state) {
    QtPlatform platform;
    Program program(platform.Services());
    for (long i = 0; i < state.range(0); ++i) AddSampleLine(program.ReportLog(), platform);
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

void RangeLineBehindAnOpenedWindow(benchmark::State& state) {
    QtPlatform platform;
    Program program(platform.Services());
    for (long i = 0; i < state.range(0); ++i) AddSampleLine(program.ReportLog(), platform);
    FormWindow& window = platform.WindowOf(*program.FrmReport);
    window.show();
    window.hide();
    for (auto _ : state) AddSampleLine(program.ReportLog(), platform);
}
BENCHMARK(RangeLineBehindAnOpenedWindow)->Arg(0)->Arg(100'000)->Iterations(20'000);

}  // namespace
}  // namespace vardel

int main(int argc, char** argv) {
    const vardel::ScratchFolder scratch;
    for (const char* folder : {"XDG_STATE_HOME", "XDG_CONFIG_HOME"})
        qputenv(folder, QByteArray::fromStdString(scratch.Path()));
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    vardel::SetUpApplication(application);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
