#include <gtest/gtest.h>

#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include "platform/Files.h"
#include "platform/qt/QtPlatform.h"
#include "support/FakePlatform.h"

namespace vardel {
namespace {

// Does this to the next dialog that comes up.
template <class Dialog>
void WithNext(const std::function<void(Dialog&)>& action) {
    QTimer::singleShot(0, qApp, [=] {
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        action(*dialog);
    });
}

TEST(Dialogs, ALineOfText) {
    QtPlatform platform;
    const TextQuestion question{"Comments:", "Store Data Run", " "};
    WithNext<QInputDialog>([](QInputDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Store Data Run");
        EXPECT_EQ(dialog.labelText(), "Comments:");
        EXPECT_EQ(dialog.textValue(), " ");
        auto& line = *dialog.findChild<QLineEdit*>();
        line.selectAll();
        QTest::keyClicks(&line, "a run");
        QTest::keyClick(&line, Qt::Key_Return);
    });
    EXPECT_EQ(platform.AskText(question), "a run");
    WithNext<QInputDialog>([](QInputDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    EXPECT_EQ(platform.AskText(question), "") << "cancelled";
}

TEST(Dialogs, AFileThatExists) {
    QtPlatform platform;
    const ScratchFolder folder;
    ReplaceFile(folder.Path("runs.mdb"), "");
    const FileDialog request{folder.Path(), "*.mdb", 1};
    WithNext<QFileDialog>([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.nameFilters(), QStringList("*.mdb"));
        dialog.selectFile("runs.mdb");
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    EXPECT_EQ(platform.AskOpenFile(request), folder.Path("runs.mdb"));
    WithNext<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
    EXPECT_EQ(platform.AskOpenFile(request), std::nullopt);
}

}  // namespace
}  // namespace vardel
