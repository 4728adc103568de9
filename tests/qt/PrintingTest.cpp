#include <gmock/gmock.h>

#include <QComboBox>
#include <QDialog>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTimer>

#include "forms/Program.h"
#include "forms/graphs/GraphForm.h"
#include "forms/main/MainForm.h"
#include "forms/reports/FrmReport.h"
#include "forms/reports/RLogClass.h"
#include "qt/services/QtPlatform.h"
#include "services/Files.h"
#include "support/FakePlatform.h"

namespace vardel {
namespace {

// What is printed to a file, read back by a reader of PDF that is not ours.
class PrintingTest : public testing::Test {
protected:
    PrintingTest() {
        program.Start();
        platform.GetPrinters().SetCurrentPrinter(QtPrinters::PdfPrinter);
    }

    static QByteArray Output(const QString& tool, const QStringList& arguments) {
        QProcess process;
        process.start(tool, arguments);
        EXPECT_TRUE(process.waitForFinished()) << tool.toStdString();
        EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
        return process.readAllStandardOutput();
    }
    QString Text() const { return QString::fromUtf8(Output("pdftotext", {"-layout", file, "-"})); }
    QString Info() const { return QString::fromUtf8(Output("pdfinfo", {file})); }

    QString PrintLines(const std::string& text) {
        Printers& printers = platform.GetPrinters();
        printers.SetOrientation(PageOrientation::Landscape);
        printers.SetFont(program.FrmReport->rtbLog.Font());
        printers.PrintText({});
        printers.PrintText(text);
        printers.EndDocument("Calculation Log", file.toStdString());
        return Text();
    }

