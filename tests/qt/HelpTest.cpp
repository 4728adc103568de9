#include <gtest/gtest.h>

#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTimer>

#include "forms/Program.h"
#include "forms/main/MainForm.h"
#include "forms/reports/FrmReport.h"
#include "qt/services/QtPlatform.h"

namespace vardel {
namespace {

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
    auto* davidson = window.findChild<QWidget*>("lblLDavidson(1)");
    QTest::mousePress(davidson, Qt::LeftButton);
    EXPECT_EQ(topicAt("txtFreq"), "Okumura-Hata-Davidson") << "while its name is held";
    QTest::mouseRelease(davidson, Qt::LeftButton);
    EXPECT_EQ(topicAt("txtFreq"), inputs) << "once it is let go";
    QTest::keyPress(&window, Qt::Key_3, Qt::ControlModifier);
    EXPECT_EQ(topicAt("txtFreq"), "COST 231") << "while a key holds it";
    window.activateWindow();
    program.MainForm->mnuHelpVardel.Pick();
    auto& help = *platform.GetHelp().Window();
    EXPECT_TRUE(help.isVisible()) << "without a viewer of the system's";
    auto& text = *help.findChild<QTextBrowser*>();
    EXPECT_EQ(text.textCursor().position(), 0) << "at its start";
    EXPECT_EQ(text.horizontalScrollBar()->maximum(), 0);
    auto& search = *help.findChild<QLineEdit*>();
    QTest::keyClicks(&search, "COST 231");
    const int first = text.textCursor().selectionStart();
    EXPECT_EQ(text.textCursor().selectedText().toLower(), "cost 231");
    QTest::keyClick(&search, Qt::Key_Return);
    EXPECT_NE(text.textCursor().selectionStart(), first) << "the next";
    QTest::keyClicks(&search, "x");
    EXPECT_NE(search.palette().color(QPalette::Base), QColor(Qt::white));

    // It is open beside a form that blocks the main window, and outlives it.
    QTimer::singleShot(0, &window, [&] {
        FormWindow& log = platform.WindowOf(*program.FrmReport);
        EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &log; }));
        QTest::keyClick(&log, Qt::Key_F1);
        EXPECT_EQ(text.textCursor().block().text().toStdString(), "The report log");
        help.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&help));
        const int before = text.verticalScrollBar()->value();
        QTest::keyClick(&text, Qt::Key_PageUp);
        EXPECT_LT(text.verticalScrollBar()->value(), before) << "it answers";
        program.FrmReport->Hide();
    });
    program.MainForm->mnuCalculationLog.Pick();
    EXPECT_EQ(platform.GetHelp().Window(), &help);
    platform.GetHelp().Quit();
}

// A picture that is not there is an icon of a few points.
TEST(QtHelp, ThePicturesOfTheGuideArePainted) {
    QtHelp help;
    help.ShowTopic(0);
    auto& text = *help.Window()->findChild<QTextBrowser*>();
    EXPECT_TRUE(QTest::qWaitForWindowActive(help.Window()));
    int painted = 0;
    for (QTextCursor at(text.document()); !at.atEnd();
         at.movePosition(QTextCursor::NextCharacter)) {
        if (text.document()->characterAt(at.position()) != QChar::ObjectReplacementCharacter)
            continue;
        text.setTextCursor(at);
        const QRect before = text.cursorRect(at);
        QTextCursor behind(at);
        behind.movePosition(QTextCursor::NextCharacter);
        const QRect place(before.topLeft(), text.cursorRect(behind).bottomLeft());
        const QImage seen = text.viewport()->grab(place).toImage();
        QSet<QRgb> colors;
        for (int y = 0; y < seen.height(); y += 3)
            for (int x = 0; x < seen.width(); x += 3) colors.insert(seen.pixel(x, y));
        if (place.width() > 250 && colors.size() > 20) ++painted;
    }
    EXPECT_EQ(painted, 10);
    help.Quit();
}

}  // namespace
}  // namespace vardel
