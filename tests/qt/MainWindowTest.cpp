#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "engine/PathRecord.h"
#include "forms/Program.h"
#include "forms/archive/ArchiveForm.h"
#include "forms/graphs/FrmOkumFieldStrength.h"
#include "forms/graphs/GraphForm.h"
#include "forms/graphs/ValuesForm.h"
#include "forms/help/AboutForm.h"
#include "forms/help/frmInfoScreen.h"
#include "forms/main/MainForm.h"
#include "forms/reports/FrmPrintOut.h"
#include "forms/reports/FrmReport.h"
#include "forms/reports/frmLogDistRange.h"
#include "forms/reports/frmPrinterSelect.h"
#include "forms/tools/ExplainForm.h"
#include "forms/tools/MeasuredForm.h"
#include "forms/tools/ReachForm.h"
#include "models/Primitives.h"
#include "qt/services/QtPlatform.h"
#include "services/Files.h"
#include "support/FakePlatform.h"

namespace vardel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MainWindowTest : public testing::Test {
protected:
    MainWindowTest() {
        program.Start();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&Window()));
    }

    MainForm& Main() { return *program.MainForm; }
    FormWindow& Window() { return platform.WindowOf(Main()); }
    template <class T>
    T& Widget(const char* name) {
        return *Window().findChild<T*>(name);
    }
    // Answers the next message box once it is there, and keeps its text.
    void AnswerNextMessage(QMessageBox::StandardButton button) {
        QTimer::singleShot(0, &Window(), [this, button] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (box == nullptr) return AnswerNextMessage(button);
            // A user lets go of what was pressed before the box came up.
            QTest::mouseRelease(box, Qt::LeftButton);
            shownText = box->text().toStdString();
            box->button(button)->click();
        });
    }

    QtPlatform platform;
    Program program{platform.Services()};
    std::string shownText;
};

TEST_F(MainWindowTest, CalculateShowsAndTellsTheDefaultResults) {
    QTest::mouseClick(&Widget<QPushButton>("cmdLossCalc"), Qt::LeftButton);
    const QColor pink(255, 150, 150);
    const struct {
        const char *label, *told, *shown;
        QColor color;
    } cases[] = {
        {"lblDavidson", "Loss, Okumura-Hata Davidson: 143.13 dB", "143.13", Qt::white},
        {"lblcost231", "Loss, Cost 231: 140.42 dB", "140.42", pink},
        {"lblOH529dBLoss", "Loss, Okumura-Hata ITU 529: 143.13 dB", "143.13", Qt::white},
        {"lblFITU529", "Field Strength, Okumura-Hata ITU 529: 49.31 dB µv / m", "49.31", Qt::white},
        {"lblPalvernDavFS", "Field Strength, Okumura-Hata Davidson: 49.30 dB µv / m", "49.30",
         Qt::white},
        {"lblFCost231", "Field Strength, Cost 231: 52.01 dB µv / m", "52.01", pink},
    };
    for (const auto& c : cases) {
        auto& label = Widget<QLabel>(c.label);
        auto* told = QAccessible::queryAccessibleInterface(&label);
        EXPECT_EQ(told->text(QAccessible::Name).toStdString(), c.told);
        EXPECT_EQ(told->text(QAccessible::Description),
                  c.color == pink ? "Out of the model's range" : "In the model's range");
        EXPECT_EQ(label.text().toStdString(), c.shown) << c.label;
        const QImage picture = label.grab().toImage();
        EXPECT_EQ(picture.pixelColor(picture.width() / 4, picture.height() / 2), c.color)
            << c.label;
    }
    auto* told = QAccessible::queryAccessibleInterface(&Widget<QWidget>("announcement"));
    EXPECT_EQ(told->role(), QAccessible::Notification);
    EXPECT_FALSE(told->state().invisible);
    EXPECT_EQ(told->text(QAccessible::Name).toStdString(),
              "Okumura-Hata ITU 529: 143.13 dB, 49.31 dB(µV/m). Okumura-Hata Davidson: 143.13 dB, "
              "49.30 dB(µV/m). Cost 231: 140.42 dB, 52.01 dB(µV/m), out of the model's range. ");
    EXPECT_EQ(Widget<QComboBox>("cmbareatype").accessibleDescription(), "Urban");
}

