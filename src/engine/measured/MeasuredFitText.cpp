#include <algorithm>
#include <functional>

#include "engine/PathText.h"
#include "engine/measured/MeasuredFit.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

std::string BandText(std::size_t band) {
    const std::string from = ShortestText(FitBands.at(band));
    if (band + 1 == FitBands.size()) return "from " + from + " km";
    const std::string to = ShortestText(FitBands.at(band + 1));
    return band == 0 ? "under " + to + " km" : from + " to " + to + " km";
}

// Each row of one fit: what it counts, with those of no points left out but for all of them.
void ForEachRow(const MeasuredFit& fit,
                const std::function<void(const std::string&, const FitStatistics&)>& row) {
    row("all in range", fit.all);
    for (std::size_t band = 0; band < fit.bands.size(); ++band)
        if (fit.bands.at(band).points > 0) row(BandText(band), fit.bands.at(band));
    if (fit.outOfRange.points > 0) row("out of range", fit.outOfRange);
}

std::string Decibels(double x) { return FormatNumber(x, "0.00"); }

std::string Right(const std::string& text, std::size_t width) {
    return std::string(width - std::min(width, text.size()), ' ') + text;
}

std::string Left(const std::string& text, std::size_t width) {
    return text + std::string(width - std::min(width, text.size()), ' ');
}

constexpr std::size_t NameWidth = 36;
constexpr std::size_t NumberWidth = 11;

std::string TableRow(const std::string& name, const FitStatistics& counted) {
    std::string line = Left("  " + name, NameWidth) + Right(std::to_string(counted.points), 8);
    for (const double x : {counted.mean, counted.deviation, counted.rms, counted.BestConstant()})
        line += Right(counted.points == 0 ? "-" : Decibels(x), NumberWidth);
    return line + '\n';
}

}  // namespace

std::string FitTable(const std::vector<MeasuredFit>& fits) {
    std::string text = Left("Model minus measured, dB", NameWidth) + Right("points", 8);
    for (const char* head : {"mean", "deviation", "rms", "to add"})
        text += Right(head, NumberWidth);
    text += '\n';
    for (const MeasuredFit& fit : fits) {
        text += std::string(ModelOf(fit.model).name) + ", " + PercentText(fit.pctLoc) +
                " of locations\n";
        ForEachRow(fit, [&text](const std::string& name, const FitStatistics& counted) {
            text += TableRow(name, counted);
        });
    }
    if (!fits.empty() && fits.front().unusable > 0)
        text += "Not counted, because the distance is not above zero: " +
                std::to_string(fits.front().unusable) + '\n';
    return text;
}

std::string FitCsv(const std::vector<MeasuredFit>& fits) {
    std::string text =
        "model,percent_locations,points_counted,points,mean_error_db,standard_deviation_db,"
        "rms_error_db,constant_to_add_db\r\n";
    for (const MeasuredFit& fit : fits)
        ForEachRow(fit, [&](const std::string& name, const FitStatistics& counted) {
            text += std::string(ModelOf(fit.model).name) + ',' + ShortestText(fit.pctLoc) + ',' +
                    name + ',' + std::to_string(counted.points);
            for (const double x :
                 {counted.mean, counted.deviation, counted.rms, counted.BestConstant()})
                text += ',' + (counted.points == 0 ? std::string() : ShortestText(x));
            text += "\r\n";
        });
    return text;
}

}  // namespace vardel
