#include <gtest/gtest.h>

#include <QApplication>

#include "qt/services/QtPlatform.h"
#include "support/FakePlatform.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    // Nothing of the user's own is touched.
    const vardel::ScratchFolder scratch;
    for (const char* folder : {"XDG_STATE_HOME", "XDG_CONFIG_HOME"})
        qputenv(folder, QByteArray::fromStdString(scratch.Path()));
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    vardel::SetUpApplication(application);
    return RUN_ALL_TESTS();
}
