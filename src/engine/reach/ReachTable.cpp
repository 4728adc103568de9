#include "engine/reach/ReachTable.h"

#include "engine/PathText.h"
#include "text/NumberText.h"
#include "text/TableText.h"

namespace vardel {

namespace {

std::string Distance(double km, Units units) {
    return FormatNumber(km / KmPerDistance(units), "0.000");
}

Cells CellsOf(const ReachTable& table) {
    const Units units = table.path.units;
    const std::string at = " at " + DistanceText(table.path) + " and " +
                           PercentText(table.path.pctLoc) + " of locations";
    Cells cells{{"Model"}};
    for (const double percentage : table.percentages) {
        cells[0].push_back("Reach at " + PercentText(percentage) + " of locations (" +
                           DistanceUnit(units) + ')');
        cells[0].push_back("Remark");
    }
    cells[0].push_back("Power needed" + at + " (W e.r.p.)");
    cells[0].push_back("Base height needed" + at + " (" + HeightUnit(units) + ')');
    for (const ReachTable::Row& row : table.rows) {
        std::vector<std::string> line{ModelOf(row.model).name};
        for (const Reach& reach : row.reaches) {
            line.push_back(ReachText(reach, units));
            line.push_back(ReachRemark(reach));
        }
        line.push_back(PowerCellText(table, row));
        line.push_back(HeightCellText(table, row));
        cells.push_back(std::move(line));
    }
    return cells;
}

}  // namespace

ReachTable MakeReachTable(const PathInputs& path, const Wanted& wanted,
                          const std::array<double, ReachPercentages>& percentages) {
    ReachTable table{path, wanted, GoalOf(wanted, path), percentages, {}};
    ModelInputs inputs = MetricInputs(path);
    for (const ModelNumber number : ComparedModels) {
        const Model& model = ModelOf(number);
        ReachTable::Row row{number, {}, {}, BaseHeightFor(model, inputs, table.goal)};
        if (wanted.quantity != ServiceQuantity::PathLoss)
            row.power = PowerForFieldStrength(model, inputs, table.goal.value);
        for (std::size_t i = 0; i < percentages.size(); ++i) {
            ModelInputs at = inputs;
            at.pctLoc = percentages.at(i);
            row.reaches.at(i) = ReachOf(model, at, table.goal);
        }
        table.rows.push_back(std::move(row));
    }
    return table;
}

std::string ReachText(const Reach& reach, Units units) {
    switch (reach.outcome) {
        case Reach::Outcome::Never:
            return "under " + Distance(ShortestReach, units);
        case Reach::Outcome::Everywhere:
            return "over " + Distance(FarthestReach, units);
        case Reach::Outcome::Ends:
        case Reach::Outcome::Late:
            return Distance(reach.km, units);
        case Reach::Outcome::Invalid:
            break;
    }
    return "-";
}

std::string ReachRemark(const Reach& reach) {
    if (reach.outcome == Reach::Outcome::Invalid) return {};
    std::string remark = reach.inRange ? "" : "out of the model's range";
    const auto add = [&remark](const char* more) {
        remark += (remark.empty() ? "" : "; ") + std::string(more);
    };
    if (reach.outcome == Reach::Outcome::Late) add("not met near the station");
    if (reach.Again()) add("met again farther out");
    return remark;
}

std::string PowerCellText(const ReachTable& table, const ReachTable::Row& row) {
    if (table.wanted.quantity == ServiceQuantity::PathLoss || !row.power) return "-";
    return FormatNumber(row.power->watts, row.power->watts < 10.0 ? "0.000" : "0.0");
}

std::string HeightCellText(const ReachTable& table, const ReachTable::Row& row) {
    const double factor = MetresPerHeight(table.path.units);
    switch (row.height.outcome) {
        case NeededHeight::Outcome::Never:
            return "over " + FormatNumber(HighestMast / factor, "0.0");
        case NeededHeight::Outcome::Lowest:
            return "under " + FormatNumber(LowestMast / factor, "0.0");
        case NeededHeight::Outcome::Found:
            return FormatNumber(row.height.metres / factor, "0.0");
        case NeededHeight::Outcome::Invalid:
            break;
    }
    return "-";
}

std::string ReachLines(const ReachTable& table) {
    std::string lines =
        "Reach with " + WantedText(table.wanted) + ": " + PathText(table.path) + "\r\n";
    for (const ReachTable::Row& row : table.rows) {
        lines += std::string("  ") + ModelOf(row.model).name + ':';
        for (std::size_t i = 0; i < table.percentages.size(); ++i) {
            const Reach& reach = row.reaches.at(i);
            const std::string remark = ReachRemark(reach);
            lines += (i == 0 ? " " : ", ") + ReachText(reach, table.path.units) + ' ' +
                     DistanceUnit(table.path.units) + " at " +
                     PercentText(table.percentages.at(i)) + " of locations" +
                     (remark.empty() ? "" : " (" + remark + ')');
        }
        lines += "\r\n";
    }
    return lines;
}

std::string ReachTabbed(const ReachTable& table) {
    return "Wanted\t" + WantedText(table.wanted) + "\nPath\t" + PathText(table.path) + '\n' +
           TabbedText(CellsOf(table));
}

std::string ReachCsv(const ReachTable& table) { return CsvText(CellsOf(table)); }

}  // namespace vardel
