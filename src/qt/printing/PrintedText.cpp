#include "qt/printing/PrintedText.h"

#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QTextBoundaryFinder>
#include <algorithm>
#include <stdexcept>

#include "qt/services/Convert.h"

namespace vardel {

namespace {

constexpr double SmallestPoints = 6.0;
constexpr int TabStop = 8;
constexpr int ContinuationIndent = 4;  // characters

bool IsAscii(const QString& text) {
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 128; });
}

// How a fixed-pitch font sets a line; where the line has other signs, those may have other widths.
class Measure {
public:
    explicit Measure(const QFontMetricsF& metrics)
        : metrics_(metrics), pitch_(metrics.horizontalAdvance('0')) {}

    double Width(const QString& line) const {
        return IsAscii(line) ? pitch_ * static_cast<double>(line.size())
                             : metrics_.horizontalAdvance(line);
    }

    // How many units of the line fit; at least one character, and no character is split.
    qsizetype Fitting(const QString& line, double width) const {
        if (IsAscii(line))
            return std::clamp<qsizetype>(static_cast<qsizetype>(width / pitch_), 1, line.size());
        QTextBoundaryFinder signs(QTextBoundaryFinder::Grapheme, line);
        qsizetype end = std::max<qsizetype>(1, signs.toNextBoundary());
        double used = 0.0;
        for (qsizetype begin = 0; end > 0; begin = end, end = signs.toNextBoundary()) {
            used += metrics_.horizontalAdvance(line.mid(begin, end - begin));
            if (used > width && begin > 0) return begin;
        }
        return line.size();
    }

    double Indent() const { return pitch_ * ContinuationIndent; }

private:
    QFontMetricsF metrics_;
    double pitch_;
};

QString WithoutTabs(const QString& line) {
    QString text;
    for (const QChar c : line)
        if (c == '\t')
            text += QString(TabStop - text.size() % TabStop, ' ');
        else
            text += c.category() == QChar::Other_Control ? QChar(' ') : c;
    return text;
}

// The end of the first part of a line that does not fit: behind the last blank, if there is one
// that leaves no great gap.
qsizetype BreakOf(const QString& line, qsizetype fitting) {
    const qsizetype blank = line.lastIndexOf(' ', fitting - 1);
    return blank >= fitting * 2 / 3 ? blank + 1 : fitting;
}

class Pages {
public:
    Pages(QPagedPaintDevice& device, const QFont& font) : device_(device) {
        if (!painter_.begin(&device)) throw std::runtime_error("it cannot be opened");
        SetFont(font);
    }

    void SetFont(const QFont& font) {
        painter_.setFont(font);
        metrics_ = QFontMetricsF(font, &device_);
    }

    const QFontMetricsF& Metrics() const { return metrics_; }
    double Width() const { return device_.width(); }

    void PrintLine(const QString& line, double indent) {
        // A page holds at least one line.
        if (y_ > 0.0 && y_ + metrics_.height() > device_.height()) {
            if (!device_.newPage()) throw std::runtime_error("a page cannot be printed");
            y_ = 0.0;
        }
        if (!line.isEmpty()) painter_.drawText(QPointF(indent, y_ + metrics_.ascent()), line);
        y_ += metrics_.lineSpacing();
    }

    void End() {
        if (!painter_.end()) throw std::runtime_error("the document cannot be ended");
    }

private:
    QPagedPaintDevice& device_;
    QPainter painter_;
    QFontMetricsF metrics_{QFont()};
    double y_ = 0.0;
};

// The widest line decides, unless it is too wide for the smallest size.
double PointsFor(const QStringList& lines, const Pages& pages, double points) {
    const Measure measure(pages.Metrics());
    const double widestAllowed = pages.Width() * points / std::min(points, SmallestPoints);
    double widest = 0.0;
    for (const QString& line : lines)
        if (const double width = measure.Width(line); width <= widestAllowed)
            widest = std::max(widest, width);
    // A hundredth less, for the rounding of widths in the fonts of devices.
    return widest > pages.Width() ? points * pages.Width() / widest * 0.99 : points;
}

}  // namespace

void PrintPlainText(QPagedPaintDevice& device, const QString& text, const TextFont& textFont) {
    QFont font = ToQt(textFont);
    font.setKerning(false);
    font.setHintingPreference(QFont::PreferNoHinting);
    QStringList lines = text.split('\n');
    for (QString& line : lines) line = WithoutTabs(line);

    Pages pages(device, font);
    font.setPointSizeF(PointsFor(lines, pages, textFont.points));
    pages.SetFont(font);
    const Measure measure(pages.Metrics());
    for (QString line : lines) {
        double indent = 0.0;
        while (measure.Width(line) > pages.Width() - indent) {
            const qsizetype end = BreakOf(line, measure.Fitting(line, pages.Width() - indent));
            if (end >= line.size()) break;
            pages.PrintLine(line.left(end), indent);
            line.remove(0, end);
            indent = measure.Indent();
        }
        pages.PrintLine(line, indent);
    }
    pages.End();
}

}  // namespace vardel
