#include "forms/graphs/chart/Chart.h"

#include <algorithm>

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

void Chart::HideSeries() {
    for (ChartSeries& series : series_) series.Visible = false;
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

void Chart::SwitchCurve(const std::string& curve) {
    ChartLook look = look_;
    if (std::erase(look.Off, curve) == 0) look.Off.push_back(curve);
    SetLook(std::move(look));
}

ChartRanges Chart::Scales() const {
    ChartRanges scales{{{Axis[0].Minimum, Axis[0].Maximum}, {Axis[1].Minimum, Axis[1].Maximum}}};
    if (look_.Ranges) scales = *look_.Ranges;
    if (!look_.LogDistance || scales[0].From > 0.0) return scales;
    // Where the models begin: free space goes on to where nothing else is.
    std::optional<double> first;
    for (const ChartSeries& series : series_)
        if (series.Visible && !series.X.empty() && series.X.front() > 0.0 &&
            series.LineStyle != static_cast<int>(LinePattern::FreeSpace))
            first = std::min(first.value_or(series.X.front()), series.X.front());
    scales[0].From = std::min(first.value_or(CurveStep), scales[0].To / 2.0);
    return scales;
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
