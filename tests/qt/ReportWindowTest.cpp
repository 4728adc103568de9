#include <gmock/gmock.h>

#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTimer>

#include "forms/Program.h"
#include "forms/main/MainForm.h"
#include "forms/reports/FrmReport.h"
#include "forms/reports/RLogClass.h"
#include "forms/reports/frmLogDistRange.h"
#include "qt/services/PictureConvert.h"
#include "qt/services/QtPlatform.h"
#include "qt/widgets/RichTextEdit.h"

namespace vardel {
namespace {

class ReportWindowTest : public testing::Test {
protected:
    ReportWindowTest() { program.Start(); }

    RichTextBox& Log() { return program.FrmReport->rtbLog; }
    QTextEdit& Edit() { return *Window().findChild<QTextEdit*>("rtbLog"); }
    FormWindow& Window() { return platform.WindowOf(*program.FrmReport); }
    void Press(const char* button) { Window().findChild<QPushButton*>(button)->click(); }

    // Opens the log from the menu and does this while it is open.
    void WhileOpen(const std::function<void()>& action) {
        QTimer::singleShot(0, &Window(), [&] {
            action();
            Press("cmdClose");
        });
        program.MainForm->mnuCalculationLog.Pick();
        EXPECT_FALSE(Window().isVisible());
    }

