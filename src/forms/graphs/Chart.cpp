#include "forms/graphs/Chart.h"

#include "forms/shared/Printing.h"
#include "services/Files.h"
#include "services/Platform.h"

namespace vardel {

Chart::Chart(Form& form, std::string name, std::string title, std::string xTitle,
             std::string yTitle)
    : Control(form, std::move(name)), ThresholdMove(form) {
    Title[0].Text = std::move(title);
    Axis[0].Title = std::move(xTitle);
    Axis[1].Title = std::move(yTitle);
}

ChartSeries& Chart::Series(int index) {
    const auto i = static_cast<std::size_t>(index);
    if (i >= series_.size()) series_.resize(i + 1);
    return series_[i];
}

void Chart::SetSeriesData(int index, std::string label, const double* x, const double* y,
                          std::size_t count) {
    ChartSeries& series = Series(index);
    series.Label = std::move(label);
    series.X.assign(x, x + count);
    series.Y.assign(y, y + count);
}

void Chart::MoveThreshold(double value) {
    wantedThreshold_ = value;
    ThresholdMove.Raise();
}

void Chart::CopyToClipboard() {
    Platform& platform = Owner().GetPlatform();
    platform.clipboard.SetPicture(platform.charts.PictureOf(*this));
}

void Chart::SaveMetafile(int /*format*/, const std::string& path) {
    ReplaceFile(path, Owner().GetPlatform().charts.MetafileOf(*this));
}

void Chart::PrintChart() {
    PrintOnCurrentPrinter(Owner(), Title[0].Text, [this](const std::string& file) {
        Owner().GetPlatform().printers.PrintChart(*this, file);
    });
}

void Chart::PrinterSetup() { Owner().GetPlatform().printers.ShowPrinterSetup(); }

}  // namespace vardel
