#include <gmock/gmock.h>

#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <cmath>

#include "engine/PathRecord.h"
#include "forms/Program.h"
#include "forms/graphs/FrmOkumFieldStrength.h"
#include "forms/graphs/GraphForm.h"
#include "forms/main/MainForm.h"
#include "qt/chart/ChartFiles.h"
#include "qt/chart/ChartWidget.h"
#include "qt/services/QtPlatform.h"
#include "services/Files.h"
#include "support/FakePlatform.h"
#include "support/Shell.h"

namespace vardel {
namespace {

class GraphWindowTest : public testing::Test {
protected:
    GraphWindowTest() { program.Start(); }

    GraphForm& Graph() { return *program.GraphForm; }
    FormWindow& Window() { return platform.WindowOf(Graph()); }
    ChartWidget& Plot() {
        return *static_cast<ChartWidget*>(Window().findChild<QCustomPlot*>("CTWX1"));
    }

    // Opens the graph from the main form's menu and does this while it is open.
    void WhileOpen(const std::function<void()>& action) {
        FormWindow& window = Window();
        QTimer open;  // the plotting lets events through before the window is there
        QObject::connect(&open, &QTimer::timeout, [&] {
            if (!window.isVisible()) return;
            open.stop();
            QApplication::processEvents();
            action();
            window.close();
        });
        open.start(0);
        program.MainForm->mnuGraphdBloss.Pick();
        EXPECT_FALSE(program.GraphForm.Loaded());
    }

