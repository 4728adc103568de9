#include <gtest/gtest.h>

#include <QApplication>
#include <QMouseEvent>
#include <QTest>

#include "forms/Program.h"
#include "forms/tools/TerrainForm.h"
#include "qt/map/GroundMapWidget.h"
#include "qt/services/QtPlatform.h"
#include "qt/windows/FormWindow.h"
#include "terrain/RasterMosaic.h"

namespace vardel {
namespace {

TEST(TerrainWindow, TheMapShowsTheGroundAndMarksAnAzimuth) {
    QtPlatform platform;
    Program program{platform.Services()};
    program.Start();
    program.OpenElevations = [](const std::vector<std::string>&) {
        std::vector<float> metres(100 * 100, 50.0F);
        for (std::size_t i = 0; i < metres.size(); ++i)
            if (i % 100 < 25) metres[i] = std::nanf("");  // the western quarter, from 6.5 degrees
        return ElevationsOfArray({100, 100, {6.0, 0.02, 0.0, 51.0, 0.0, -0.02}}, std::move(metres));
    };
    TerrainForm& form = *program.TerrainForm;
    FormWindow& window = platform.WindowOf(form);
    form.Show();
    form.site.txtLatitude.SetText("50");
    form.site.txtLongitude.SetText("6.6");
    form.txtAzimuths.SetText("36");
    form.txtFiles.SetText("a");
    form.wanted.txtWanted.SetText("20");
    form.cmdRead.Press();
    ASSERT_TRUE(form.map.Table()) << form.lblProblem.Caption();
    auto& map = *window.findChild<GroundMapWidget*>("map");
    const QImage picture = map.grab().toImage();
    const int side = std::min(map.width(), map.height() - 5 * map.fontMetrics().height() - 8);
    const QPoint middle(map.width() / 2, side / 2);
    const QColor gray(228, 228, 228);
    const auto count = [&](int from, int to) {
        int unseen = 0;
        for (int x = from; x < to; ++x) unseen += picture.pixelColor(x, side / 5) == gray ? 1 : 0;
        return unseen;
    };
    EXPECT_GT(count(middle.x() - side / 2 + 5, middle.x() - side / 4), side / 8)
        << "what is not known is gray";
    EXPECT_LT(count(middle.x(), middle.x() + side / 2 - 5), 5);

    QTest::mouseClick(&map, Qt::LeftButton, {}, middle + QPoint(0, side / 3));
    EXPECT_EQ(form.lstAzimuths.Selected(), 18U) << "south";
    map.setFocus();
    QTest::keyClick(&map, Qt::Key_Right);
    EXPECT_EQ(form.lstAzimuths.Selected(), 19U);

    form.area.cmbArea.SetListIndex(1);
    form.area.cmbArea.Click.Raise();
    const QPointF at = middle + QPointF(side / 4.0, 0.0);
    QMouseEvent move(QEvent::MouseMove, at, map.mapToGlobal(at), Qt::NoButton, {}, {});
    QApplication::sendEvent(&map, &move);
    const auto shown = form.area.lblPointed.Caption();
    EXPECT_NE(shown.find(" km at 90.0°, ground 50.0 m"), std::string::npos) << shown;
    EXPECT_NE(map.grab().toImage().pixelColor(middle + QPoint(side / 8, side / 8)),
              picture.pixelColor(middle + QPoint(side / 8, side / 8)))
        << "the area over the ground";
    form.Unload();
}

}  // namespace
}  // namespace vardel
