#include <gtest/gtest.h>

#include <QMenu>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>

#include "forms/Program.h"
#include "forms/main/MainForm.h"
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
    window.activateWindow();
    program.MainForm->mnuHelpVardel.Pick();
    EXPECT_TRUE(platform.GetHelp().Window()->isVisible()) << "without a viewer of the system's";
    platform.GetHelp().Quit();
}

}  // namespace
}  // namespace vardel