TEST_F(MainWindowTest, AMessageWhenABoxIsLeftDoesNotSwallowTheClick) {
    int left = 0;
    int clicks = 0;
    Main().txtFreq.LostFocus = [&] {
        ++left;
        program.platform.windows.ShowMessage({.text = "Out of limits"});
    };
    Main().cmdLossCalc.Click = [&] {
        EXPECT_EQ(left, 1) << "before the click";
        ++clicks;
    };
    Widget<QLineEdit>("txtFreq").setFocus();
    AnswerNextMessage(QMessageBox::Ok);
    // The release goes to the message box.
    auto& button = Widget<QPushButton>("cmdLossCalc");
    QTest::mousePress(&button, Qt::LeftButton);
    EXPECT_TRUE(QTest::qWaitFor([&] { return clicks > 0; }));
    EXPECT_FALSE(button.isDown());
    EXPECT_EQ(left, 1);
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(shownText, "Out of limits");
}

TEST_F(MainWindowTest, WhatTabReachesBehindAMessageIsSelected) {
    auto& box = Widget<QLineEdit>("txtFreq");
    auto& next = Widget<QLineEdit>("txtDist");
    QTest::keyClicks(&box, "29");
    AnswerNextMessage(QMessageBox::Ok);
    QTest::keyClick(&box, Qt::Key_Tab);
    EXPECT_TRUE(QTest::qWaitFor([&] { return next.hasFocus(); }));
    QTest::keyClicks(&next, "20");
    EXPECT_EQ(next.text().toStdString(), "20");
}

TEST_F(MainWindowTest, EnterLeavesTheBoxCalculatesAndComesBack) {
    std::vector<std::string> events;
    Main().txtFreq.LostFocus = [&] { events.push_back("LostFocus"); };
    auto& box = Widget<QLineEdit>("txtFreq");
    Main().cmdLossCalc.Click = [&] {
        events.push_back("Click");
        EXPECT_TRUE(box.hasFocus()) << "keys that come meanwhile are for it";
    };
    for (int i = 0; i < 2; ++i) {
        QTest::keyClicks(&box, "900");
        QTest::keyClick(&box, Qt::Key_Return);
        EXPECT_TRUE(box.hasFocus());
    }
    EXPECT_THAT(events, ElementsAre("LostFocus", "Click", "LostFocus", "Click"));
    EXPECT_EQ(box.text(), "900") << "typed over what was there";
    auto* menu = Window().menuBar()->actions().constFirst()->menu();
    QTest::keyClick(&Window(), Qt::Key_F, Qt::AltModifier);
    EXPECT_TRUE(menu->isVisible());
    QTest::keyClick(menu, Qt::Key_Escape);
    QTest::keyClick(Window().menuBar(), Qt::Key_Escape);
    EXPECT_TRUE(box.hasFocus());
    EXPECT_EQ(box.selectedText(), "900") << "a menu has borrowed the focus with the selection";

    auto& area = Widget<QComboBox>("cmbareatype");
    area.setFocus();
    area.showPopup();
    events.clear();
    QTest::keyClick(area.view(), Qt::Key_Return);
    EXPECT_THAT(events, IsEmpty()) << "an entry was picked, and no more";
}

TEST_F(MainWindowTest, MenusListsAndOtherWindowsOnlyBorrowTheFocus) {
    int left = 0;
    Main().txtFreq.LostFocus = [&] { ++left; };
    auto& box = Widget<QLineEdit>("txtFreq");
    box.setFocus();

    auto* menu = Window().menuBar()->actions().constFirst()->menu();
    menu->popup(Window().mapToGlobal(QPoint(5, 25)));
    EXPECT_TRUE(menu->isVisible());
    menu->close();
    for (const auto reason :
         {Qt::ActiveWindowFocusReason, Qt::PopupFocusReason, Qt::MenuBarFocusReason}) {
        QFocusEvent event(QEvent::FocusOut, reason);
        QApplication::sendEvent(&box, &event);
    }
    AnswerNextMessage(QMessageBox::Ok);
    program.platform.windows.ShowMessage({.text = "Anything"});
    EXPECT_TRUE(QTest::qWaitForWindowActive(&Window()));
    EXPECT_TRUE(box.hasFocus());
    EXPECT_EQ(left, 0);

    QTest::mouseClick(&Widget<QLineEdit>("txthb"), Qt::LeftButton);
    EXPECT_EQ(left, 1);
}

