#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "controls/Controls.h"
#include "engine/PathInputs.h"
#include "engine/curves/CurvePlot.h"
#include "forms/graphs/chart/ChartLook.h"

namespace vardel {

// A line of a chart, X and Y of one length.
struct ChartSeries {
    bool Visible = false;
    Color LineColor;
    int LineStyle = 0;  // see LinePattern of the curves
    int LineWidth = 1;
    int MarkerStyle = 0;  // 0: a plain line, 1: a dot at each point
    int MarkerSize = 0;
    bool SinglePoints = false;  // each point a value of its own, with none between them
    std::string Curve;          // the name of the curve that this is a stretch of
    bool Continued = false;     // the curve began in the series before
    std::string Label;
    std::vector<double> X;
    std::vector<double> Y;

    bool IsOutOfRange() const { return LineStyle == static_cast<int>(LinePattern::OutOfRange); }
};

// An axis; sizes of fonts are in points.
struct ChartAxis {
    double Minimum = 0.0;
    double Maximum = 1.0;
    double MajorStep = 0.0;  // 0: as the chart finds best
    std::string Title;
    std::string TitleFontName = "Arial";
    std::string LabelFontName = "Arial";
    int TitleFontSize = 10;
    int LabelFontSize = 10;
    Color TitleColor;
    Color LabelColor;
};

struct ChartTitle {
    std::string Text;
    int FontSize = 12;
};

struct ChartLegend {
    std::string Text;  // a line for each series, separated by carriage returns
    int FontSize = 8;
    bool Visible = false;
    int AttributeA = 0;
    int AttributeB = 0;
};

// A level across the chart, and where curves cross it.
struct ChartThreshold {
    struct Crossing {
        double X;
        Color LineColor;
        std::string Text;
        bool operator==(const Crossing&) const = default;
    };

    double Value = 0.0;
    std::string Text;                    // of the line
    bool Falling = false;                // whether curves go down across it
    std::vector<Crossing> Crossings{};   // within the distance axis, ascending
    std::vector<std::string> Reaches{};  // of every curve, in words
    bool operator==(const ChartThreshold&) const = default;
};

// The data of a chart, which whoever shows it draws. Axis 0 is the distance, axis 1 the value.
class Chart : public Control {
public:
    Chart(Form& form, std::string name, std::string title, std::string xTitle, std::string yTitle);

    // Series count from 0 and come to be when they are first touched. One without data is not
    // shown.
    ChartSeries& Series(int index);
    const std::vector<ChartSeries>& AllSeries() const { return series_; }

    // All of them.
    void HideSeries();
    // Copies count points.
    void SetSeriesData(int index, std::string label, const double* x, const double* y,
                       std::size_t count);
    // Shows all that was set.
    void Redraw() { Assign(redraws_, redraws_ + 1); }
    int Redraws() const { return redraws_; }

    // Shows at once, without the rest being drawn again. Nothing: there is none.
    void SetThreshold(std::optional<ChartThreshold> threshold) {
        Assign(threshold_, std::move(threshold));
    }
    const std::optional<ChartThreshold>& Threshold() const { return threshold_; }
    // The user wants it at this value, see WantedThreshold.
    void MoveThreshold(double value);
    double WantedThreshold() const { return wantedThreshold_; }
    Event ThresholdMove;

    // Shows at once. It stays with every new drawing.
    void SetLook(ChartLook look) { Assign(look_, std::move(look)); }
    const ChartLook& Look() const { return look_; }
    // Takes a curve off the chart, or puts it back.
    void SwitchCurve(const std::string& curve);
    // Whether it is to be seen: shown by the form and not taken off by the user.
    bool Shows(const ChartSeries& series) const {
        return series.Visible && !look_.IsOff(series.Curve);
    }
    // The axes of the whole graph. Logarithmic distances begin above zero.
    ChartRanges Scales() const;
    // The axes as the screen shows them, which sets them; the scales where none does.
    ChartRanges View() const { return view_ ? *view_ : Scales(); }
    void SetView(const ChartRanges& view) { view_ = view; }

    // A picture of the chart to the clipboard.
    void CopyToClipboard();
    // As a Windows metafile, the only format being 2. Throws where it cannot be written; a file
    // that stood there does so still.
    void SaveMetafile(int format, const std::string& path);

    // On the current printer; that there is none, or that it fails, is shown.
    void PrintChart();
    // The user chooses what a later PrintChart prints on.
    void PrinterSetup();

    std::array<ChartAxis, 2> Axis;
    std::array<ChartTitle, 3> Title;
    ChartLegend Legend;
    std::optional<PathInputs> Inputs;  // that the curves are of; nothing: they are of no one path
    ChartFrame FileFrame;              // of the files that the chart is saved in

private:
    std::vector<ChartSeries> series_;
    std::optional<ChartThreshold> threshold_;
    double wantedThreshold_ = 0.0;
    int redraws_ = 0;
    ChartLook look_;
    std::optional<ChartRanges> view_;
};

}  // namespace vardel
