#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <algorithm>

#include "platform/Files.h"
#include "platform/Rtf.h"
#include "platform/qt/QtPlatform.h"
#include "reports/FrmReport.h"
#include "reports/frmLogDistRange.h"
#include "workbench/MainForm.h"
#include "workbench/Program.h"

namespace vardel {
namespace {

class RangeWindowTest : public testing::Test {
protected:
    RangeWindowTest() { program.Start(); }

    FormWindow& Window() { return platform.WindowOf(*program.frmLogDistRange); }
    template <class T>
    T& Widget(const char* name) {
        return *Window().findChild<T*>(name);
    }
    void Click(const char* button) {
        QTest::mouseClick(&Widget<QPushButton>(button), Qt::LeftButton);
    }
    void Type(const char* box, const char* text) {
        auto& edit = Widget<QLineEdit>(box);
        edit.setFocus();
        edit.selectAll();
        QTest::keyClicks(&edit, text);
    }
    // Opens the window from the main form's menu and does this in it; returns when it is closed.
    void Open(const std::function<void()>& action) {
        FormWindow& window = Window();
        QTimer::singleShot(0, &window, [&] {
            EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
            action();
        });
        program.MainForm->mnuCalculationLogDist.Pick();
        EXPECT_FALSE(program.frmLogDistRange.Loaded());
    }
    // Begins a run of millions of lines and does this in the middle of it.
    void InALongRun(const std::function<void()>& action) {
        Open([&] {
            Type("txtStart", "0.1");
            Type("txtEnd", "300");
            Type("txtStep", "0.0001");
            QTimer::singleShot(300, &Window(), action);
            Click("cmdLogDistRange");
        });
    }
    const std::string& Log() { return program.FrmReport->rtbLog.Text(); }
    long Lines() { return std::count(Log().begin(), Log().end(), '\n'); }
    bool Saved() {
        const auto file = ReadWholeFile(program.TempLogFile);
        return file && !file->empty() && *ReadRtf(*file) == program.FrmReport->rtbLog.Content();
    }

    QtPlatform platform;
    Program program{platform.Services()};
};

TEST_F(RangeWindowTest, EnterBeginsAndEscapeEnds) {
    const long before = Lines();
    Open([&] {
        Widget<QCheckBox>("chkClearLog").click();
        QTimer::singleShot(0, &Window(), [] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            EXPECT_EQ(box->text(), "StStep Value Must be Numeric");
            box->button(QMessageBox::Ok)->click();
        });
        Type("txtStart", "100");
        Type("txtEnd", "100");
        Type("txtStep", "5 metres");
        QTest::keyClick(&Widget<QLineEdit>("txtStep"), Qt::Key_Return);
    });
    EXPECT_EQ(Lines(), before + 2) << "the one line and the empty one";
    InALongRun([&] {
        QTest::keyClick(&Window(), Qt::Key_Return);
        EXPECT_TRUE(program.frmLogDistRange->RunRunning);
        QTest::keyClick(&Window(), Qt::Key_Escape);
    });
    EXPECT_TRUE(Saved());
    Open([&] { QTest::keyClick(&Window(), Qt::Key_Escape); });
}

}  // namespace
}  // namespace vardel
