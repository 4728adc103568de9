#include <gmock/gmock.h>

#include <QDir>
#include <QMenu>
#include <QProcess>
#include <QSettings>
#include <QStandardPaths>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>

#include "platform/Files.h"
#include "platform/qt/QtPlatform.h"
#include "platform/qt/QtSettings.h"
#include "support/FakePlatform.h"
#include "workbench/MainForm.h"
#include "workbench/Program.h"

namespace vardel {
namespace {

TEST(QtSettings, KeepsEveryText) {
    QtSettings settings;
    for (const std::string text :
         {"450.0", "  ", " a b ", "x,y", "a;b=c", "\"q\"", "é\\n", "True"}) {
        settings.Write("App name", "Some Section", "Key_1", text);
        EXPECT_EQ(settings.Read("App name", "Some Section", "Key_1"), text);
    }
    settings.Delete("App name", "Some Section", "Key_1");
    EXPECT_EQ(settings.Read("App name", "Some Section", "Key_1"), "");
    EXPECT_EQ(settings.Read("Nobody", "Nothing", "Key"), "");
    EXPECT_FALSE(settings.HasFailed());
    const QDir config(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation));
    config.mkpath("vardel/A folder.ini");
    settings.Write("A folder", "Section", "Key", "text");
    EXPECT_TRUE(settings.HasFailed());
}

TEST(Termination, SavesWhatAnExitWouldWithoutAQuestion) {
    const ScratchFolder scratch;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("XDG_STATE_HOME", QString::fromStdString(scratch.Path()));
    environment.insert("XDG_CONFIG_HOME", QString::fromStdString(scratch.Path()));
    QProcess program;
    program.setProcessEnvironment(environment);
    program.start(VARDEL_PROGRAM, QStringList());
    const QDir state(QString::fromStdString(scratch.Path("vardel")));
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return !state.entryList({"log*.rtf"}, QDir::Files).isEmpty(); }, 20000));
    QTest::qWait(300);
    program.terminate();
    ASSERT_TRUE(program.waitForFinished(10000));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    const QSettings saved(state.filePath("Vardel.ini"), QSettings::IniFormat);
    EXPECT_EQ(saved.value("Loss_FieldStrength/Freq").toString(), "450.0");
    EXPECT_TRUE(QFile::exists(saved.value("Loss_FieldStrength/TempLogName").toString()));
    EXPECT_TRUE(state.entryList({"*.lock"}, QDir::Files).isEmpty());
}

TEST(QtHelp, F1AnswersWhereTheFocusOrTheOpenMenuIs) {
    QtPlatform platform;
    Program program(platform.Services());
    program.Start();
    FormWindow& window = platform.WindowOf(*program.MainForm);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    const auto topicAt = [&](const char* control) {
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        auto* widget = window.findChild<QWidget*>(control);
        if (auto* menu = qobject_cast<QMenu*>(widget))
            menu->popup(window.mapToGlobal(QPoint(5, 5)));
        else
            widget->setFocus();
        QTest::keyClick(widget, Qt::Key_F1);
        auto* text = platform.GetHelp().Window()->findChild<QTextBrowser*>();
        return text->textCursor().block().text().toStdString();
    };
    const std::string inputs = topicAt("txtFreq");
    EXPECT_EQ(inputs, "Inputs and results");
    EXPECT_EQ(topicAt("txtPowerUnit"), inputs) << "the topic of what contains it";
    EXPECT_EQ(topicAt("txtPctTime"), "Percent of time");
    EXPECT_EQ(topicAt("cmbcitysize"), "Area and city size");
    EXPECT_EQ(topicAt("mnuUnits"), "Units menu");
    window.activateWindow();
    program.MainForm->mnuHelpVardel.Pick();
    EXPECT_TRUE(platform.GetHelp().Window()->isVisible()) << "without a viewer of the system's";
    platform.GetHelp().Quit();
}

}  // namespace
}  // namespace vardel
