#include "qt/printing/QtPrinters.h"

#include <cups/cups.h>

#include <QBuffer>
#include <QLocale>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>
#include <stdexcept>

#include "qt/chart/ChartPlot.h"
#include "qt/printing/PrintedText.h"
#include "qt/printing/PrinterSetupDialog.h"
#include "qt/services/Convert.h"
#include "qt/windows/DialogOver.h"
#include "services/Files.h"

namespace vardel {

namespace {

constexpr double MarginMillimetres = 12.7;
constexpr int TextResolution = 1200;

QPageLayout PdfLayout() {
    const bool inches = QLocale().measurementSystem() != QLocale::MetricSystem;
    return {QPageSize(inches ? QPageSize::Letter : QPageSize::A4), QPageLayout::Portrait, {}};
}

QPageLayout FirstLayoutOf(const std::string& printer) {
    const QPrinterInfo info = QPrinterInfo::printerInfo(ToQt(printer));
    QPageLayout layout = info.isNull() ? PdfLayout() : QPrinter(info).pageLayout();
    layout.setUnits(QPageLayout::Millimeter);
    // Fails where the printer needs more, whose margins are kept then.
    layout.setMargins(
        QMarginsF(MarginMillimetres, MarginMillimetres, MarginMillimetres, MarginMillimetres));
    return layout;
}

// Qt hands the finished document to the spooler without a look at the answer.
void ThrowWhereTheSpoolerFailed() {
    if (cupsLastError() > IPP_STATUS_OK_EVENTS_COMPLETE)
        throw std::runtime_error(cupsLastErrorString());
}

}  // namespace

std::vector<std::string> QtPrinters::PrinterNames() {
    std::vector<std::string> names;
    for (const QString& name : QPrinterInfo::availablePrinterNames()) names.push_back(FromQt(name));
    names.emplace_back(PdfPrinter);
    return names;
}

std::string QtPrinters::CurrentPrinter() {
    if (current_.empty()) current_ = FromQt(QPrinterInfo::defaultPrinterName());
    if (current_.empty()) current_ = PdfPrinter;
    return current_;
}

QPageLayout& QtPrinters::LayoutOf(const std::string& printer) {
    const auto it = layouts_.find(printer);
    return it != layouts_.end() ? it->second
                                : layouts_.emplace(printer, FirstLayoutOf(printer)).first->second;
}

PageOrientation QtPrinters::Orientation() {
    return LayoutOf(CurrentPrinter()).orientation() == QPageLayout::Landscape
               ? PageOrientation::Landscape
               : PageOrientation::Portrait;
}

void QtPrinters::SetOrientation(PageOrientation orientation) {
    LayoutOf(CurrentPrinter())
        .setOrientation(orientation == PageOrientation::Landscape ? QPageLayout::Landscape
                                                                  : QPageLayout::Portrait);
}

void QtPrinters::PrintText(std::string_view text) {
    document_ += text;
    document_ += '\n';
}

void QtPrinters::EndDocument(const std::string& title, const std::string& file) {
    QString text = ToQt(document_);
    document_.clear();
    text.remove('\r');
    while (text.endsWith('\n')) text.chop(1);  // what ends a line begins no page
    Print({title, file, TextResolution},
          [&](QPagedPaintDevice& device) { PrintPlainText(device, text, font_); });
}

void QtPrinters::PrintChart(const Chart& chart, const std::string& file) {
    Print({chart.Title[0].Text, file, ChartPageResolution()},
          [&](QPagedPaintDevice& device) { DrawChartOnPage(device, chart); });
}

void QtPrinters::Print(const Job& job, const std::function<void(QPagedPaintDevice&)>& paint) {
    const std::string name = CurrentPrinter();
    if (!job.file.empty()) {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        {
            QPdfWriter pdf(&buffer);
            pdf.setResolution(job.resolution);
            pdf.setPageLayout(LayoutOf(name));
            pdf.setTitle(ToQt(job.title));
            paint(pdf);
        }
        return ReplaceFile(job.file, buffer.data().toStdString());
    }
    const QPrinterInfo info = QPrinterInfo::printerInfo(ToQt(name));
    if (info.isNull())
        throw std::runtime_error(
            "there is no such printer any more. Choose another by Printer "
            "Setup.");
    QPrinter printer(info);
    printer.setResolution(job.resolution);
    printer.setPageLayout(LayoutOf(name));
    printer.setDocName(ToQt(job.title));
    paint(printer);
    ThrowWhereTheSpoolerFailed();
}

void QtPrinters::ShowPrinterSetup() {
    DialogOver<PrinterSetupDialog> dialog(*this);
    dialog.Exec();
}

}  // namespace vardel
