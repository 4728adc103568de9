// Hard use of the real program, on real windows that need no display.

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string_view>

#include "forms/main/MainForm.h"
#include "forms/reports/FrmReport.h"
#include "forms/reports/RLogClass.h"
#include "stress/DayOfUse.h"
#include "stress/RandomUser.h"
#include "stress/RealProgram.h"

namespace vardel {
namespace {

// Of Qt, but for those that every program without a display and a desktop gets.
QStringList& Warnings() {
    static QStringList warnings;
    return warnings;
}

void KeepWarning(QtMsgType type, const QMessageLogContext&, const QString& text) {
    const bool expected = text.startsWith("This plugin does not support") ||
                          text.startsWith("QStandardPaths: XDG_RUNTIME_DIR");
    if (type >= QtWarningMsg && type != QtInfoMsg && !expected) Warnings() << text;
}

int Report(QStringList faults) {
    faults += Warnings();
    faults.removeAll(QString());
    for (const QString& fault : faults) std::fprintf(stderr, "%s\n", qPrintable(fault));
    return faults.isEmpty() ? 0 : 1;
}

// So many actions of a user, with the program started again whenever it has ended.
int UseAtRandom(int actions, unsigned seed, const QString& folder) {
    QFile::copy(EMPTY_ARCHIVE, folder + "/New Model Data.mdb");
    QFile::copy(MEASURED_EXAMPLE, folder + "/measured.csv");
    RandomUser user(seed, actions, folder);
    while (user.HasActionsLeft()) {
        RealProgram real(folder.toStdString());
        QTimer::singleShot(0, [&real] { real.program.Start(); });
        user.Use();
    }
    for (auto used = user.Used().begin(); used != user.Used().end(); ++used)
        std::printf("%s %d\n", qPrintable(used.key()), used.value());
    return Report(user.Faults());
}

// So many starts on settings that hold anything, each followed by a user's few actions and an end.
int StartAtRandom(int starts, unsigned seed, const QString& folder) {
    constexpr const char* Keys[] = {"Units", "AreaType", "CitySize", "Dist",       "Freq",
                                    "HB",    "HM",       "PCTTIME",  "InfoScreen", "PCTLOC"};
    constexpr const char* HostKeys[] = {"TxHt_m", "TxFreq_MHz", "PctTime_pct", "CalledFromQuorne"};
    constexpr const char* Texts[] = {"Metric", "English", "Urban", "NoScreen", "450", "",   "True",
                                     "-1",     "1e400",   "0.5",   "1,5",      "\n",  "ünï"};
    std::mt19937 random(seed);
    const auto any = [&random](const auto& list) { return list[random() % std::size(list)]; };
    QStringList faults;
    for (int start = 0; start < starts; ++start) {
        RealProgram real(folder.toStdString());
        for (int i = 0; i < 6; ++i)
            real.program.platform.settings.Write("Vardel", "Loss_FieldStrength", any(Keys),
                                                 any(Texts));
        real.program.platform.settings.Write("Ostrel_Quorne", "Global Parameters", any(HostKeys),
                                             any(Texts));
        RandomUser user(static_cast<unsigned>(random()), 5, folder);
        QTimer::singleShot(0, [&real] { real.program.Start(); });
        user.Use();
        faults += user.Faults();
        if (random() % 2 == 0) real.program.EndSession();
    }
    return Report(faults);
}

// A log of so many lines is shown, saved, read back and added to.
int HoldLines(int lines, const QString& folder) {
    RealProgram real(folder.toStdString());
    RLogClass& log = real.program.ReportLog();
    for (int line = 0; line < lines; ++line) {
        log.SetUnderline(line % 3 == 0);
        log.AddLine("a line of the log, number " + std::to_string(line));
    }
    QTimer::singleShot(0, [&real] {
        QApplication::processEvents();
        real.platform.WindowOf(*real.program.FrmReport).close();
    });
    log.Show();
    const std::string text = real.program.FrmReport->rtbLog.Text();
    const std::string file = folder.toStdString() + "/long.rtf";
    const bool same = std::count(text.begin(), text.end(), '\n') == lines && log.SaveFile(file) &&
                      log.ReadFile(file) && real.program.FrmReport->rtbLog.Text() == text;
    return Report(same ? QStringList() : QStringList("The long log has not come back"));
}

int Run(std::string_view what, int count, unsigned seed, const QString& folder) {
    if (what == "user") return UseAtRandom(count, seed, folder);
    if (what == "starts") return StartAtRandom(count, seed, folder);
    if (what == "log") return HoldLines(count, folder);
    if (what == "day") return Report({DayOfUse(count, folder).Use()});
    return 2;
}

}  // namespace
}  // namespace vardel

int main(int argc, char** argv) {
    const std::string_view what = argc > 2 ? argv[1] : "";
    const QTemporaryDir scratch;
    const QString folder = scratch.filePath("vardel");
    for (const char* variable : {"XDG_STATE_HOME", "XDG_CONFIG_HOME"})
        qputenv(variable, folder.toLocal8Bit());
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(vardel::KeepWarning);
    QApplication application(argc, argv);
    vardel::SetUpApplication(application);
    QApplication::setQuitOnLastWindowClosed(false);
    QDir().mkpath(folder);
    const int result =
        vardel::Run(what, argc > 2 ? std::atoi(argv[2]) : 0,
                    argc > 3 ? static_cast<unsigned>(std::atoi(argv[3])) : 1U, folder);
    if (result == 2)
        std::fprintf(stderr, "usage: vardel_stress user|starts|log|day COUNT [SEED]\n");
    return result;
}
