#include "qt/chart/FreeCorner.h"

#include <qcustomplot.h>

#include <limits>

#include "qt/chart/ClippedCurve.h"

namespace vardel {

namespace {

// A point of a curve is worth so many of a reference's.
constexpr std::size_t ReferenceShare = 4;

struct Line {
    std::vector<CurvePoint> points;
    std::size_t weight;
};

std::vector<Line> LinesOf(const QCustomPlot& plot) {
    std::vector<Line> lines;
    for (int i = 0; i < plot.graphCount(); ++i) {
        if (!plot.graph(i)->visible()) continue;
        Line& line = lines.emplace_back();
        line.weight = plot.graph(i)->property(ReferenceProperty).toBool() ? 1 : ReferenceShare;
        for (const QCPGraphData& p : *plot.graph(i)->data())
            line.points.push_back({p.key, p.value});
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
        for (const Line& line : lines) hidden += line.weight * Clipped(line.points, frame).size();
        if (hidden == 0) return corner;
        if (hidden >= fewest) continue;
        fewest = hidden;
        freest = corner;
    }
    return freest;
}

void KeepLegendFree(QCustomPlot& plot) {
    QObject::connect(&plot, &QCustomPlot::afterLayout, &plot, [&plot] {
        if (!plot.legend->visible()) return;
        constexpr QSize Room(20, 20);
        QCPLayoutInset& inset = *plot.axisRect()->insetLayout();
        inset.setInsetAlignment(
            0, FreestCorner(plot, plot.legend->minimumOuterSizeHint() + Room,
                            {inset.insetAlignment(0), Qt::AlignTop | Qt::AlignRight,
                             Qt::AlignBottom | Qt::AlignRight, Qt::AlignBottom | Qt::AlignLeft,
                             Qt::AlignTop | Qt::AlignLeft}));
        inset.update(QCPLayoutElement::upLayout);
    });
}

}  // namespace vardel
