#include <gtest/gtest.h>

#include <QDir>
#include <QProcess>
#include <QSettings>
#include <QTest>

#include "support/FakePlatform.h"

namespace vardel {
namespace {

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

}  // namespace
}  // namespace vardel
