// How long a user waits for a window: the archive of ten thousand runs, opened, searched and
// scrolled to its end; the log of 10,000 and of 100,000 lines, and a key in the latter, each until
// it is painted; a line added to a log whose window was open before; and a distance range report.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTableView>
#include <QTextBlock>
#include <QTextEdit>
#include <filesystem>

#include "SamplePath.h"
#include "archive/dbOperations.h"
#include "forms/Program.h"
#include "forms/archive/ArchiveForm.h"
#include "forms/main/MainForm.h"
#include "forms/reports/FrmReport.h"
#include "forms/reports/RLogClass.h"
#include "forms/reports/frmLogDistRange.h"
#include "qt/services/QtPlatform.h"
#include "services/Database.h"
#include "services/Files.h"
#include "support/FakePlatform.h"
#include "text/NumberText.h"

namespace vardel {
namespace {

// The program on widgets, with a folder of its own.
struct WindowedProgram {
    WindowedProgram() {
        // A start without measured data waits for an answer.
        ReplaceFile(folder.Path("measured.csv"), "0,450,0.5,Urban,1.5,1,100\n10,49.9\n");
        program.Start();
    }
    Platform Services() {
        Platform services = platform.Services();
        services.programDirectory = folder.Path();
        return services;
    }
    void Paint(Form& form) {
        QApplication::processEvents();
        benchmark::DoNotOptimize(platform.WindowOf(form).grab());
    }

    const ScratchFolder folder;
    QtPlatform platform;
    Program program{Services()};
};

// Three curves of 991 points to each run: 480 MB.
const std::string& LargeArchive() {
    static const ScratchFolder folder;
    static const std::string path = [] {
        std::string file = folder.Path("runs.mdb");
        std::filesystem::copy_file(EMPTY_ARCHIVE, file);
        const std::vector<double> points(991, 1.5);
        const Bytes packed = dbOperations::PackPointsXY(991, points, points);
        std::vector<RowChange> changes{
            {"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 10000) "
             "INSERT INTO ModelRun SELECT i, 'Okumura-Hata', "
             "'hb:100.0,hm:1.5,frq:' || (150 + i % 1850) || ',Urban,,Small/Medium,"
             "Power:1.kW e.r.p.,50%T,50%L', 'site ' || (i * 7919 % 10007), "
             "datetime('2026-01-01', i || ' minutes'), 2 FROM n",
             {}}};
        for (const char* const model : {"ITU 529 Urban", "Davidson Urban", "Cost 231 Urban"})
            changes.push_back({"INSERT INTO DataSets SELECT ID, ?1, Comment, 991, ?2 FROM ModelRun",
                               {std::string(model), packed}});
        Database::OpenDatabase(file).Change(changes);
        return file;
    }();
    return path;
}

void OpenArchiveWindow(benchmark::State& state) {
    WindowedProgram running;
    running.program.ArchiveFile = LargeArchive();
    for (auto _ : state) {
        running.program.ArchiveForm->Show();
        running.Paint(*running.program.ArchiveForm);
        state.PauseTiming();
        running.program.ArchiveForm->Unload();
        QApplication::processEvents();
        state.ResumeTiming();
    }
}
BENCHMARK(OpenArchiveWindow)->Unit(benchmark::kMillisecond)->UseRealTime();

// A key of a search; the runs sorted by their comments, and their end seen.
void SearchAndScrollArchive(benchmark::State& state) {
    WindowedProgram running;
    running.program.ArchiveFile = LargeArchive();
    ArchiveForm& form = *running.program.ArchiveForm;
    form.Show();
    auto& table = *running.platform.WindowOf(form).findChild<QTableView*>("lstRuns");
    for (auto _ : state) {
        form.txtSearch.SetText("12");
        running.Paint(form);
        form.txtSearch.SetText("");
        form.lstRuns.SetSort(2, !form.lstRuns.SortsDescending());
        table.verticalScrollBar()->setValue(table.verticalScrollBar()->maximum());
        running.Paint(form);
    }
}
BENCHMARK(SearchAndScrollArchive)->Unit(benchmark::kMillisecond)->UseRealTime();

void AddLines(WindowedProgram& running, long lines) {
    for (long i = 0; i < lines; ++i) AddSampleLine(running.program.ReportLog(), running.platform);
}

void OpenLogWindow(benchmark::State& state) {
    WindowedProgram running;
    AddLines(running, state.range(0));
    for (auto _ : state) {
        running.program.FrmReport->Show();  // the menu shows it modally, until it is closed
        running.Paint(*running.program.FrmReport);
        state.PauseTiming();
        running.program.FrmReport->Hide();
        QApplication::processEvents();
        state.ResumeTiming();
    }
}
BENCHMARK(OpenLogWindow)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond)->UseRealTime();

void AppendBehindAnOpenedWindow(benchmark::State& state) {
    WindowedProgram running;
    AddLines(running, state.range(0));
    running.program.FrmReport->Show();
    running.program.FrmReport->Hide();
    for (auto _ : state) AddLines(running, 1);
}
BENCHMARK(AppendBehindAnOpenedWindow)->Arg(0)->Arg(100'000)->Iterations(20'000);

// A letter in the midst of the log and its removal, then another line of it brought into view.
void TypeAndScrollLog(benchmark::State& state) {
    WindowedProgram running;
    AddLines(running, state.range(0));
    FrmReport& form = *running.program.FrmReport;
    form.Show();
    auto& edit = *running.platform.WindowOf(form).findChild<QTextEdit*>("rtbLog");
    QScrollBar& bar = *edit.verticalScrollBar();
    int steps = 0;
    const auto press = [&](int key, const QString& text) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
        QApplication::sendEvent(&edit, &event);
        running.Paint(form);
    };
    press(Qt::Key_Up, {});  // the first key has the rest of the log made ready
    for (auto _ : state) {
        edit.setTextCursor(QTextCursor(edit.document()->findBlockByNumber(
            static_cast<int>(state.range(0) / 2) + steps % 100)));
        press(Qt::Key_X, "x");
        press(Qt::Key_Backspace, {});
        bar.setValue(static_cast<int>(++steps * 99991L % bar.maximum()));
        running.Paint(form);
    }
}
BENCHMARK(TypeAndScrollLog)->Arg(100'000)->Unit(benchmark::kMillisecond)->UseRealTime();

// So many lines from 0.1 km on, with the yields between them and the saving of the log.
void RangeReport(benchmark::State& state) {
    WindowedProgram running;
    for (auto _ : state) {
        frmLogDistRange& form = *running.program.frmLogDistRange;
        form.txtStart.SetText("0.1");
        form.txtStep.SetText(ShortestText(299.9 / static_cast<double>(state.range(0))));
        form.txtEnd.SetText("299.99");
        form.Show();
        QApplication::processEvents();
        form.cmdLogDistRange.Press();
    }
}
BENCHMARK(RangeReport)->Arg(300)->Arg(3'000)->Unit(benchmark::kMillisecond)->UseRealTime();

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