    ScratchFolder folder;
    QString file = QString::fromStdString(folder.Path("printed.pdf"));
    QtPlatform platform;
    Program program{platform.Services()};
};

TEST_F(PrintingTest, ALongLogLosesNothingAndKeepsItsColumns) {
    constexpr int Lines = 2500;
    program.MainForm->cmdLossCalc.Press();
    const QString log = QString::fromStdString(program.FrmReport->rtbLog.Text());
    const QString line = log.section("\r\n", 1, 1);
    ASSERT_GT(line.size(), 130);
    std::string text = log.section("\r\n", 0, 0).toStdString() + "\r\n";
    for (int i = 0; i < Lines; ++i)
        text += QString("%1").arg(i, 5).toStdString() + line.mid(5).toStdString() + "\r\n";

    const QString printed = PrintLines(text);
    int row = -1;  // the header line comes first
    for (const QString& page : printed.split('\f', Qt::SkipEmptyParts)) {
        const QStringList rows = page.split('\n', Qt::SkipEmptyParts);
        for (const QString& printedRow : rows) {
            if (row >= 0) {
                ASSERT_EQ(printedRow.simplified(),
                          (QString::number(row) + line.mid(5)).simplified());
                ASSERT_EQ(printedRow.size(), rows.back().size()) << "columns aligned";
            }
            ++row;
        }
    }
    EXPECT_EQ(row, Lines);
    const QRegularExpressionMatch pages = QRegularExpression("Pages: +(\\d+)").match(Info());
    EXPECT_GT(pages.captured(1).toInt(), 40);
    EXPECT_EQ(printed.count('\f'), pages.captured(1).toInt());
    const QRegularExpressionMatch size =
        QRegularExpression("Page size: +([\\d.]+) x ([\\d.]+)").match(Info());
    EXPECT_GT(size.captured(1).toDouble(), size.captured(2).toDouble());
}

TEST_F(PrintingTest, ALineWiderThanThePaperIsContinuedAndShrinksNoOther) {
    QString words;
    for (int i = 0; i < 120; ++i) words += QString("word%1 ").arg(i);
    const QString solid(500, 'x');
    const QString foreign = QString::fromUtf8("Zürich 𝄞 µV/m");
    const QString printed =
        PrintLines((words + "\r\n" + solid + "\r\n\tafter\r\n" + foreign).toStdString());
    EXPECT_EQ(printed.count('x'), 500);
    for (int i = 0; i < 120; ++i)
        EXPECT_EQ(printed.count(QRegularExpression(QString("\\bword%1\\b").arg(i))), 1) << i;
    EXPECT_TRUE(printed.contains("after"));
    EXPECT_TRUE(printed.contains(QString::fromUtf8("Zürich"))) << printed.toStdString();
    EXPECT_LE(printed.split('\n').size(), 16) << "about 155 characters a line";
}

TEST_F(PrintingTest, AGraphFillsThePageWithRealText) {
    GraphForm& graph = *program.GraphForm;
    for (const PageOrientation orientation :
         {PageOrientation::Portrait, PageOrientation::Landscape}) {
        platform.GetPrinters().SetOrientation(orientation);
        platform.GetPrinters().PrintChart(graph.CTWX1, file.toStdString());
        const QString text = Text();
        for (const auto& title : graph.CTWX1.Title)
            EXPECT_TRUE(text.simplified().contains(QString::fromStdString(title.Text).simplified()))
                << title.Text << " in " << text.toStdString();
        for (const char* words : {"Distance (Km)", "ITU 529", "Free Space"})
            EXPECT_TRUE(text.contains(words)) << words;

        Output("pdftoppm", {"-r", "50", "-png", "-singlefile", file, file});
        const QImage page(file + ".png");
        EXPECT_EQ(page.width() > page.height(), orientation == PageOrientation::Landscape);
        QRect ink;
        bool green = false;
        for (int y = 0; y < page.height(); ++y)
            for (int x = 0; x < page.width(); ++x) {
                const QColor color = page.pixelColor(x, y);
                if (color.lightness() < 150) ink |= QRect(x, y, 1, 1);
                green |= color.green() > 100 && color.red() < 60 && color.blue() < 60;
            }
        EXPECT_TRUE(green) << "the curve of ITU 529";
        EXPECT_GT(ink.width(), page.width() * 0.8);
        EXPECT_GT(ink.height(), page.height() * 0.8);
        EXPECT_GT(ink.left(), 20) << "half an inch of margin";
    }
}

TEST_F(PrintingTest, AFileThatCannotBeWrittenStaysAndAPrinterThatIsGoneIsTold) {
    Printers& printers = platform.GetPrinters();
    ReplaceFile(file.toStdString(), "old");
    QFile::setPermissions(file, QFile::ReadOwner);
    const Chart& chart = program.GraphForm->CTWX1;
    EXPECT_ANY_THROW(printers.PrintChart(chart, file.toStdString()));
    EXPECT_EQ(ReadWholeFile(file.toStdString()), "old");
    EXPECT_ANY_THROW(printers.PrintChart(chart, folder.Path("no/such/folder.pdf")));

    EXPECT_EQ(printers.PrinterNames().back(), QtPrinters::PdfPrinter);
    printers.SetCurrentPrinter("No such printer");
    EXPECT_ANY_THROW(printers.PrintChart(chart, {}));
    printers.PrintText("lost");
    EXPECT_ANY_THROW(printers.EndDocument("Calculation Log", {}));
}

TEST_F(PrintingTest, TheSetupDialogChoosesPaperAndOrientation) {
    QtPrinters& printers = platform.GetPrinters();
    const auto setUp = [&](auto&& choose) {
        QTimer::singleShot(0, [&] { choose(*QApplication::activeModalWidget()); });
        printers.ShowPrinterSetup();
    };
    const auto chooseA3 = [](QWidget& dialog) {
        auto& paper = *dialog.findChild<QComboBox*>("paper");
        paper.setCurrentText(QPageSize(QPageSize::A3).name());
        dialog.findChild<QRadioButton*>("landscape")->setChecked(true);
    };
    setUp([&](QWidget& dialog) {
        chooseA3(dialog);
        static_cast<QDialog&>(dialog).reject();
    });
    EXPECT_EQ(printers.Orientation(), PageOrientation::Portrait);
    setUp([&](QWidget& dialog) {
        chooseA3(dialog);
        static_cast<QDialog&>(dialog).accept();
    });
    EXPECT_EQ(printers.Orientation(), PageOrientation::Landscape);
    printers.PrintChart(program.GraphForm->CTWX1, file.toStdString());
    EXPECT_TRUE(Info().contains("(A3)")) << Info().toStdString();
}

}  // namespace
}  // namespace vardel
