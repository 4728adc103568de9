#pragma once

#include <array>
#include <string>
#include <vector>

#include "engine/PathInputs.h"
#include "engine/curves/CurvePlot.h"
#include "engine/measured/MeasuredData.h"

// How well the models predict what was measured. An error is what a model predicts minus what was
// measured, in dB; mean, standard deviation and root mean square as in Recommendation ITU-R P.311:
// the deviation is that of all points, so that rms² = mean² + deviation².

namespace vardel {

// Of the errors of one model at some points.
struct FitStatistics {
    int points = 0;
    double mean = 0.0;       // dB, 0 without points, as are the others
    double deviation = 0.0;  // dB
    double rms = 0.0;        // dB

    // What to add to the model so that the sum of the squared errors is the least, dB.
    double BestConstant() const { return points == 0 ? 0.0 : -mean; }
};

// Of errors in dB.
FitStatistics StatisticsOf(const std::vector<double>& errors);

// Distances from one of these on, up to the next, in km.
constexpr std::array<double, 5> FitBands = {0.0, 10.0, 20.0, 50.0, 100.0};

// One model at one percentage of locations against a column of a table.
struct MeasuredFit {
    struct Point {
        double km;
        double measured;   // dB(µV/m)
        double predicted;  // dB(µV/m)
        bool inRange;
        double Error() const { return predicted - measured; }
    };

    ModelNumber model{};
    double pctLoc = 50.0;                              // percent of locations
    std::vector<Point> points;                         // in the order of the table
    FitStatistics all;                                 // of what the model covers
    std::array<FitStatistics, FitBands.size()> bands;  // of that, by distance
    FitStatistics outOfRange;                          // of the rest
    int unusable = 0;                                  // distances that are not above zero
};

// The compared models at each of the percentages of locations, against a column of a table, 0 to
// its HeightCount - 1. The path's distance and percentage of locations play no part.
std::vector<MeasuredFit> FitsOf(const PathInputs& path, const MeasuredSegment& segment, int column,
                                const std::vector<double>& percentages);

// The errors over the distance, of each model at one percentage.
CurvePlot ErrorPlot(const std::vector<MeasuredFit>& fits, double pctLoc);

// Tables for a window, in columns of a fixed width, for a spreadsheet, and for the log.
std::string FitTable(const std::vector<MeasuredFit>& fits);
std::string FitCsv(const std::vector<MeasuredFit>& fits);

}  // namespace vardel
