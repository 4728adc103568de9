#include "engine/measured/MeasuredFit.h"

#include <algorithm>
#include <cmath>

namespace vardel {

namespace {

std::size_t BandOf(double km) {
    const auto* after = std::upper_bound(FitBands.begin(), FitBands.end(), km);
    return static_cast<std::size_t>(after - FitBands.begin()) - 1;
}

void Count(MeasuredFit& fit) {
    std::vector<double> all, outOfRange;
    std::array<std::vector<double>, FitBands.size()> bands;
    for (const MeasuredFit::Point& point : fit.points) {
        if (!point.inRange) {
            outOfRange.push_back(point.Error());
            continue;
        }
        all.push_back(point.Error());
        bands.at(BandOf(point.km)).push_back(point.Error());
    }
    fit.all = StatisticsOf(all);
    fit.outOfRange = StatisticsOf(outOfRange);
    std::transform(bands.begin(), bands.end(), fit.bands.begin(), StatisticsOf);
}

PlotSeries ErrorSeries(const MeasuredFit& fit, bool inRange) {
    const Model& model = ModelOf(fit.model);
    PlotSeries series{.curve = model.name,
                      .pattern = inRange ? LinePattern::InRange : LinePattern::OutOfRange,
                      .color = ColorOf(model),
                      .singlePoints = true,
                      .marked = true};
    for (const MeasuredFit::Point& point : fit.points) {
        if (point.inRange != inRange) continue;
        series.distances.push_back(point.km);
        series.values.push_back(point.Error());
    }
    return series;
}

}  // namespace

FitStatistics StatisticsOf(const std::vector<double>& errors) {
    if (errors.empty()) return {};
    const auto count = static_cast<double>(errors.size());
    double sum = 0.0, squares = 0.0, deviations = 0.0;
    for (const double error : errors) {
        sum += error;
        squares += error * error;
    }
    const double mean = sum / count;
    for (const double error : errors) deviations += (error - mean) * (error - mean);
    return {static_cast<int>(errors.size()), mean, std::sqrt(deviations / count),
            std::sqrt(squares / count)};
}

std::vector<MeasuredFit> FitsOf(const PathInputs& path, const MeasuredSegment& segment, int column,
                                const std::vector<double>& percentages) {
    std::vector<MeasuredFit> fits;
    for (const ModelNumber number : ComparedModels) {
        const Model& model = ModelOf(number);
        for (const double pctLoc : percentages) {
            MeasuredFit fit;
            fit.model = number;
            fit.pctLoc = pctLoc;
            ModelInputs at = MetricInputs(path);
            at.pctLoc = pctLoc;
            for (int row = 0; segment.RowValue[row][column] != MeasuredEndMark; ++row) {
                at.d = segment.RowDistance[row];
                if (!(at.d > 0.0)) {
                    ++fit.unusable;
                    continue;
                }
                ModelTermsRecord terms;
                fit.points.push_back({at.d, segment.RowValue[row][column],
                                      model.fieldStrength(at, path.powerWatts, terms),
                                      InRange(model, at)});
            }
            Count(fit);
            fits.push_back(std::move(fit));
        }
    }
    return fits;
}

CurvePlot ErrorPlot(const std::vector<MeasuredFit>& fits, double pctLoc) {
    CurvePlot plot;
    for (const MeasuredFit& fit : fits) {
        if (fit.pctLoc != pctLoc) continue;
        for (const bool inRange : {true, false})
            if (PlotSeries series = ErrorSeries(fit, inRange); !series.values.empty()) {
                series.continued = !plot.empty() && plot.back().curve == series.curve;
                plot.push_back(std::move(series));
            }
    }
    return plot;
}

}  // namespace vardel
