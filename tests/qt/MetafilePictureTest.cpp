#include <gtest/gtest.h>

#include <QImage>
#include <QProcess>

#include "forms/graphs/GraphForm.h"
#include "qt/chart/ChartFiles.h"
#include "qt/chart/ChartPlot.h"
#include "services/Files.h"
#include "support/RunningProgram.h"

// A metafile looks like the screen in programs that are not ours.

namespace vardel {
namespace {

bool IsInk(QRgb pixel) { return qMin(qMin(qRed(pixel), qGreen(pixel)), qBlue(pixel)) < 140; }

// What is drawn, without the paper around it, at a size of its own.
QImage Inked(const QImage& paper) {
    QRect ink;
    for (int y = 0; y < paper.height(); ++y)
        for (int x = 0; x < paper.width(); ++x)
            if (IsInk(paper.pixel(x, y))) ink |= QRect(x, y, 1, 1);
    return paper.copy(ink).scaled(900, 600, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

bool SameInk(QRgb a, QRgb b) {
    return IsInk(b) && qAbs(qRed(a) - qRed(b)) < 110 && qAbs(qGreen(a) - qGreen(b)) < 110 &&
           qAbs(qBlue(a) - qBlue(b)) < 110;
}

// The part of one picture's ink that the other has, too, within a few points.
double Covered(const QImage& picture, const QImage& by) {
    constexpr int Reach = 3;
    const auto found = [&](int x, int y) {
        for (int v = qMax(0, y - Reach); v <= qMin(599, y + Reach); ++v)
            for (int u = qMax(0, x - Reach); u <= qMin(899, x + Reach); ++u)
                if (SameInk(picture.pixel(x, y), by.pixel(u, v))) return true;
        return false;
    };
    int ink = 0;
    int shared = 0;
    for (int y = 0; y < 600; ++y)
        for (int x = 0; x < 900; ++x) {
            if (!IsInk(picture.pixel(x, y))) continue;
            ++ink;
            shared += found(x, y) ? 1 : 0;
        }
    return static_cast<double>(shared) / ink;
}

class MetafilePicture : public testing::Test, public RunningProgram {
protected:
    MetafilePicture() {
        GraphForm& form = *program.GraphForm;
        form.txtFreq.SetText("1800");
        form.mnuGraph300.Pick();
        form.cmdUpdateGraph.Press();
        screen = Inked(DrawChart(form.CTWX1));
        ReplaceFile(folder.Path("graph.wmf"), ChartAsMetafile(form.CTWX1).toStdString());
    }

    void Run(const QString& command, const QStringList& arguments) {
        QProcess process;
        process.setWorkingDirectory(QString::fromStdString(folder.Path()));
        process.start(command, arguments);
        ASSERT_TRUE(process.waitForFinished(120000) && process.exitCode() == 0)
            << command.toStdString();
    }
    void ExpectLikeTheScreen(const std::string& file) {
        const QImage drawn(QString::fromStdString(folder.Path(file)));
        ASSERT_FALSE(drawn.isNull());
        // Thin lines have paler edges in one than in the other; a curve is a tenth of the ink.
        EXPECT_GT(Covered(screen, Inked(drawn)), 0.94);
        EXPECT_GT(Covered(Inked(drawn), screen), 0.94);
    }

    ScratchFolder folder;
    QImage screen;
};

TEST_F(MetafilePicture, InLibwmf) {
    Run("wmf2eps", {"-o", "graph.eps", "graph.wmf"});
    Run("gs",
        {"-q", "-dEPSCrop", "-dNOPAUSE", "-dBATCH", "-dSAFER", "-sDEVICE=png16m", "-r144",
         "-dTextAlphaBits=4", "-dGraphicsAlphaBits=4", "-sOutputFile=graph.png", "graph.eps"});
    ExpectLikeTheScreen("graph.png");
}

TEST_F(MetafilePicture, InLibreOffice) {
    Run("soffice", {"-env:UserInstallation=file://" + QString::fromStdString(folder.Path("office")),
                    "--headless", "--convert-to", "pdf", "graph.wmf"});
    Run("pdftoppm", {"-r", "144", "-png", "-singlefile", "graph.pdf", "graph"});
    ExpectLikeTheScreen("graph.png");
}

}  // namespace
}  // namespace vardel
