#pragma once

#include <array>
#include <string>
#include <vector>

#include "engine/PathInputs.h"
#include "engine/reach/Reach.h"
#include "engine/reach/Wanted.h"

// How far the compared models let a station reach, for several percentages of locations, and what
// it needs to reach a distance: as numbers and in words.

namespace vardel {

constexpr std::size_t ReachPercentages = 3;

// The answers for one path and one wish, a row for each compared model.
struct ReachTable {
    struct Row {
        ModelNumber model;
        std::array<Reach, ReachPercentages> reaches;  // by percentage
        // To meet the goal at the path's own distance and percentage of locations.
        std::optional<NeededPower> power;
        NeededHeight height;
    };

    PathInputs path;
    Wanted wanted;
    Goal goal;
    std::array<double, ReachPercentages> percentages;  // of locations
    std::vector<Row> rows;                             // by the order of ComparedModels
};

// percentages: of locations, 50 meaning 50 %. An input that is NaN or not above zero gives
// rows with no answer.
ReachTable MakeReachTable(const PathInputs& path, const Wanted& wanted,
                          const std::array<double, ReachPercentages>& percentages);

// What stands in a cell of the table; distances and heights in the units of the path.
std::string ReachText(const Reach& reach, Units units);
std::string PowerCellText(const ReachTable& table, const ReachTable::Row& row);
std::string HeightCellText(const ReachTable& table, const ReachTable::Row& row);
// What there is to say of a reach besides, such as that the model does not cover it; empty:
// nothing.
std::string ReachRemark(const Reach& reach);

// The whole table: lines for the log, columns apart by tabs, and RFC 4180 with units in its heads.
std::string ReachLines(const ReachTable& table);
std::string ReachTabbed(const ReachTable& table);
std::string ReachCsv(const ReachTable& table);

}  // namespace vardel