    QtPlatform platform;
    Program program{platform.Services()};
};

TEST_F(GraphWindowTest, DrawsTheChartsSeriesInTheirPatterns) {
    WhileOpen([&] {
        EXPECT_EQ(Plot().graphCount(), 4);
        EXPECT_EQ(Plot().graph(0)->name(), "ITU 529");
        EXPECT_EQ(Plot().graph(0)->dataCount(), 991);
        EXPECT_EQ(Plot().graph(0)->pen().style(), Qt::SolidLine);
        EXPECT_NE(Plot().graph(2)->pen().dashPattern(), Plot().graph(3)->pen().dashPattern());
        EXPECT_EQ(Plot().yAxis->range(), QCPRange(50, 250));
        auto& update = *Window().findChild<QPushButton*>("cmdUpdateGraph");
        EXPECT_TRUE(update.text().contains("The graph shows the inputs")) << "without its picture";

        Graph().mnuGraph300.Pick();
        update.click();
        EXPECT_EQ(Plot().graphCount(), 5);
        EXPECT_EQ(Plot().xAxis->range(), QCPRange(0, 300));
        EXPECT_EQ(Plot().plotLayout()->rowCount(), 4) << "three titles and the axes";
    });
}

TEST_F(GraphWindowTest, ZoomsAndGoesBackToTheChartsScales) {
    WhileOpen([&] {
        const QPoint middle = Plot().axisRect()->center();
        QWheelEvent wheel(middle, Plot().mapToGlobal(middle), {}, {0, 120}, {}, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&Plot(), &wheel);
        EXPECT_LT(Plot().xAxis->range().size(), 100);
        QTest::mouseDClick(&Plot(), Qt::LeftButton, {}, middle);
        EXPECT_EQ(Plot().xAxis->range(), QCPRange(0, 100));
        QTest::keyClick(&Plot(), Qt::Key_Plus);
        EXPECT_LT(Plot().xAxis->range().size(), 100);
        QTest::keyClick(&Plot(), Qt::Key_Home);
        EXPECT_EQ(Plot().yAxis->range(), QCPRange(50, 250));
        QTest::keyClick(&Plot(), Qt::Key_Plus);
        Graph().cmdUpdateGraph.Press();
        EXPECT_EQ(Plot().xAxis->range(), QCPRange(0, 100)) << "a replot sets the scales";
    });
}

TEST_F(GraphWindowTest, TicksSayWhereTheyStandAtEveryZoom) {
    WhileOpen([&] {
        const auto labels = [&](double lower, double upper) {
            Plot().xAxis->setRange(lower, upper);
            Plot().replot();
            return Plot().xAxis->tickVectorLabels().join(' ').toStdString();
        };
        EXPECT_EQ(labels(0, 100), "0 10 20 30 40 50 60 70 80 90 100");
        EXPECT_EQ(labels(10, 22.5), "10.0 12.5 15.0 17.5 20.0 22.5");
        EXPECT_EQ(labels(44.008, 44.052), "44.01 44.02 44.03 44.04 44.05");

        for (int i = 0; i < 200; ++i) QTest::keyClick(&Plot(), Qt::Key_Minus);
        EXPECT_EQ(Plot().xAxis->range(), QCPRange(-50, 150));
        EXPECT_EQ(Plot().yAxis->range(), QCPRange(-50, 350));
        EXPECT_LT(Plot().xAxis->tickVector().size(), 30);
        for (int i = 0; i < 200; ++i) QTest::keyClick(&Plot(), Qt::Key_Up, Qt::NoModifier);
        EXPECT_EQ(Plot().yAxis->range(), QCPRange(-50, 350)) << "and panned no further";
        for (int i = 0; i < 200; ++i) QTest::keyClick(&Plot(), Qt::Key_Plus);
        EXPECT_NEAR(Plot().xAxis->range().size(), 0.01, 1e-9);
    });
}

TEST_F(GraphWindowTest, TheReadoutTellsEachCurvesValue) {
    WhileOpen([&] {
        Plot().ShowReadout(10.0);
        EXPECT_TRUE(Plot().ReadoutText().contains("Distance (Km): 10.0"));
        EXPECT_TRUE(Plot().ReadoutText().contains("ITU 529: 143.13 dB"));
        EXPECT_TRUE(Plot().ReadoutText().contains("Cost 231: 140.42 dB (out of range)"));
        QTest::keyClick(&Plot(), Qt::Key_Right);
        EXPECT_TRUE(Plot().ReadoutText().contains("11.0"));
        EXPECT_TRUE(Plot().accessibleDescription().contains("Davidson"));
        const QPoint middle = Plot().axisRect()->center();
        QMouseEvent move(QEvent::MouseMove, middle, Plot().mapToGlobal(middle), Qt::NoButton, {},
                         {});
        QApplication::sendEvent(&Plot(), &move);
        const QString there = QString::number(Plot().xAxis->pixelToCoord(middle.x()), 'f', 1);
        EXPECT_TRUE(Plot().ReadoutText().contains("Distance (Km): " + there))
            << Plot().ReadoutText().toStdString();

        QWheelEvent wheel(middle + QPoint(90, 0), Plot().mapToGlobal(middle), {}, {0, 120}, {}, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&Plot(), &wheel);
        EXPECT_FALSE(Plot().ReadoutText().contains("Distance (Km): " + there)) << "zoomed under it";
        Plot().ResetScales();
        QTest::keyClick(&Plot(), Qt::Key_Right, Qt::ShiftModifier);
        EXPECT_EQ(Plot().xAxis->range(), QCPRange(10, 110));
        Plot().ShowReadout(80);
        QTest::keyClick(&Plot(), Qt::Key_Plus);
        EXPECT_NEAR(Plot().xAxis->range().lower, 24, 1e-9) << "about the readout";
    });
}

// 1500 MHz: all models are in range, to 100 km two of them.
TEST_F(GraphWindowTest, TheReadoutLosesNoCurveWhereARangeEnds) {
    WhileOpen([&] {
        Graph().txtFreq.SetText("1500");
        for (MenuItem* reach : {&Graph().mnuGraph100, &Graph().mnuGraph300}) {
            reach->Pick();
            Graph().cmdUpdateGraph.Press();
            Plot().ShowReadout(100.0);
            EXPECT_EQ(Plot().ReadoutText().count(" dB"), 4) << reach->Name();
            EXPECT_FALSE(Plot().ReadoutText().contains("out of range")) << reach->Name();
        }
        Plot().ShowReadout(100.06);
        EXPECT_EQ(Plot().ReadoutText().count(" dB (out of range)"), 2);
        Plot().ShowReadout(300.0);
        EXPECT_EQ(Plot().ReadoutText().count(" dB"), 4);
        Plot().HideReadout();
        Graph().txtFreq.SetText("900");
        Graph().cmdUpdateGraph.Press();
        EXPECT_EQ(Plot().accessibleDescription().toStdString(),
                  "dB Loss Calculation, ITU 529, Davidson, Cost 231, Free Space");
    });
}

TEST_F(GraphWindowTest, MeasuredValuesAreAPlainLineAndASingleOneADot) {
    program.MeasuredTable = {{.PercentTime = 0.5,
                              .Frequency = 450,
                              .City = "Urban",
                              .HeightCount = 1,
                              .MobileHeight = 1.5,
                              .RowDistance = {90, 10.25, 30},
                              .BaseHeight = {100},
                              .RowValue = {{20}, {60}, {40}, {MeasuredEndMark}}}};
    program.ShowMeasuredData = true;
    FrmOkumFieldStrength& form = *program.FrmOkumFieldStrength;
    form.SelectPlot(FieldStrengthGraph::Comparison);
    auto& plot =
        *static_cast<ChartWidget*>(platform.WindowOf(form).findChild<QCustomPlot*>("CTWXfs"));
    ASSERT_EQ(plot.graphCount(), 5);
    for (int i = 0; i < plot.graphCount(); ++i) {
        EXPECT_TRUE(plot.graph(i)->scatterStyle().isNone()) << i;
        EXPECT_EQ(plot.graph(i)->pen().widthF(), 1.0) << i;
    }
    EXPECT_EQ(plot.graph(4)->data()->constBegin()->key, 10.25);
    plot.ShowReadout(19.0);
    EXPECT_TRUE(plot.ReadoutText().contains("Measured at 10.25 km: 60.00 dB (uv/m)"))
        << plot.ReadoutText().toStdString();
    auto* at300 = platform.WindowOf(form).menuBar()->findChild<QAction*>("mnuModelDist300");
    ASSERT_NE(at300, nullptr);
    EXPECT_EQ(at300->associatedObjects().value(0)->objectName(), "mnuModelDist")
        << "in a menu of the menu";
    at300->trigger();
    program.MeasuredTable[0].RowValue[1][0] = MeasuredEndMark;
    form.cmdUpdateGraph.Press();
    EXPECT_EQ(plot.xAxis->range(), QCPRange(0, 300));
    EXPECT_FALSE(plot.graph(plot.graphCount() - 1)->scatterStyle().isNone());
    form.Unload();
}

// 143.13 dB is the model's loss at 10 km.
TEST_F(GraphWindowTest, TheThresholdLineIsDraggedAndGoesIntoEveryFile) {
    WhileOpen([&] {
        const auto y = [&](double value) {
            return QPoint(Plot().axisRect()->center().x(),
                          qRound(Plot().yAxis->coordToPixel(value)));
        };
        Graph().Threshold().mnuToolsThreshold.Pick();
        QApplication::processEvents();
        QTest::keyClick(&Plot(), Qt::Key_Plus);
        const QCPRange shown = Plot().yAxis->range();
        const QPoint to = y(150.0);
        QTest::mousePress(&Plot(), Qt::LeftButton, {}, y(140.0) + QPoint(0, 3));
        QTest::mouseMove(&Plot(), to);
        QTest::mouseRelease(&Plot(), Qt::LeftButton, {}, to);
        EXPECT_EQ(Plot().yAxis->range(), shown) << "neither moved nor drawn at its own scales";
        EXPECT_NEAR(Graph().CTWX1.Threshold()->Value, 150.0, 0.5);
        QTest::keyClick(&Plot(), Qt::Key_Down, Qt::ControlModifier);
        EXPECT_NEAR(Graph().CTWX1.Threshold()->Value, 149.0, 0.5);
        auto* told = Window().findChild<QWidget*>("announcement");
        EXPECT_TRUE(told != nullptr && told->accessibleName().contains(" km")) << "and is said";
        Graph().Threshold().txtThreshold.SetText("143.1324");
        EXPECT_TRUE(ChartAsSvg(Graph().CTWX1).contains("ITU 529: 10.00"));
        EXPECT_TRUE(ChartAsMetafile(Graph().CTWX1).contains("ITU 529: 10.00"));
        Graph().Threshold().mnuToolsThreshold.Pick();
        EXPECT_FALSE(ChartAsSvg(Graph().CTWX1).contains("ITU 529: 10.00"));
    });
}

TEST_F(GraphWindowTest, ABoxOrOneAxisIsZoomedAndTheLegendKeepsOffTheCurves) {
    WhileOpen([&] {
        const auto pixel = [&](double x, double y) {
            return QPointF(Plot().xAxis->coordToPixel(x), Plot().yAxis->coordToPixel(y)).toPoint();
        };
        const auto drawBox = [&](QPoint from, QPoint to) {
            QTest::mousePress(&Plot(), Qt::LeftButton, Qt::ControlModifier, from);
            QTest::mouseMove(&Plot(), to);
            QTest::mouseRelease(&Plot(), Qt::LeftButton, Qt::ControlModifier, to);
        };
        const QPoint corner = pixel(0, 180);
        drawBox(corner, corner + QPoint(40, 2));
        EXPECT_EQ(Plot().xAxis->range(), QCPRange(0, 100)) << "a slip of the hand is no box";
        const QPoint axis(corner.x() - 20, corner.y());
        QWheelEvent wheel(axis, Plot().mapToGlobal(axis), {}, {0, 120}, {}, {}, Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(&Plot(), &wheel);
        EXPECT_EQ(Plot().xAxis->range(), QCPRange(0, 100));
        EXPECT_NEAR(Plot().yAxis->range().size(), 160, 1);
        drawBox(pixel(40, 130), pixel(100, 185));
        EXPECT_NEAR(Plot().xAxis->range().lower, 40, 1);
        EXPECT_NEAR(Plot().yAxis->range().upper, 185, 1);
        Plot().replot();
        // All curves but free space leave by the top right corner.
        EXPECT_FALSE(Plot().legend->outerRect().intersects(QRect(pixel(80, 185), pixel(100, 175))));
        Graph().CTWX1.FileFrame = {.AsZoomed = true, .Width = 640, .Height = 400};
        EXPECT_EQ(QImage::fromData(ChartAsPng(Graph().CTWX1)).size(), QSize(640, 400));
        EXPECT_FALSE(ChartAsSvg(Graph().CTWX1).contains(">250<"));
        Graph().CTWX1.FileFrame.AsZoomed = false;
        EXPECT_TRUE(ChartAsSvg(Graph().CTWX1).contains(">250<"));
    });
}

TEST_F(GraphWindowTest, TheLegendIsPlacedForTheWindowAsItIs) {
    FrmOkumFieldStrength& form = *program.FrmOkumFieldStrength;
    form.SelectPlot(FieldStrengthGraph::Itu529);
    form.mnuModelDist300.Pick();
    form.cmdUpdateGraph.Press();
    FormWindow& window = platform.WindowOf(form);
    auto& plot = *static_cast<ChartWidget*>(window.findChild<QCustomPlot*>("CTWXfs"));
    const auto hiddenOfFreeSpace = [&] {
        const QRect legend = plot.legend->outerRect();
        int hidden = 0;
        for (const QCPGraphData& p : *plot.graph(plot.graphCount() - 1)->data())
            hidden += legend.contains(static_cast<int>(plot.xAxis->coordToPixel(p.key)),
                                      static_cast<int>(plot.yAxis->coordToPixel(p.value)));
        return hidden;
    };
    for (const QSize size : {QSize(1300, 1000), QSize(700, 560), QSize(1500, 700)}) {
        window.resize(size);
        window.show();
        QApplication::processEvents();
        const Qt::Alignment placed = plot.axisRect()->insetLayout()->insetAlignment(0);
        // In the small one each corner hides some of the curves.
        EXPECT_TRUE(size.width() < 1000 || hiddenOfFreeSpace() == 0) << size.width();
        plot.replot();
        EXPECT_EQ(plot.axisRect()->insetLayout()->insetAlignment(0), placed) << size.width();
    }
}

TEST_F(GraphWindowTest, TheMenuOfTheChartCopiesItsPicture) {
    WhileOpen([&] {
        QApplication::clipboard()->clear();
        const QPoint at(200, 200);
        QContextMenuEvent click(QContextMenuEvent::Mouse, at, Plot().mapToGlobal(at));
        QApplication::sendEvent(&Plot(), &click);
        const auto actions = Plot().findChild<QMenu*>()->actions();
        ASSERT_EQ(actions.front()->text(), "Copy Picture");
        actions.front()->trigger();
        EXPECT_EQ(QApplication::clipboard()->image().size(), QSize(900, 600));
        Plot().xAxis->setRange(20, 40);
        actions.back()->trigger();
        EXPECT_EQ(Plot().xAxis->range(), QCPRange(0, 100)) << "the whole graph";
    });
}

TEST_F(GraphWindowTest, AClickOnTheLegendTakesACurveOffWithAllItsStretches) {
    WhileOpen([&] {
        Graph().mnuGraph300.Pick();
        Graph().cmdUpdateGraph.Press();
        QTest::keyClick(&Plot(), Qt::Key_Plus);
        Plot().replot();
        const QCPRange shown = Plot().xAxis->range();
        const QRect entry = Plot().legend->item(1)->outerRect();
        QTest::mouseClick(&Plot(), Qt::LeftButton, {}, entry.center());
        EXPECT_FALSE(Plot().graph(0)->visible());
        EXPECT_FALSE(Plot().graph(1)->visible()) << "its stretch out of range";
        EXPECT_TRUE(Plot().graph(2)->visible());
        EXPECT_EQ(Plot().xAxis->range(), shown) << "the view stays";
        EXPECT_FALSE(ChartAsSvg(Graph().CTWX1).contains("ITU 529<"));
        QTest::keyClick(&Plot(), Qt::Key_1);
        EXPECT_TRUE(ChartAsSvg(Graph().CTWX1).contains("ITU 529<"));
    });
}

TEST_F(GraphWindowTest, ALogarithmicAxisIsReadZoomedAndMovedAsItLooks) {
    WhileOpen([&] {
        Graph().View().mnuViewLog.Pick();
        Plot().replot();
        EXPECT_EQ(Plot().xAxis->tickVectorLabels().join(' '), "1 2 5 10 20 50 100");
        const QRect frame = Plot().axisRect()->rect();
        EXPECT_NEAR(Plot().xAxis->coordToPixel(10), frame.left() + frame.width() / 2.0, 1.5);
        QTest::keyClick(&Plot(), Qt::Key_Right, Qt::ShiftModifier);
        EXPECT_NEAR(Plot().xAxis->range().lower, std::pow(10.0, 0.2), 1e-6);
        for (int i = 0; i < 60; ++i) QTest::keyClick(&Plot(), Qt::Key_Minus);
        EXPECT_GT(Plot().xAxis->range().lower, 0);
        EXPECT_LT(Plot().xAxis->range().upper, 1e4);
        Graph().View().mnuViewLog.Pick();
        EXPECT_EQ(Plot().xAxis->range(), QCPRange(0, 100));
        EXPECT_EQ(Plot().xAxis2->scaleType(), QCPAxis::stLinear);
    });
}

// The record is found by the reader that a drop uses; the other programs are those of users.
TEST_F(GraphWindowTest, FilesOfEveryKindCarryTheirInputs) {
    const ScratchFolder folder;
    WhileOpen([&] {
        Graph().txtFreq.SetText("321.5");
        Graph().cmdUpdateGraph.Press();
        Chart& chart = Graph().CTWX1;
        for (const auto& [name, bytes] :
             {std::pair("a.png", ChartAsPng(chart)), std::pair("a.svg", ChartAsSvg(chart)),
              std::pair("a.pdf", ChartAsPdf(chart))}) {
            const std::string path = folder.Path(name);
            ReplaceFile(path, bytes.toStdString());
            const auto inputs = PathOfRecord(TextOfFile(QString::fromStdString(path)));
            EXPECT_EQ(inputs ? inputs->frequency : 0.0, 321.5) << name;
        }
        EXPECT_THAT(Output("pdfinfo -meta " + folder.Path("a.pdf")),
                    testing::HasSubstr("<pdf:Keywords>vardel-inputs: frequency_mhz=321.5"));
        EXPECT_EQ(TextOfFile(QString::fromStdString(folder.Path("none.png"))), "");
    });
}

TEST_F(GraphWindowTest, FilesOfEveryKind) {
    WhileOpen([&] {
        EXPECT_EQ(QImage::fromData(ChartAsPng(Graph().CTWX1)).size(), QSize(2700, 1800));
        EXPECT_TRUE(ChartAsSvg(Graph().CTWX1).contains("ITU 529"));
        EXPECT_TRUE(ChartAsPdf(Graph().CTWX1).startsWith("%PDF"));
    });
}

}  // namespace
}  // namespace vardel