TEST_F(MainWindowTest, TypingChangesTheBoxAndWritesByTheProgramComeBackAsNoUserEvent) {
    int changes = 0;
    Main().txtDist.Change = [&] { ++changes; };
    auto& box = Widget<QLineEdit>("txtDist");
    box.setFocus();
    box.selectAll();
    QTest::keyClicks(&box, "25");
    EXPECT_EQ(Main().txtDist.Text(), "25");
    EXPECT_EQ(changes, 2);
    Main().txtDist.SetText("30.0");
    EXPECT_EQ(box.text(), "30.0");
    EXPECT_EQ(changes, 3) << "one change event for one change";

    int picks = 0;
    Main().cmbcitysize.Click = [&] { ++picks; };
    Main().cmbcitysize.SetText("Large");
    EXPECT_EQ(Widget<QComboBox>("cmbcitysize").currentText(), "Large");
    EXPECT_EQ(picks, 1);
    QTest::keyClick(&Widget<QComboBox>("cmbareatype"), Qt::Key_Down);
    EXPECT_EQ(Main().cmbareatype.Text(), "Suburban");
    EXPECT_FALSE(Widget<QComboBox>("cmbcitysize").isEnabled());
    EXPECT_EQ(picks, 2);
}

TEST_F(MainWindowTest, AMenuMarkIsTheProgramsToSet) {
    int picks = 0;
    Main().mnuUnitsEnglish.Click = [&] { ++picks; };
    auto* action = Window().findChild<QAction*>("mnuUnitsEnglish");
    action->trigger();
    EXPECT_EQ(picks, 1);
    EXPECT_FALSE(action->isChecked());
    Main().mnuUnitsEnglish.SetChecked(true);
    EXPECT_TRUE(action->isChecked());
}

TEST_F(MainWindowTest, TheRangeHintLastsAsLongAsTheMouseOrTheKeysAreHeld) {
    auto& box = Widget<QLineEdit>("txtFreq");
    const auto boxColor = [&] { return box.palette().color(QPalette::Base); };
    auto& head = Widget<QLabel>("lblLCost231(1)");
    QTest::mousePress(&head, Qt::LeftButton);
    EXPECT_EQ(boxColor(), QColor(255, 150, 150));
    EXPECT_TRUE(Widget<QLabel>("lblHelpRange").text().startsWith("Cost 231>"));
    QTest::mouseRelease(&head, Qt::LeftButton, {}, QPoint(-500, -500));
    EXPECT_EQ(boxColor(), QColor(Qt::white));

    QTest::mousePress(&head, Qt::LeftButton);
    AnswerNextMessage(QMessageBox::Ok);  // to which the release goes
    program.platform.windows.ShowMessage({.text = "Anything"});
    EXPECT_EQ(boxColor(), QColor(Qt::white));
}

TEST_F(MainWindowTest, AKeyOfARangeHintIsNoInputUntilItIsReleased) {
    const struct {
        Qt::Key key, bare;  // while Ctrl is held, and once that and Shift are let go of
        Qt::KeyboardModifiers held;
        const char *text, *hint;
    } cases[] = {
        {Qt::Key_1, Qt::Key_1, Qt::ControlModifier, "1", "ITU 529>"},
        {Qt::Key_2, Qt::Key_2, Qt::ControlModifier | Qt::KeypadModifier, "2", "Davidson>"},
        {Qt::Key_3, Qt::Key_QuoteDbl, Qt::ControlModifier | Qt::ShiftModifier, "\"", "Cost 231>"},
    };
    auto& hint = Widget<QLabel>("lblHelpRange");
    for (const char* name : {"cmbareatype", "txtFreq"}) {
        Widget<QWidget>(name).setFocus();
        for (const auto& c : cases) {
            const auto send = [&](QEvent::Type type, quint64 time, bool ctrl, bool repeat = false) {
                QKeyEvent event(type, ctrl ? c.key : c.bare, ctrl ? c.held : Qt::NoModifier, 12, 0,
                                0, c.text, repeat);
                event.setTimestamp(time);
                QApplication::sendEvent(&Widget<QWidget>(name), &event);
            };
            send(QEvent::KeyPress, 100, true);
            send(QEvent::KeyPress, 700, false, true);
            send(QEvent::KeyRelease, 740, false);  // of a repeat, which X11 leaves to be told by
            send(QEvent::KeyPress, 740, false);    // the time
            QTest::qWait(100);
            EXPECT_TRUE(hint.text().startsWith(c.hint)) << name << ' ' << hint.text().toStdString();
            send(QEvent::KeyRelease, 780, false);
            EXPECT_TRUE(QTest::qWaitFor([&] { return hint.text().isEmpty(); })) << c.hint;
        }
    }
    EXPECT_EQ(Main().txtFreq.Text(), "450.0");
    QTest::keyClick(&Widget<QLineEdit>("txtFreq"), Qt::Key_1);
    EXPECT_EQ(Main().txtFreq.Text(), "450.01") << "a stroke of its own";
}

