#pragma once

#include <qcustomplot.h>

#include "forms/graphs/chart/Chart.h"

namespace vardel {

// A line across the plot at a chart's threshold, with a mark where each curve crosses it. The
// labels of the marks stand in a stair on the side that the curves leave free.
class ThresholdItem : public QCPAbstractItem {
public:
    // Makes the plot show the chart's threshold, or none.
    static void Show(QCustomPlot& plot, const Chart& chart);
    static ThresholdItem* Of(const QCustomPlot& plot);  // null: none yet

    double selectTest(const QPointF& at, bool onlySelectable, QVariant* details) const override;

protected:
    void draw(QCPPainter* painter) override;

private:
    struct Mark {
        QPointF at;
        QColor color;
        QString text;
    };

    explicit ThresholdItem(QCustomPlot& plot);

    std::vector<Mark> MarksAt(double y) const;
    void DrawLevel(QCPPainter& painter, double y, double lastMark, bool above) const;
    void DrawStair(QCPPainter& painter, const std::vector<Mark>& marks, bool above) const;

    ChartThreshold threshold_;
};

}  // namespace vardel
