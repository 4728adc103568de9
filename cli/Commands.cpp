#include "cli/Commands.h"

#include <cmath>

#include "cli/batch/RowFormats.h"
#include "cli/output/Records.h"
#include "cli/output/Results.h"
#include "engine/PathText.h"
#include "text/JsonText.h"
#include "text/NumberText.h"

namespace vardel::cli {

namespace {

constexpr std::size_t WriteSize = std::size_t{1} << 16U;

// What meets the goal at the path's own distance.
void AddNeeds(Record& record, const Model& model, const PathInputs& path, const Goal& goal) {
    const ModelInputs inputs = MetricInputs(path);
    const NeededHeight height = BaseHeightFor(model, inputs, goal);
    const bool heightMet = height.outcome == NeededHeight::Outcome::Lowest ||
                           height.outcome == NeededHeight::Outcome::Found;
    Cell power;
    if (goal.quantity == Quantity::FieldStrength)
        if (const auto needed = PowerForFieldStrength(model, inputs, goal.value))
            power = needed->watts;
    const std::string at = "_at_" + DistanceColumn(ShortestText(path.distance), path.units);
    record.emplace_back("power_w" + at, power);
    record.emplace_back("base_height" + at, OutcomeOf(height));
    record.emplace_back(HeightColumn("base_height", path.units) + at,
                        heightMet ? Cell(height.metres / MetresPerHeight(path.units)) : Cell());
}

Record ReachRecord(const Model& model, const Options& options) {
    const Goal goal = GoalOf(options.wanted, options.path);
    const Units units = options.path.units;
    const Reach reach = ReachOf(model, MetricInputs(options.path), goal);
    Record record = {
        {"model", ColumnName(model)},
        {"reach", OutcomeOf(reach)},
        {DistanceColumn("reach", units),
         reach.served.empty() ? Cell() : Cell(reach.km / KmPerDistance(units))},
        {"in_range", reach.inRange},
        {"met_again", reach.Again()},
    };
    if (options.distanceGiven) AddNeeds(record, model, options.path, goal);
    return record;
}

std::string Padded(std::string text, std::size_t width) {
    if (text.size() < width) text.resize(width, ' ');
    return text;
}

Calculation CalculationOf(const PathInputs& path) {
    return Calculation(MetricInputs(path), path.powerWatts);
}

}  // namespace

void WritePath(const Options& options, const Sink& output) {
    const Calculation calculation = CalculationOf(options.path);
    std::string out;
    if (options.json) {
        JsonObject line(out);
        AddResults(line, &calculation);
        line.End("\n");
        return output(out);
    }
    constexpr std::size_t ModelWidth = 10;
    constexpr std::size_t NumberWidth = 20;
    out = DistanceText(options.path) + ", " + PathText(options.path) + ", " +
          PercentText(options.path.pctLoc) + " of locations\n" +
          "Model     Loss in dB          Field in dB(µV/m)   In range\n";
    for (const ModelNumber number : ComparedModels) {
        const ModelResult& result = calculation.Of(number);
        out += Padded(ModelOf(number).name, ModelWidth) +
               Padded(ShortestText(result.loss), NumberWidth) +
               Padded(ShortestText(result.fieldStrength), NumberWidth) + YesOrNo(result.inRange) +
               '\n';
    }
    output(out);
}

void WriteCurve(const Options& options, const Sink& output) {
    const std::string distanceName = DistanceColumn("distance", options.path.units);
    std::string out;
    if (!options.json) {
        std::vector<std::string> head = ResultColumns();
        head.insert(head.begin(), distanceName);
        out = CsvRow(head);
    }
    PathInputs path = options.path;
    // A step may meet the end but for its rounding.
    const double last = std::floor((options.end - options.start) / options.step + 1e-9);
    for (double i = 0.0; i <= last; i = i + 1.0) {
        const std::string distance = ShortestText(options.start + i * options.step);
        path.distance = LeadingNumber(distance);
        const Calculation calculation = CalculationOf(path);
        if (options.json) {
            JsonObject line(out);
            line.Number(distanceName, path.distance);
            AddResults(line, &calculation);
            line.End("\n");
        } else {
            out += distance;
            AppendResults(out, &calculation, ',');
            out += LineEnd;
        }
        if (out.size() < WriteSize) continue;
        output(out);
        out.clear();
    }
    output(out);
}

void WriteReach(const Options& options, const Sink& output) {
    std::vector<Record> records;
    records.reserve(ComparedModels.size());
    for (const ModelNumber model : ComparedModels)
        records.push_back(ReachRecord(ModelOf(model), options));
    output(options.json ? JsonOf(records) : CsvOf(records));
}

void WriteLogLine(const Options& options, const CalendarTime& time, const Sink& output) {
    output((options.header ? LogHeads() : std::string()) + LogText(options.path, time));
}

}  // namespace vardel::cli