TEST_F(MainWindowTest, OnlyWhatCanBeUsedTakesTheFocus) {
    auto& box = Widget<QLineEdit>("txtFreq");
    auto& result = Widget<QLabel>("lblDavidson");
    Main().cmdLossCalc.Press();
    for (QWidget* at : {static_cast<QWidget*>(&Widget<QLabel>("Label3")), box.parentWidget(),
                        static_cast<QWidget*>(&result)}) {
        QTest::mouseClick(at, Qt::LeftButton, {}, QPoint(3, 3));
        EXPECT_TRUE(box.hasFocus()) << at->objectName().toStdString();
    }
    QTest::mouseDClick(&result, Qt::LeftButton);
    EXPECT_TRUE(result.hasFocus()) << "its number can be copied";
    EXPECT_EQ(result.selectedText().toStdString(), "143.13");
    box.setFocus();
    for (int i = 0; i < 11; ++i) QTest::keyClick(Window().focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(box.hasFocus()) << "eleven inputs, and no more";
}

TEST_F(MainWindowTest, TheWheelChangesOnlyTheListWithTheFocus) {
    auto& area = Widget<QComboBox>("cmbareatype");
    for (const char* text : {"Urban", "Suburban"}) {
        QWheelEvent wheel({5, 5}, area.mapToGlobal(QPoint(5, 5)), {}, {0, -120}, {}, {},
                          Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&wheel);  // a user's, which may take the focus
        QApplication::instance()->notify(&area, &wheel);
        EXPECT_EQ(Main().cmbareatype.Text(), text);
        area.setFocus();
    }
}

TEST_F(MainWindowTest, TheFocusAndNoEmptyHintShowsOnTheGround) {
    const auto colorAt = [&](const char* name, int x, int y) {
        const QPoint point = Widget<QWidget>(name).mapTo(&Window(), QPoint(x, y));
        return Window().grab().toImage().pixelColor(point);
    };
    EXPECT_EQ(colorAt("lblHelpRange", 5, 5), colorAt("lblHelpRange", 5, -3));
    for (const char* name : {"cmbareatype", "cmdLossCalc", "cmbPowerUnit"}) {
        EXPECT_NE(colorAt(name, 50, -4), QColor(Qt::white)) << name;
        Widget<QWidget>(name).setFocus();
        EXPECT_EQ(colorAt(name, 50, -4), QColor(Qt::white)) << name;
    }
}

TEST_F(MainWindowTest, EveryInputHasANameForAScreenReader) {
    for (auto* box : Window().findChildren<QLineEdit*>())
        EXPECT_FALSE(box->accessibleName().isEmpty()) << box->objectName().toStdString();
    for (auto* list : Window().findChildren<QComboBox*>())
        EXPECT_FALSE(list->accessibleName().isEmpty()) << list->objectName().toStdString();
}

TEST_F(MainWindowTest, ACommaThatMeansAPointIsOne) {
    const auto typed = [this](const QLocale& locale, Qt::KeyboardModifier from) {
        QLocale::setDefault(locale);
        auto& box = Widget<QLineEdit>("txtDist");
        box.clear();
        QTest::keyClicks(&box, "1");
        QTest::keyClick(&box, ',', from);
        QTest::keyClicks(&box, "5");
        QLocale::setDefault(QLocale::system());
        return Main().txtDist.Text();
    };
    EXPECT_EQ(typed(QLocale(QLocale::German), Qt::NoModifier), "1.5");
    EXPECT_EQ(typed(QLocale::c(), Qt::KeypadModifier), "1.5");
    EXPECT_EQ(typed(QLocale::c(), Qt::NoModifier), "1,5") << "a slip, which the box's rule tells";
}

// Whatever takes the focus in any window.
TEST_F(MainWindowTest, EveryControlOfEveryWindowHasAName) {
    program.ChartToRead = &program.GraphForm->CTWX1;
    for (Form* form :
         {static_cast<Form*>(&Main()), static_cast<Form*>(&*program.FrmReport),
          static_cast<Form*>(&*program.GraphForm),
          static_cast<Form*>(&*program.FrmOkumFieldStrength),
          static_cast<Form*>(&*program.frmLogDistRange),
          static_cast<Form*>(&*program.frmInfoScreen), static_cast<Form*>(&*program.AboutForm),
          static_cast<Form*>(&*program.FrmPrintOut), static_cast<Form*>(&*program.frmPrinterSelect),
          static_cast<Form*>(&*program.ReachForm), static_cast<Form*>(&*program.ExplainForm),
          static_cast<Form*>(&*program.MeasuredForm), static_cast<Form*>(&*program.ArchiveForm),
          static_cast<Form*>(&*program.ValuesForm)}) {
        int controls = 0;
        for (QWidget* widget : platform.WindowOf(*form).findChildren<QWidget*>()) {
            const bool ofAnother = qobject_cast<QComboBox*>(widget->parentWidget()) != nullptr ||
                                   widget->window() != &platform.WindowOf(*form);
            if (widget->focusPolicy() == Qt::NoFocus || widget->objectName().startsWith("qt_") ||
                ofAnother || qobject_cast<QMenuBar*>(widget) != nullptr)
                continue;
            ++controls;
            EXPECT_NE(QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name), "")
                << form->Name() << ' ' << widget->metaObject()->className() << ' '
                << widget->objectName().toStdString();
        }
        EXPECT_GT(controls, 0) << form->Name();
    }
}

