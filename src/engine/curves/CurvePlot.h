#pragma once

#include <string>
#include <vector>

#include "engine/curves/Curves.h"
#include "engine/measured/MeasuredData.h"
#include "services/Color.h"

// What the graphs show: curves, cut where the range of their model ends.

namespace vardel {

// Why a stretch is drawn as it is; charts keep the numbers.
enum class LinePattern : int { InRange = 0, FreeSpace = 2, OutOfRange = 3, Archived = 4 };

// A stretch of a curve, in one pattern.
struct PlotSeries {
    std::string curve;       // the name of its curve
    bool continued = false;  // the curve began in the series before
    LinePattern pattern = LinePattern::InRange;
    Color color;
    bool singlePoints = false;           // values that were measured, with none between them
    bool marked = false;                 // a dot at each value
    std::vector<double> distances = {};  // km
    std::vector<double> values = {};     // dB, or dB(µV/m)
};

using CurvePlot = std::vector<PlotSeries>;

// What a field strength graph shows: one model for six base antenna heights, or the three models
// that are compared at the height of the inputs.
enum class FieldStrengthGraph : int {
    Davidson = 0,
    Itu529 = 1,
    Us = 2,
    Cost231 = 3,
    Comparison = 4
};

// The curves of a graph, before they are computed.
struct GraphCurves {
    struct Curve {
        std::string name;
        const Model* model;  // null: free space
        ModelInputs in;
        Color color;
        double from;  // where it begins, km
    };

    Quantity quantity = Quantity::Loss;
    double powerWatts = 0.0;  // e.r.p., of field strengths
    std::vector<Curve> curves;
};

// The losses of the models that are compared, and of free space.
GraphCurves LossCurves(const ModelInputs& in);
// Field strengths, and free space last.
GraphCurves FieldStrengthCurves(FieldStrengthGraph which, const ModelInputs& in, double powerWatts);
// As it stands over the graph.
const char* TitleOf(FieldStrengthGraph graph);

// Of a model's curve beside those of the others.
Color ColorOf(const Model& model);

// The curves computed up to a distance in km, at most FarthestPoint, and cut into stretches.
CurvePlot PlotOf(const GraphCurves& graph, double maxDist);

// The values of a column, 0 to HeightCount - 1, of a measured table over the rest; without any,
// none.
void AddMeasured(CurvePlot& plot, const MeasuredSegment& segment, int column);

// A line for each series, separated by carriage returns.
std::string LegendText(const CurvePlot& plot);

}  // namespace vardel
