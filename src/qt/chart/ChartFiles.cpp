#include "qt/chart/ChartFiles.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <algorithm>
#include <stdexcept>

#include "engine/PathRecord.h"
#include "qt/chart/ChartPlot.h"
#include "qt/metafile/MetafileDevice.h"
#include "qt/services/Convert.h"

namespace vardel {

namespace {

constexpr int PointsPerInch = 96;  // of a plain screen
constexpr const char* PngText = "Description";

// Pixels of a picture, and how many of them are a point of what is drawn: a picture that is wanted
// larger is larger in all its parts.
struct PictureScale {
    QSize pixels;
    double pixelsPerPoint;

    QSize Points() const {
        return {qRound(pixels.width() / pixelsPerPoint), qRound(pixels.height() / pixelsPerPoint)};
    }
};

PictureScale ScaleOf(const ChartFrame& frame) {
    if (frame.Width <= 0 || frame.Height <= 0) return {PictureSize, 1.0};
    return {{frame.Width, frame.Height},
            std::max(frame.Width, frame.Height) / static_cast<double>(PictureSize.width())};
}

QString RecordOf(const Chart& chart) {
    return chart.Inputs ? ToQt(PathRecord(*chart.Inputs)) : QString();
}

// With the resolution at which its texts have their sizes on paper.
QImage PngImage(const Chart& chart) {
    constexpr int FinerForPaper = 3;
    constexpr double PointsPerMetre = PointsPerInch / 0.0254;
    QImage image;
    double scale = FinerForPaper;
    if (chart.FileFrame.Width <= 0) {
        image = DrawChart(chart, FinerForPaper, chart.FileFrame);
    } else {
        const PictureScale picture = ScaleOf(chart.FileFrame);
        scale = picture.pixelsPerPoint;
        image = QImage(picture.pixels, QImage::Format_RGB32);
        image.fill(Qt::white);
        DrawChartOn(image, chart, chart.FileFrame, picture.Points(), scale);
    }
    image.setDotsPerMeterX(qRound(scale * PointsPerMetre));
    image.setDotsPerMeterY(qRound(scale * PointsPerMetre));
    return image;
}

// The PDF's writer has no property for keywords, so they come in the metadata stream, which the
// title has to be repeated in.
QByteArray XmpOf(const QString& title, const QString& record) {
    return QString(R"(<?xpacket begin="" id="W5M0MpCehiHzreSzNTczkc9d"?>
<x:xmpmeta xmlns:x="adobe:ns:meta/"><rdf:RDF xmlns:rdf="http://www.w3.org/1999/02/22-rdf-syntax-ns#">
<rdf:Description rdf:about="" xmlns:pdf="http://ns.adobe.com/pdf/1.3/" xmlns:dc="http://purl.org/dc/elements/1.1/">
<dc:title><rdf:Alt><rdf:li xml:lang="x-default">%1</rdf:li></rdf:Alt></dc:title>
<pdf:Keywords>%2</pdf:Keywords>
</rdf:Description></rdf:RDF></x:xmpmeta>
<?xpacket end="w"?>
)")
        .arg(title.toHtmlEscaped(), record.toHtmlEscaped())
        .toUtf8();
}

}  // namespace

QByteArray ChartAsMetafile(const Chart& chart) {
    MetafileDevice device(PictureSize);
    if (!DrawChartOn(device, chart, {}, PictureSize))
        throw std::runtime_error("The chart cannot be drawn as a metafile");
    return device.Metafile();
}

QByteArray ChartAsPng(const Chart& chart) {
    QImage image = PngImage(chart);
    if (chart.Inputs) image.setText(PngText, RecordOf(chart));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

QByteArray ChartAsSvg(const Chart& chart) {
    const PictureScale picture = ScaleOf(chart.FileFrame);
    QBuffer buffer;
    QSvgGenerator svg;
    svg.setOutputDevice(&buffer);
    svg.setSize(picture.pixels);
    svg.setViewBox(QRect(QPoint(), picture.pixels));
    svg.setTitle(ToQt(chart.Title[0].Text));
    svg.setDescription(RecordOf(chart));
    svg.setResolution(PointsPerInch);
    DrawChartOn(svg, chart, chart.FileFrame, picture.Points(), picture.pixelsPerPoint);
    return buffer.data();
}

QByteArray ChartAsPdf(const Chart& chart) {
    const PictureScale picture = ScaleOf(chart.FileFrame);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter pdf(&buffer);
        pdf.setResolution(PointsPerInch);
        constexpr double PaperPointsPerPoint = 72.0 / PointsPerInch;
        pdf.setPageSize(QPageSize(QSizeF(picture.pixels) * PaperPointsPerPoint, QPageSize::Point));
        pdf.setPageMargins(QMarginsF());
        pdf.setTitle(ToQt(chart.Title[0].Text));
        if (chart.Inputs) pdf.setDocumentXmpMetadata(XmpOf(pdf.title(), RecordOf(chart)));
        DrawChartOn(pdf, chart, chart.FileFrame, picture.Points(), picture.pixelsPerPoint);
    }
    return buffer.data();
}

std::string TextOfFile(const QString& path) {
    constexpr qint64 Largest = 64LL * 1024 * 1024;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > Largest) return {};
    QByteArray bytes = file.read(Largest);
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader png(&buffer, "png");
    if (png.canRead()) return FromQt(png.text(PngText));
    return bytes.toStdString();
}

}  // namespace vardel
