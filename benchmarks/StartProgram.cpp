// The program as its main function starts it, until its window is painted: StartProgram FOLDER,
// with the measured data that it finds beside itself in the folder.

#include <cstdlib>

#include "FirstPaint.h"
#include "forms/Program.h"
#include "qt/services/QtPlatform.h"

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    QApplication application(argc, argv);
    const vardel::FirstPaint firstPaint(application);
    vardel::SetUpApplication(application);
    vardel::QtPlatform platform;
    vardel::Platform services = platform.Services();
    services.programDirectory = argv[1];
    vardel::Program program(services);
    program.Start();
    std::_Exit(QApplication::exec());
}
