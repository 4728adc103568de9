#include <gtest/gtest.h>

#include <QImage>

#include "forms/graphs/FrmOkumFieldStrength.h"
#include "qt/chart/ChartFiles.h"
#include "services/Files.h"
#include "support/RunningProgram.h"
#include "support/Shell.h"

namespace vardel {
namespace {

// The row of the axis at the foot of the frame: the lowest that is dark for most of its length.
int FootOf(const QImage& picture) {
    for (int y = picture.height() - 1; y > 0; --y) {
        int dark = 0;
        for (int x = 0; x < picture.width(); ++x) dark += qGray(picture.pixel(x, y)) < 128 ? 1 : 0;
        if (dark > picture.width() * 6 / 10) return y;
    }
    return 0;
}

int ColouredRowsBelow(const QImage& picture, int foot) {
    int rows = 0;
    for (int y = foot + 3; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (const QColor c = picture.pixelColor(x, y); c.saturation() > 120 && c.value() > 90) {
                ++rows;
                break;
            }
    return rows;
}

// To 300 km the lower curves of the family leave the axes at -10 dB.
TEST(Export, NoCurveLeavesTheAxes) {
    RunningProgram running;
    FrmOkumFieldStrength& form = *running.program.FrmOkumFieldStrength;
    form.mnuModelDist300.Pick();
    form.SelectPlot(FieldStrengthGraph::Itu529);
    const ScratchFolder folder;
    const std::string graph = folder.Path("graph");
    const struct {
        const char* ending;
        QByteArray bytes;
        const char* toPng;
    } cases[] = {
        {"png", ChartAsPng(form.CTWXfs), ""},
        {"svg", ChartAsSvg(form.CTWXfs), "rsvg-convert -b white -o $1.png $1.svg"},
        {"pdf", ChartAsPdf(form.CTWXfs), "pdftoppm -r 96 -png -singlefile $1.pdf $1"},
        {"wmf", ChartAsMetafile(form.CTWXfs),
         "wmf2eps -o $1.eps $1.wmf && gs -q -dEPSCrop -dNOPAUSE -dBATCH -dSAFER"
         " -sDEVICE=png16m -r96 -dGraphicsAlphaBits=4 -sOutputFile=$1.png $1.eps"},
    };
    for (const auto& c : cases) {
        ReplaceFile(graph + '.' + c.ending, c.bytes.toStdString());
        if (*c.toPng != '\0') Output("sh -c '" + std::string(c.toPng) + "' sh " + graph);
        const QImage picture(QString::fromStdString(graph + ".png"));
        const int foot = FootOf(picture);
        ASSERT_GT(foot, picture.height() / 2) << c.ending;
        EXPECT_EQ(ColouredRowsBelow(picture, foot), 0) << c.ending;
    }
}

}  // namespace
}  // namespace vardel
