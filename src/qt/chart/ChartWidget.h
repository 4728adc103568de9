#pragma once

#include <qcustomplot.h>

#include "forms/graphs/Chart.h"
#include "qt/windows/Binder.h"

namespace vardel {

// A chart on the screen: the wheel zooms, dragging moves, a double click or Home goes back to the
// chart's own scales. Under the pointer, and moved by the arrow keys, stands a readout of the
// distance and of each curve's value there.
class ChartWidget : public QCustomPlot {
public:
    ChartWidget(Chart& chart, Binder& binder);

    // The readout at a distance in km.
    void ShowReadout(double distance);
    void HideReadout();
    QString ReadoutText() const { return readout_->text(); }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void ShowChart();
    void ResetScales();
    void PlaceReadout();
    int PointsWithin(const QRect& area) const;
    void SaveAs(const std::string& filter, const QByteArray& bytes);

    Chart& chart_;
    QCPItemStraightLine* cursor_;
    QCPItemText* readout_;
    bool readoutPlaced_ = false;  // for the curves as they are drawn now
    double distance_ = 0.0;
};

}  // namespace vardel
