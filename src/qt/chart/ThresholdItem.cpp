#include "qt/chart/ThresholdItem.h"

#include <cmath>

#include "qt/chart/ChartPlot.h"
#include "qt/services/Convert.h"

namespace vardel {

namespace {

constexpr int Gap = 3;      // between the line and what stands by it
constexpr int Padding = 3;  // of a label

QColor LineColor() { return {190, 95, 0}; }
QColor TextColor() { return {30, 30, 30}; }

}  // namespace

ThresholdItem::ThresholdItem(QCustomPlot& plot) : QCPAbstractItem(&plot) { setLayer("overlay"); }

ThresholdItem* ThresholdItem::Of(const QCustomPlot& plot) {
    for (int i = 0; i < plot.itemCount(); ++i)
        if (auto* item = dynamic_cast<ThresholdItem*>(plot.item(i))) return item;
    return nullptr;
}

void ThresholdItem::Show(QCustomPlot& plot, const Chart& chart) {
    ThresholdItem* item = Of(plot);
    if (!chart.Threshold()) {
        if (item != nullptr) item->setVisible(false);
        return;
    }
    if (item == nullptr) item = new ThresholdItem(plot);  // the plot's from now on
    item->threshold_ = *chart.Threshold();
    item->setVisible(true);
}

double ThresholdItem::selectTest(const QPointF& at, bool, QVariant*) const {
    const QCPAxisRect& axes = *mParentPlot->axisRect();
    if (!realVisibility() || !axes.rect().contains(at.toPoint())) return -1;
    return std::abs(axes.axis(QCPAxis::atLeft)->coordToPixel(threshold_.Value) - at.y());
}

std::vector<ThresholdItem::Mark> ThresholdItem::MarksAt(double y) const {
    const QCPRange shown = mParentPlot->xAxis->range();
    std::vector<Mark> marks;
    for (const ChartThreshold::Crossing& crossing : threshold_.Crossings)
        if (shown.contains(crossing.X))
            marks.push_back({{mParentPlot->xAxis->coordToPixel(crossing.X), y},
                             ToQt(crossing.LineColor),
                             ToQt(crossing.Text)});
    return marks;
}

void ThresholdItem::draw(QCPPainter* painter) {
    const QRect frame = mParentPlot->axisRect()->rect();
    const double y = mParentPlot->yAxis->coordToPixel(threshold_.Value);
    if (y < frame.top() || y > frame.bottom()) return;
    QFont font("Arial");
    font.setPointSizeF(8);
    painter->setFont(font);
    painter->setAntialiasing(true);
    const std::vector<Mark> marks = MarksAt(y);
    const double stair = Gap + painter->fontMetrics().height() * double(marks.size() + 1);
    const double roomAbove = y - frame.top(), roomBelow = frame.bottom() - y;
    const bool fits = stair < (threshold_.Falling ? roomAbove : roomBelow);
    const bool above = fits ? threshold_.Falling : roomAbove > roomBelow;
    painter->setPen(QPen(LineColor(), 1.3));
    painter->drawLine(QLineF(frame.left(), y, frame.right(), y));
    DrawLevel(*painter, y, marks.empty() ? frame.left() : marks.back().at.x(), above);
    DrawStair(*painter, marks, above);
}

// At the right, unless the marks or the legend are there.
void ThresholdItem::DrawLevel(QCPPainter& painter, double y, double lastMark, bool above) const {
    const QRect frame = mParentPlot->axisRect()->rect();
    const QString text = ToQt(threshold_.Text);
    const QFontMetrics metrics = painter.fontMetrics();
    QRect label(0, qRound(above ? y - Gap - metrics.height() : y + Gap),
                metrics.horizontalAdvance(text) + 1, metrics.height());
    label.moveRight(frame.right() - 2 * Padding);
    if (lastMark > label.left() - 0.25 * frame.width() ||
        label.intersects(mParentPlot->legend->outerRect()))
        label.moveLeft(frame.left() + 2 * Padding);
    painter.setPen(LineColor());
    painter.drawText(label, Qt::AlignCenter, text);
}

// The nearest crossing has the step that is farthest from the line, so that no label stands in the
// way of another's leader.
void ThresholdItem::DrawStair(QCPPainter& painter, const std::vector<Mark>& marks,
                              bool above) const {
    const QRect frame = mParentPlot->axisRect()->rect();
    const QFontMetrics metrics = painter.fontMetrics();
    const int height = metrics.height();
    std::vector<QRect> labels;
    for (std::size_t i = 0; i < marks.size(); ++i) {
        const int width = metrics.horizontalAdvance(marks[i].text) + 2 * Padding;
        const int away = Gap + height * static_cast<int>(marks.size() - i);
        const int y = qRound(marks[i].at.y());
        const int left = std::min(qRound(marks[i].at.x()), frame.right() - width);
        labels.emplace_back(left, above ? y - away - height / 2 : y + away - height / 2, width,
                            height);
        painter.setPen(QPen(marks[i].color, 1));
        painter.drawLine(
            QLineF(marks[i].at, {marks[i].at.x(), double(labels.back().center().y())}));
    }
    for (std::size_t i = 0; i < marks.size(); ++i) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(255, 255, 255, 225));
        painter.drawRect(labels[i]);
        painter.setPen(TextColor());
        painter.drawText(labels[i], Qt::AlignCenter, marks[i].text);
        constexpr double Radius = 3.0;
        painter.setPen(QPen(marks[i].color.darker(150), 1));
        painter.setBrush(marks[i].color);
        painter.drawEllipse(marks[i].at, Radius, Radius);
    }
    painter.setBrush(Qt::NoBrush);
}

}  // namespace vardel
