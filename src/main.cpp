#include <QApplication>
#include <QTimer>
#include <csignal>
#include <cstdio>
#include <string_view>

#include "forms/Program.h"
#include "qt/services/QtPlatform.h"
#include "qt/services/SessionEnd.h"

namespace {

constexpr const char* Usage =
    "Usage: vardel [--help | --version]\n"
    "Calculates radio path loss and field strength for land mobile radio, in a window.\n"
    "\n"
    "  --help     show this text and end\n"
    "  --version  show the version and end\n"
    "\n"
    "F1 in the window shows the manual.\n";

// To what needs no window; null: nothing of it was asked for. No other argument means anything.
const char* AnswerTo(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        if (argument == "--help") return Usage;
        if (argument == "--version") return "Vardel " VARDEL_VERSION "\n";
    }
    return nullptr;
}

}  // namespace

int main(int argc, char** argv) {
    if (const char* answer = AnswerTo(argc, argv); answer != nullptr)
        return std::fputs(answer, stdout) >= 0 && std::fflush(stdout) == 0 ? 0 : 1;
    QApplication application(argc, argv);
    vardel::SetUpApplication(application);
    // A write beyond the limit of a file's size fails then, as on a full disk.
    std::signal(SIGXFSZ, SIG_IGN);
    vardel::QtPlatform platform;
    vardel::Program program(platform.Services());
    const auto endWithoutDisplay = [&] {
        platform.LetGoOfForms();
        program.EndWithoutDisplay();
    };
    const vardel::SessionEnd sessionEnd([&program] { program.EndSession(); },
                                        [&platform] { platform.EndProgram(); }, endWithoutDisplay);
    program.Start();
    // From the event loop, which the end of the program ends.
    QTimer::singleShot(0, &application, [&program] { program.Introduce(); });
    return sessionEnd.Signalled() ? 0 : QApplication::exec();
}
