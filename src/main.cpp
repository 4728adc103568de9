#include <QApplication>
#include <QTimer>
#include <csignal>

#include "forms/Program.h"
#include "qt/services/QtPlatform.h"
#include "qt/services/SessionEnd.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    vardel::SetUpApplication(application);
    // A write beyond the limit of a file's size fails then, as on a full disk.
    std::signal(SIGXFSZ, SIG_IGN);
    vardel::QtPlatform platform;
    vardel::Program program(platform.Services());
    const vardel::SessionEnd sessionEnd([&program] { program.EndSession(); });
    program.Start();
    // From the event loop, which the end of the program ends.
    QTimer::singleShot(0, &application, [&program] { program.Introduce(); });
    return sessionEnd.Signalled() ? 0 : QApplication::exec();
}
