#include "qt/chart/FreeCorner.h"

#include <qcustomplot.h>

#include <limits>

#include "qt/chart/ClippedCurve.h"

namespace vardel {

namespace {

using Line = std::vector<CurvePoint>;

std::vector<Line> LinesOf(const QCustomPlot& plot) {
    std::vector<Line> lines;
    for (int i = 0; i < plot.graphCount(); ++i) {
        if (!plot.graph(i)->visible()) continue;
        Line& line = lines.emplace_back();
        for (const QCPGraphData& p : *plot.graph(i)->data()) line.push_back({p.key, p.value});
    }
    return lines;
}

// In the coordinates of the curves.
ClipFrame FrameOf(const QCustomPlot& plot, const QRect& area) {
    return {plot.xAxis->pixelToCoord(area.left()), plot.xAxis->pixelToCoord(area.right()),
            plot.yAxis->pixelToCoord(area.bottom()), plot.yAxis->pixelToCoord(area.top())};
}

}  // namespace

Qt::Alignment FreestCorner(const QCustomPlot& plot, QSize size,
                           const std::vector<Qt::Alignment>& corners) {
    const std::vector<Line> lines = LinesOf(plot);
    auto fewest = std::numeric_limits<std::size_t>::max();
    Qt::Alignment freest;
    for (const Qt::Alignment corner : corners) {
        const ClipFrame frame = FrameOf(
            plot, QStyle::alignedRect(Qt::LeftToRight, corner, size, plot.axisRect()->rect()));
        std::size_t hidden = 0;
        for (const Line& line : lines) hidden += Clipped(line, frame).size();
        if (hidden >= fewest) continue;
        fewest = hidden;
        freest = corner;
    }
    return freest;
}

void PlaceLegend(QCustomPlot& plot) {
    constexpr QSize Room(20, 20);
    QCPLayoutInset& inset = *plot.axisRect()->insetLayout();
    inset.setInsetAlignment(
        0, FreestCorner(plot, plot.legend->minimumOuterSizeHint() + Room,
                        {inset.insetAlignment(0), Qt::AlignTop | Qt::AlignRight,
                         Qt::AlignBottom | Qt::AlignRight, Qt::AlignBottom | Qt::AlignLeft,
                         Qt::AlignTop | Qt::AlignLeft}));
}

}  // namespace vardel
