#include "stress/DayOfUse.h"

#include <malloc.h>
#include <unistd.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMainWindow>
#include <QMessageBox>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <array>
#include <cstdio>
#include <fstream>
#include <utility>

#include "forms/graphs/FrmOkumFieldStrength.h"
#include "forms/graphs/GraphForm.h"
#include "forms/main/MainForm.h"
#include "forms/reports/FrmReport.h"

namespace vardel {

namespace {

constexpr int RoundsBefore = 10;    // until all that is kept for good is there
constexpr double MostGrowth = 5.0;  // MB

constexpr int CalculationSteps = 10;
constexpr int CalculationsAtOnce = 10;
constexpr int GraphSteps = 10;

constexpr std::array<MenuItem MainForm::*, 5> Graphs = {
    &MainForm::mnuGraphdBloss, &MainForm::mnuOkumGraphFieldStrength,
    &MainForm::mnuOkum529GraphFieldStrength, &MainForm::mnuGraphCost231FieldStrength,
    &MainForm::mnuGraphCompare};

constexpr std::array<MenuItem MainForm::*, 9> OtherWindows = {
    &MainForm::mnuToolsReach,   &MainForm::mnuToolsExplain,   &MainForm::mnuToolsMeasured,
    &MainForm::mnuToolsArchive, &MainForm::mnuHelpVardel,     &MainForm::mnuHelpInfo,
    &MainForm::mnuHelpAbout,    &MainForm::mnuCalculationLog, &MainForm::mnuCalculationLogDist};

constexpr int StepsOfRound =
    CalculationSteps + GraphSteps + static_cast<int>(OtherWindows.size()) + 1;

// In MB. What the C library keeps to give out again is no use of the program's.
double Resident() {
    ::malloc_trim(0);
    std::ifstream statm("/proc/self/statm");
    double all = 0.0, resident = 0.0;
    statm >> all >> resident;
    return resident * static_cast<double>(::sysconf(_SC_PAGESIZE)) / 1e6;
}

}  // namespace

DayOfUse::DayOfUse(int rounds, const QString& folder)
    : real_(folder.toStdString()), folder_(folder), roundsLeft_(RoundsBefore + rounds) {
    QFile::copy(EMPTY_ARCHIVE, folder + "/runs.mdb");
    QFile::copy(MEASURED_EXAMPLE, folder + "/measured.csv");
    real_.program.ArchiveFile = (folder + "/runs.mdb").toStdString();
}

QString DayOfUse::Use() {
    const int rounds = roundsLeft_ - RoundsBefore;
    QTimer::singleShot(0, this, [this] {
        real_.program.Start();
        real_.program.platform.printers.SetCurrentPrinter(
            real_.program.platform.printers.PrinterNames().back());
        real_.program.ArchiveFile = (folder_ + "/runs.mdb").toStdString();
    });
    ScheduleTick();
    QApplication::exec();
    const double growth = after_ - before_.value_or(0.0);
    const QString told = QString(
                             "%1 calculations, %2 graphs, %3 windows %4 times each: %5 MB before, "
                             "%6 MB after, %7 MB more")
                             .arg(rounds * CalculationSteps * CalculationsAtOnce)
                             .arg(rounds * GraphSteps)
                             .arg(OtherWindows.size())
                             .arg(rounds)
                             .arg(before_.value_or(0.0), 0, 'f', 1)
                             .arg(after_, 0, 'f', 1)
                             .arg(growth, 0, 'f', 2);
    std::printf("%s\n", qPrintable(told));
    const bool exported = QFile::exists(folder_ + "/graph.pdf") &&
                          QFile::exists(folder_ + "/export.png") &&
                          QFile::exists(folder_ + "/export.pdf");
    if (worked_ < (rounds + RoundsBefore) * GraphSteps || !exported)
        return "The graphs were not all seen, or nothing was printed";
    return growth < MostGrowth ? QString() : "The program's memory grows";
}

// A timer of its own for each tick: one whose routine still waits would not come again. With no
// time at all between the ticks no event loop would ever come to its end.
void DayOfUse::ScheduleTick() {
    QTimer::singleShot(1, this, [this] { Tick(); });
}

// Steps are taken in the main loop, as a user's are, where windows that were closed go.
void DayOfUse::Tick() {
    if (roundsLeft_ == 0) return QApplication::exit();  // quit() would ask each window first
    ScheduleTick();
    QWidget* modal = QApplication::activeModalWidget();
    if (auto* dialog = qobject_cast<QDialog*>(modal)) return Answer(*dialog);
    if (modal != nullptr) return WorkIn(*modal);
    if (depth_ > 0 || !real_.program.MainForm.Loaded()) return;
    ++depth_;
    Step();
    --depth_;
}

// Whatever is done there may yield; the window is closed when it is done.
void DayOfUse::WorkIn(QWidget& window) {
    if (&window == worksIn_) return;
    const auto work = std::exchange(inNext_, {});
    QWidget* before = std::exchange(worksIn_, &window);
    if (work) work();
    worksIn_ = before;
    ++worked_;
    window.close();
}

void DayOfUse::Step() {
    CloseOtherWindows();
    int step = step_++ % StepsOfRound;
    if (step < CalculationSteps) return Calculate();
    step -= CalculationSteps;
    if (step < GraphSteps) return OpenGraph(step);
    step -= GraphSteps;
    if (static_cast<std::size_t>(step) == OtherWindows.size()) return EndRound();
    MenuItem& entry = (*real_.program.MainForm).*OtherWindows.at(static_cast<std::size_t>(step));
    if (&entry == &real_.program.MainForm->mnuCalculationLog) inNext_ = [this] { ClearLog(); };
    entry.Pick();
    inNext_ = {};
}

void DayOfUse::Calculate() {
    MainForm& main = *real_.program.MainForm;
    for (int i = 1; i <= CalculationsAtOnce; ++i) {
        main.txtDist.SetText(std::to_string(i) + ".5");
        main.cmdLossCalc.Press();
    }
}

// Some work in two of ten.
void DayOfUse::OpenGraph(int which) {
    if (which == 0) inNext_ = [this] { WorkInGraph(*real_.program.GraphForm); };
    if (which == 1) inNext_ = [this] { WorkInGraph(*real_.program.FrmOkumFieldStrength); };
    ((*real_.program.MainForm).*Graphs.at(static_cast<std::size_t>(which) % Graphs.size())).Pick();
}

void DayOfUse::WorkInGraph(PlotForm& form) {
    form.txtFreq.SetText(step_ % 2 == 0 ? "450" : "1500");
    form.cmdUpdateGraph.Press();
    form.View().mnuViewValues.Pick();
    GraphExport& exports = &form == &static_cast<PlotForm&>(*real_.program.GraphForm)
                               ? real_.program.GraphForm->Export()
                               : real_.program.FrmOkumFieldStrength->Export();
    for (MenuItem* entry :
         {&form.mnuFileSave, &exports.mnuExportPng, &exports.mnuExportSvg, &exports.mnuExportPdf,
          &exports.mnuExportTable, &exports.mnuExportPoints})
        entry->Pick();
    form.ArchiveButton().Press();
    real_.program.platform.printers.PrintChart(form.GraphChart(),
                                               (folder_ + "/graph.pdf").toStdString());
}

void DayOfUse::ClearLog() {
    real_.program.FrmReport->cmdPrint.Press();
    real_.program.FrmReport->mnuFileClearLog.Pick();
}

void DayOfUse::CloseOtherWindows() {
    const QWidget* main = &real_.platform.WindowOf(*real_.program.MainForm);
    QList<QPointer<QMainWindow>> windows;  // one may take another along
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window != main && window->isVisible()) windows << qobject_cast<QMainWindow*>(window);
    for (const QPointer<QMainWindow>& window : windows)
        if (window) window->close();
}

// Yes, in a file of the folder, and with what else is proposed.
void DayOfUse::Answer(QDialog& dialog) {
    if (auto* message = qobject_cast<QMessageBox*>(&dialog)) {
        QAbstractButton* yes = message->button(QMessageBox::Yes);
        return (yes != nullptr ? yes : message->buttons().constFirst())->click();
    }
    if (auto* name = dialog.findChild<QLineEdit*>("fileNameEdit"))
        name->setText(folder_ + "/export");
    QTest::keyClick(&dialog, Qt::Key_Return);
}

void DayOfUse::EndRound() {
    --roundsLeft_;
    after_ = Resident();
    if (!before_ && step_ == RoundsBefore * StepsOfRound) before_ = after_;
}

}  // namespace vardel
