#include "forms/graphs/chart/ChartTable.h"

#include <cmath>
#include <initializer_list>
#include <map>

#include "engine/PathRecord.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

// Points of curves are sums of many steps, a little off the round distances that they stand for.
constexpr double MetresPerKm = 1000.0;

class Table {
public:
    explicit Table(DecimalSign sign) : sign_(sign) {}

    std::string Number(const std::string& number) const {
        const std::size_t point = number.find('.');
        if (sign_ == DecimalSign::Point || point == std::string::npos) return number;
        return '"' + number.substr(0, point) + ',' + number.substr(point + 1) + '"';
    }
    std::string Number(double x) const { return Number(ShortestText(x)); }
    void Line(const std::vector<std::string>& cells) {
        for (std::size_t i = 0; i < cells.size(); ++i)
            text_ += (i == 0 ? "" : sign_ == DecimalSign::Point ? "," : ";") + cells[i];
        text_ += '\n';
    }
    std::string Take() { return std::move(text_); }

private:
    DecimalSign sign_;
    std::string text_;
};

void AddInputs(Table& table, const PathInputs& path) {
    const auto height = [&](const char* name, double x) {
        const double metres = x * MetresPerHeight(path.units);
        const double feet = path.units == Units::English ? x : metres / MetresPerFoot;
        table.Line({name, table.Number(path.units == Units::English ? metres : x), "m",
                    table.Number(feet), "ft"});
    };
    table.Line({"# Frequency", table.Number(path.frequency), "MHz"});
    height("# Base antenna", path.hb);
    height("# Mobile antenna", path.hm);
    table.Line({"# Area", path.area});
    if (path.area == "Urban") table.Line({"# City size", path.city});
    table.Line({"# Time", table.Number(path.pctTime), "%"});
    table.Line({"# Locations", table.Number(path.pctLoc), "%"});
    table.Line({"# Power e.r.p.", table.Number(path.powerWatts), "W"});
    // A cell for each input: a spreadsheet makes a column as wide as its longest cell.
    std::vector<std::string> cells{"# "};
    for (const char c : PathRecord(path))
        if (c == ' ')
            cells.emplace_back();
        else
            cells.back() += c;
    table.Line(cells);
}

double Rounded(double km) { return std::round(km * MetresPerKm) / MetresPerKm; }

void AddHead(Table& table, const Chart& chart) {
    for (const ChartTitle& title : chart.Title)
        if (!title.Text.empty()) table.Line({"# " + title.Text});
    if (chart.Inputs) AddInputs(table, *chart.Inputs);
    if (const auto& threshold = chart.Threshold()) {
        table.Line({"# Threshold: " + threshold->Text});
        for (const std::string& reach : threshold->Reaches) table.Line({"# Reach of " + reach});
    }
    for (const ChartSeries& series : chart.AllSeries())
        if (chart.Shows(series) && series.IsOutOfRange() && !series.X.empty())
            table.Line({"# Out of range", series.Curve, "from",
                        table.Number(Rounded(series.X.front())), "to",
                        table.Number(Rounded(series.X.back())), "km"});
}

}  // namespace

std::string ChartTableCsv(const Chart& chart, const AxisRange& distances, DecimalSign sign) {
    Table table(sign);
    AddHead(table, chart);
    std::vector<std::string> head{"Distance in km"};
    std::map<long long, std::vector<std::string>> rows;  // by the metre; the cells of the curves
    for (const ChartSeries& series : chart.AllSeries()) {
        if (!chart.Shows(series)) continue;
        if (!series.Continued) head.push_back(series.Curve + " in " + chart.Axis[1].Title);
        for (std::size_t i = 0; i < series.X.size(); ++i) {
            const double km = Rounded(series.X[i]);
            if (km < distances.From || km > distances.To) continue;
            std::vector<std::string>& row = rows[std::llround(km * MetresPerKm)];
            row.resize(head.size() - 1);
            row.back() = table.Number(FormatNumber(series.Y[i], "0.0#####"));
        }
    }
    table.Line(head);
    for (auto& [metres, cells] : rows) {
        cells.resize(head.size() - 1);
        cells.insert(cells.begin(), table.Number(static_cast<double>(metres) / MetresPerKm));
        table.Line(cells);
    }
    return table.Take();
}

}  // namespace vardel
