#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QTest>
#include <QTimer>

#include "help/frmInfoScreen.h"
#include "platform/qt/QtPlatform.h"
#include "workbench/MainForm.h"
#include "workbench/Program.h"

namespace vardel {
namespace {

TEST(InfoWindow, ShowsTheSignsAndClosesByEnterAndEscape) {
    QtPlatform platform;
    Program program(platform.Services());
    program.Start();
    FormWindow* window = nullptr;
    for (const auto key : {Qt::Key_Return, Qt::Key_Escape}) {
        window = &platform.WindowOf(*program.frmInfoScreen);
        QTimer::singleShot(0, window, [&] {
            EXPECT_TRUE(QTest::qWaitForWindowActive(window));
            EXPECT_EQ(window->findChild<QLabel*>("Label3")->text(), "1500 ≤ Freq ≤ 2000");
            auto* show = window->findChild<QCheckBox*>("chkShowNext");
            EXPECT_TRUE(show->isChecked());
            QTest::keyClick(show, Qt::Key_Space);
            QTest::keyClick(show, key);
        });
        program.MainForm->mnuHelpInfo.Pick();
        EXPECT_FALSE(program.frmInfoScreen.Loaded());
    }
    program.platform.settings.Delete("Vardel", "Loss_FieldStrength", "InfoScreen");
}

}  // namespace
}  // namespace vardel
