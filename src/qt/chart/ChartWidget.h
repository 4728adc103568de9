#pragma once

#include <qcustomplot.h>

#include <array>
#include <optional>

#include "forms/graphs/chart/Chart.h"
#include "qt/binder/Binder.h"

namespace vardel {

// A chart on the screen: the wheel and + and - zoom, dragging, Shift with left and right, up and
// down move, a double click or Home goes back to the chart's own scales, all within some margin
// around these. A box that is drawn with Ctrl held is what is shown next, and over the numbers of
// an axis the wheel and dragging are for that axis alone. A click on a legend's entry, or its
// digit, takes its curve off and puts it back. Under the pointer, and moved by the arrow keys,
// stands a readout of the distance and of each curve's value there. A threshold line is dragged, or
// moved by Ctrl with up and down.
class ChartWidget : public QCustomPlot {
public:
    ChartWidget(Chart& chart, Binder& binder);

    // The readout at a distance in km.
    void ShowReadout(double distance);
    void HideReadout();
    // Back to the scales that the chart gives.
    void ResetScales();
    QString ReadoutText() const { return readout_->text(); }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void paintEvent(QPaintEvent* event) override;  // the frame of the keyboard's focus

private:
    void ShowChart();
    void MakeReadout();
    void FollowAxis(QCPAxis& axis, QCPAxis& opposite, std::size_t i);
    void DrawAnew(bool toScale);
    void SwitchCurve(int number);  // of the legend, without its continuations
    void SwitchCurveOf(const QCPAbstractLegendItem& entry);
    bool IsOnThreshold(const QPointF& at) const;
    void MoveThreshold(double step);
    void ShowReadoutByKey(double distance);
    void ZoomAboutReadout(double factor);
    void Pan(QCPAxis& axis, double share);
    void PlaceReadout();

    Chart& chart_;
    QCPItemStraightLine* cursor_;
    QCPItemText* readout_;
    int redraws_ = -1;  // of the chart, as it is shown
    ChartLook look_;
    bool dragsThreshold_ = false;
    bool bounding_ = false;       // an axis that has gone too far is being put back
    bool readoutPlaced_ = false;  // for the curves as they are drawn now
    double distance_ = 0.0;
    std::array<QCPRange, 2> whole_;  // the axes with all that the chart shows
    std::optional<double> pointer_;  // where the mouse holds the readout, in points of the widget
};

}  // namespace vardel