    QtPlatform platform;
    Program program{platform.Services()};
};

TEST_F(ReportWindowTest, ShowsTheLogUnfoldedInAFixedPitchWithItsStyles) {
    program.MainForm->cmdLossCalc.Press();
    const RichText before = Log().Content();
    WhileOpen([&] {
        EXPECT_EQ(Edit().lineWrapMode(), QTextEdit::NoWrap);
        const QFontMetricsF metrics(Edit().font());
        EXPECT_EQ(metrics.horizontalAdvance("iiii"), metrics.horizontalAdvance("MMMM"));
        const auto styleAt = [&](int block, int column) {
            QTextCursor cursor(Edit().document()->findBlockByNumber(block));
            cursor.movePosition(QTextCursor::Right, QTextCursor::MoveAnchor, column);
            return cursor.charFormat();
        };
        EXPECT_TRUE(styleAt(0, 60).fontUnderline());
        EXPECT_EQ(styleAt(0, 60).fontWeight(), QFont::Bold);
        EXPECT_TRUE(styleAt(1, 70).fontUnderline());
        EXPECT_TRUE(styleAt(1, 71).fontUnderline()) << "the blank behind the value";
        EXPECT_FALSE(styleAt(1, 72).fontUnderline());
        EXPECT_EQ(Edit().document()->toPlainText().count('\n'), 2);
    });
    EXPECT_EQ(Log().Content(), before);
    EXPECT_TRUE(Edit().document()->isEmpty()) << "a hidden window holds no text";
}

TEST_F(ReportWindowTest, EditingComesBackToTheLog) {
    const std::string header = Log().Text();
    program.ReportLog().SetUnderline(true);
    program.ReportLog().Add("under");
    program.ReportLog().SetUnderline(false);
    program.ReportLog().AddLine("plain é𝄞");
    const RichText before = Log().Content();
    WhileOpen([&] {
        Edit().moveCursor(QTextCursor::End);
        QTest::keyClicks(&Edit(), "typed {\\}");
        QTest::keyClick(&Edit(), Qt::Key_Return);
        QTest::keyClicks(&Edit(), "next");
        Edit().moveCursor(QTextCursor::Left);
    });
    RichText expected = before;
    expected.Replace(expected.Length(), 0, "typed {\\}\r\nnext", {});
    EXPECT_EQ(Log().Content(), expected);
    EXPECT_EQ(Log().Selected().start, expected.Length() - 1) << "the caret stays where it was left";

    program.ReportLog().Add("X");
    EXPECT_EQ(Log().Text(), header + "underplain é𝄞\r\ntyped {\\}\r\nnexXt");
}

// In a log of a few lines, and in one so long that its styles come after its text.
TEST_F(ReportWindowTest, EachUndoTakesALineBackThatCameWhileTheWindowWasHidden) {
    for (const std::size_t size : {0U, 1U << 20U}) {
        program.ReportLog().Clear();
        program.ReportLog().SetUnderline(true);
        program.ReportLog().Add(std::string(size, 'x') + "é𝄞 before, ");
        program.ReportLog().SetUnderline(false);
        program.ReportLog().Add("between, after");
        const RichText before = Log().Content();
        const std::size_t between = before.Length() - std::string("between, after").size();
        WhileOpen([&] {
            QTextCursor selected = Edit().document()->find("between");
            Edit().setTextCursor(selected);
        });
        program.MainForm->cmdLossCalc.Press();
        const RichText once = Log().Content();
        EXPECT_EQ(once.Text().substr(between, 8), "      10") << "in place of the selection";
        program.MainForm->cmdLossCalc.Press();
        const RichText twice = Log().Content();
        WhileOpen([&] {
            EXPECT_EQ(Log().Content(), twice);
            QTest::keyClick(&Edit(), Qt::Key_Z, Qt::ControlModifier);
            EXPECT_EQ(Log().Content(), once);
            QTest::keyClick(&Edit(), Qt::Key_Z, Qt::ControlModifier);
            EXPECT_EQ(Log().Content(), before);
            QTest::keyClick(&Edit(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
            EXPECT_EQ(Log().Content(), once);
        });
        EXPECT_EQ(Log().Content(), once);
    }
}

TEST_F(ReportWindowTest, TheButtonsWorkOnWhatTheUserSees) {
    WhileOpen([&] {
        QTest::keyClicks(&Edit(), "abc");
        EXPECT_EQ(Log().Text(), program.ReportLog().Title() + "\r\nabc");
        Press("cmdClear");
        EXPECT_EQ(Edit().document()->toPlainText().toStdString(),
                  program.ReportLog().Title() + "\n");
        QTest::keyClicks(&Edit(), "after");
        EXPECT_EQ(Log().Text(), program.ReportLog().Title() + "\r\nafter");
        EXPECT_EQ(Log().Content().Stretches().back().style, TextStyle{}) << "below the header";
        Edit().undo();
        Edit().undo();
    });
    EXPECT_EQ(Log().Text(), program.ReportLog().Title() + "\r\nabc") << "a clearing is undone";
}

TEST_F(ReportWindowTest, WhatAReportClearedComesBackInFrontOfItsLinesByOneUndo) {
    program.ReportLog().Add("a note without a line end");
    const std::string before = Log().Text() + "\r\n";
    program.frmLogDistRange->cmdLogDistRange.Press();
    const std::string first = Log().Text();
    program.frmLogDistRange->cmdLogDistRange.Press();
    const std::string second = Log().Text();
    WhileOpen([&] {
        EXPECT_EQ(Log().Text(), second);
        Edit().undo();
        EXPECT_TRUE(Log().Content().Stretches().front().style.bold);
    });
    EXPECT_EQ(Log().Text(), before + first + second);
    WhileOpen([&] { EXPECT_FALSE(Edit().document()->isUndoAvailable()); });
}

TEST_F(ReportWindowTest, PicturesStayPicturesAndForeignTextComesPlain) {
    QImage image(40, 20, QImage::Format_RGB32);
    image.fill(Qt::red);
    program.ReportLog().Clear();
    QApplication::clipboard()->setImage(image);
    program.ReportLog().PasteClipboard();
    WhileOpen([&] {
        Edit().moveCursor(QTextCursor::End);
        Edit().paste();
        auto* html = new QMimeData;
        html->setHtml("<font size=7>big</font>");
        html->setText("big");
        QApplication::clipboard()->setMimeData(html);
        Edit().paste();
    });
    EXPECT_EQ(Log().Content().PlainText(), "big");
    ASSERT_EQ(Log().Content().Pictures().size(), 2U);
    // Cut and pasted behind what was pasted last, and taken back by one undo each.
    const RichText before = Log().Content();
    WhileOpen([&] {
        Edit().moveCursor(QTextCursor::Start);
        Edit().moveCursor(QTextCursor::Right, QTextCursor::KeepAnchor);
        Edit().cut();
        EXPECT_EQ(Log().Content().Pictures().size(), 1U);
        Edit().moveCursor(QTextCursor::End);
        Edit().paste();
        EXPECT_EQ(Log().Content().Pictures().size(), 2U);
        EXPECT_TRUE(Log().Text().ends_with(RichText::PictureMark));
        Edit().undo();
        Edit().undo();
    });
    EXPECT_EQ(Log().Content(), before);
    for (const auto& placed : Log().Content().Pictures()) {
        EXPECT_EQ(ImageOf(*placed.picture).convertToFormat(QImage::Format_RGB32), image);
        EXPECT_EQ(placed.picture->widthTwips, 600);
    }
}

TEST_F(ReportWindowTest, ALongLogHasAllItsStylesHoweverSoonItIsEdited) {
    RichText lines;
    for (int i = 0; i < 9000; ++i) {
        lines.Replace(lines.Length(), 0, std::string(130, 'x') + " é𝄞 ", {});
        lines.Replace(lines.Length(), 0, "140.42 ", {.underline = true});
        lines.Replace(lines.Length(), 0, "1000\r\n", {});
    }
    for (const bool seen : {false, true}) {
        Log().SetContent(lines);
        if (seen) Log().CaretToEnd();
        WhileOpen([&] {
            if (seen) QTest::qWait(30);
            if (seen) Press("cmdClear");
            if (seen) Edit().undo();
            QTest::keyClick(&Edit(), Qt::Key_X);
            QTest::keyClick(&Edit(), Qt::Key_Backspace);
            EXPECT_TRUE(Edit().document()->isModified());
        });
        EXPECT_EQ(Log().Content(), lines) << seen;
    }
}

TEST_F(ReportWindowTest, FindsUndoesAndIsLeftByKeysWithItsHeadsAlongside) {
    program.ReportLog().AddLine("wide" + std::string(500, ' ') + "end");
    WhileOpen([&] {
        ASSERT_TRUE(QTest::qWaitForWindowActive(&Window()));
        auto& heads = *Window().findChild<QLabel*>("lblHeads");
        const auto headAt = [&] { return heads.mapTo(&Window(), QPoint()).x(); };
        Edit().moveCursor(QTextCursor::Start);
        const auto textAt = [&] {
            return Edit().viewport()->mapTo(&Window(), Edit().cursorRect().center()).x();
        };
        EXPECT_NEAR(headAt(), textAt(), 1);
        Edit().horizontalScrollBar()->setValue(70);
        EXPECT_NEAR(headAt(), textAt(), 1);
        EXPECT_FALSE(heads.isVisible()) << "the log's own are in view";
        Edit().insertPlainText("x");
        EXPECT_TRUE(heads.isVisible()) << "they are none now";
        Edit().undo();
        EXPECT_FALSE(heads.isVisible());
        QTextCursor end(Edit().document());
        end.movePosition(QTextCursor::End);
        end.insertText(QString(100, '\n'));
        Edit().verticalScrollBar()->setValue(100);
        EXPECT_TRUE(heads.isVisible());
        Edit().undo();

        QTest::keyClicks(&Edit(), "typed");
        QTest::keyClick(&Edit(), Qt::Key_F, Qt::ControlModifier);
        auto& box = *Window().findChild<QLineEdit*>("txtFind");
        ASSERT_TRUE(box.hasFocus());
        QTest::keyClicks(&box, "END");
        EXPECT_EQ(Edit().textCursor().selectedText(), "end");
        QTest::keyClick(&box, Qt::Key_Escape);
        EXPECT_TRUE(Edit().hasFocus() && Window().isVisible() && !box.isVisible());
        program.FrmReport->mnuEditUndo.Pick();
        EXPECT_FALSE(Edit().toPlainText().contains("typed"));
        QTest::keyClick(&Edit(), Qt::Key_Tab, Qt::ControlModifier);
        EXPECT_FALSE(Edit().hasFocus());
    });
}

// The layout knows the places of lines that it has not shaped; where one is told wrong, the caret
// is drawn or set elsewhere than the user sees the text.
TEST_F(ReportWindowTest, ACaretGoesWhereItIsClickedBelowPicturesAndLinesOfOtherScripts) {
    program.ReportLog().Clear();
    program.ReportLog().Add("first\tline\n漢字 and after\n");
    Log().InsertPicture(PictureOf(QImage(40, 100, QImage::Format_RGB32)));
    program.ReportLog().Add("\nlast");
    WhileOpen([&] {
        QTest::keyClick(&Edit(), Qt::Key_Return, Qt::ShiftModifier);  // a line end within a line
        QTest::keyClicks(&Edit(), "most");
        Edit().resize(400, 400);
        QTextCursor cursor(Edit().document());
        const QRect first = Edit().cursorRect(cursor);
        for (int at = 0; at < Edit().document()->characterCount(); ++at) {
            cursor.setPosition(at);
            const QPoint caret = Edit().cursorRect(cursor).center();
            EXPECT_EQ(Edit().cursorForPosition(caret + QPoint(1, 0)).position(), at);
        }
        const int down = Edit().cursorRect(cursor).top() - first.top();
        EXPECT_NEAR(down, 100 + 3 * first.height(), first.height());
    });
}

}  // namespace
}  // namespace vardel