TEST_F(MainWindowTest, ClosingTheFrameUnloadsTheForm) {
    AnswerNextMessage(QMessageBox::No);
    // In the program's own loop, which the end of the program ends.
    QTimer::singleShot(0, &Window(), [this] { Window().close(); });
    QApplication::exec();
    EXPECT_EQ(shownText, "Retain Output Log?");
    EXPECT_FALSE(program.MainForm.Loaded());
}

TEST_F(MainWindowTest, WhatIsMarkedInPinkIsToldAndTakenBack) {
    Main().txtFreq.SetText("1800");
    Main().mnuToolsReach.Pick();
    QWidget& window = platform.WindowOf(*program.ReachForm);
    auto* cell = window.findChild<QLabel*>("lblReach(0)");
    EXPECT_EQ(cell->accessibleName(), "ITU 529, reach, column 1: " + cell->text());
    EXPECT_EQ(cell->accessibleDescription(), "out of the model's range");
    Main().txtFreq.SetText("450");
    EXPECT_EQ(cell->accessibleDescription(), "");
    auto* wanted = window.findChild<QLineEdit*>("txtWanted");
    QTest::keyClicks(wanted, "x");
    EXPECT_EQ(wanted->accessibleDescription(),
              "The wanted value must be a number from -300 to 400.");
    QTest::keyClick(wanted, Qt::Key_Backspace);
    QTest::keyClicks(wanted, "40");
    EXPECT_EQ(wanted->accessibleDescription(), "");
}

// A box would else take the file's name as its text.
TEST_F(MainWindowTest, AFileDroppedOnABoxBringsItsInputs) {
    const ScratchFolder folder;
    ReplaceFile(folder.Path("loss.csv"), "# " + PathRecord({.frequency = 900,
                                                            .hb = 60,
                                                            .hm = 2,
                                                            .area = "Open",
                                                            .city = "Large",
                                                            .powerWatts = 20}));
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(QString::fromStdString(folder.Path("loss.csv")))});
    auto& box = Widget<QLineEdit>("txthb");
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &files, Qt::LeftButton, {});
    QApplication::sendEvent(&box, &enter);
    EXPECT_TRUE(enter.isAccepted());
    AnswerNextMessage(QMessageBox::Yes);
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &files, Qt::LeftButton, {});
    QApplication::sendEvent(&box, &drop);
    EXPECT_TRUE(QTest::qWaitFor([&] { return box.text() == "60.0"; }));
    EXPECT_EQ(Main().txtFreq.Text(), "900.0");
    EXPECT_EQ(Main().cmbareatype.Text(), "Open");
    EXPECT_EQ(PowerWatts, 20.0);
    PowerWatts = 1000.0;
}

}  // namespace
}  // namespace vardel
