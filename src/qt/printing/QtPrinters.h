#pragma once

#include <QPageLayout>
#include <functional>
#include <map>

#include "services/Platform.h"

class QPagedPaintDevice;

namespace vardel {

// The printers of the system as Qt finds them, and one more that writes a PDF file. Until a printer
// is chosen the system's default one is the current, or the PDF file where the system has none.
class QtPrinters : public Printers {
public:
    static constexpr const char* PdfPrinter = "Print to PDF file";

    std::vector<std::string> PrinterNames() override;
    std::string CurrentPrinter() override;
    void SetCurrentPrinter(const std::string& name) override { current_ = name; }
    bool PrintsToFile() override { return CurrentPrinter() == PdfPrinter; }
    PageOrientation Orientation() override;
    void SetOrientation(PageOrientation orientation) override;
    void SetFont(const TextFont& font) override { font_ = font; }
    void PrintText(std::string_view text) override;
    void EndDocument(const std::string& title, const std::string& file) override;
    void PrintChart(const Chart& chart, const std::string& file) override;
    void ShowPrinterSetup() override;

    // Paper, orientation and margins of a printer; its own until they are set.
    QPageLayout& LayoutOf(const std::string& printer);

private:
    struct Job {
        std::string title;
        std::string file;    // empty: on the printer
        int resolution = 0;  // points per inch
    };

    void Print(const Job& job, const std::function<void(QPagedPaintDevice&)>& paint);

    std::string current_;
    std::map<std::string, QPageLayout> layouts_;
    TextFont font_{"Courier New", 10.0};
    std::string document_;
};

}  // namespace vardel
