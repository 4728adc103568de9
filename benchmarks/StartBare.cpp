// The least that a program with a window can be: until that is painted.

#include <cstdlib>

#include "FirstPaint.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const vardel::FirstPaint firstPaint(application);
    QWidget window;
    window.show();
    std::_Exit(QApplication::exec());
}
