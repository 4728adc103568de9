#include <gtest/gtest.h>

#include <QHeaderView>
#include <QTableView>
#include <QTest>
#include <filesystem>

#include "forms/Program.h"
#include "forms/archive/ArchiveForm.h"
#include "forms/main/MainForm.h"
#include "qt/services/QtPlatform.h"
#include "services/Database.h"
#include "support/FakePlatform.h"

namespace vardel {
namespace {

// The first of a thousand runs is incomplete: it has no curves at all.
TEST(ArchiveWindow, TheListIsSelectedSortedAndScrolled) {
    const ScratchFolder folder;
    const std::string path = folder.Path("runs.mdb");
    std::filesystem::copy_file(EMPTY_ARCHIVE, path);
    Database::OpenDatabase(path).Change(
        {{"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 1000) "
          "INSERT INTO ModelRun SELECT i, 'm', 'p', 'site ' || (i * 7 % 1009), 't', 2 FROM n",
          {}}});
    QtPlatform platform;
    Program program{platform.Services()};
    program.Start();
    program.ArchiveFile = path;
    program.MainForm->mnuToolsArchive.Pick();
    ArchiveForm& form = *program.ArchiveForm;
    auto& table = *platform.WindowOf(form).findChild<QTableView*>("lstRuns");
    QApplication::processEvents();
    const auto cell = [&table](int row, int column) {
        return table.model()->index(row, column).data().toString().toStdString();
    };
    EXPECT_EQ(table.model()->rowCount(), 1000);
    EXPECT_EQ(table.currentIndex().row(), 0);
    ASSERT_TRUE(form.lstRuns.Selected()) << "the run stored last";
    QTest::keyClick(&table, Qt::Key_Down);
    EXPECT_EQ(form.lstRuns.Selected(), 1U);
    EXPECT_EQ(cell(1, 0), "999");
    auto& heads = *table.horizontalHeader();
    const QPoint comment(heads.sectionViewportPosition(2) + 5, heads.height() / 2);
    QTest::mouseClick(heads.viewport(), Qt::LeftButton, {}, comment);
    EXPECT_EQ(cell(0, 2), "site 1");
    QTest::mouseClick(heads.viewport(), Qt::LeftButton, {}, comment);
    EXPECT_EQ(cell(0, 2), "site 999");
    QTest::keyClick(&table, Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(form.lstRuns.Selected(), 999U);
    form.cmdDelete.Press();
    EXPECT_TRUE(table.model()->index(999, 1).data(Qt::FontRole).value<QFont>().strikeOut());
    EXPECT_EQ(table.currentIndex().row(), 999) << "and stays where it is";
    form.txtSearch.SetText("site 500");
    EXPECT_EQ(table.model()->rowCount(), 2) << "by number and by comment";
    form.cmdUndo.Press();
    form.Unload();
    EXPECT_EQ(table.model()->columnCount(), 6) << "what waits for its deletion is still asked";
}

}  // namespace
}  // namespace vardel
