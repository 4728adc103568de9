#pragma once

#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "services/Platform.h"

// Field strengths that were measured, from the file measured.csv beside the program.
//
// The file is a sequence of fields, separated by commas and line ends alike. A 0 opens a table:
// frequency, percent of time as a fraction, area, mobile antenna height, number N of base antenna
// heights, N heights. Any other number is the distance of a data row, with N field strengths.

namespace vardel {

// Stands behind the last value of a column: the smallest positive number.
constexpr double MeasuredEndMark = std::numeric_limits<double>::denorm_min();

constexpr int MeasuredHeights = 6;
constexpr int MeasuredRows = 76;  // the row of end marks included

// One table of the file.
struct MeasuredSegment {
    double PercentTime = 0.0;  // a fraction
    double Frequency = 0.0;    // MHz
    std::string City;          // the area, in spite of the name
    int HeightCount = 0;
    double MobileHeight = 0.0;                // m
    double RowDistance[81] = {};              // km
    double BaseHeight[MeasuredHeights] = {};  // m
    // dB(uV/m); no rows at first
    double RowValue[MeasuredRows][MeasuredHeights] = {{MeasuredEndMark}};
};

using MeasuredTable = std::vector<MeasuredSegment>;

// What is wrong with the file, at the first place where it is.
struct MeasuredFault {
    int line;           // from 1
    std::string fault;  // in plain words, the end of a sentence
};

// Puts the tables of the text into table: with a fault, those that ended before it, and where there
// are none, an empty one of a frequency of -1. Empty fields at the end of a line, with which
// spreadsheets fill their rows up, are no fields where a head or row is complete; elsewhere an
// empty field is a fault. Takes linear time. A table of a few characters takes as much memory as a
// full one, so there may be 32768 of them, which is 150 MB, and no more.
std::optional<MeasuredFault> ParseMeasuredData(std::string_view text, MeasuredTable& table);

// False when there is no such file, or none that can be read; table is then left as it is. The user
// gets a message about that, and about a fault in the file.
bool ReadMeasuredData(const std::string& path, MeasuredTable& table, Windows& windows);

// Which column of which table is that of a path.
struct MeasuredMatch {
    bool found = false;
    int segment = 0;  // in the table
    int column = 0;   // of the base antenna height
};

// But for the case, as a table's area is compared.
bool IsAreaOf(const MeasuredSegment& segment, std::string_view areaText);

// The first in the order of the file that equals all five values exactly, but for the case of the
// area. Heights in m, percentTime as a fraction.
MeasuredMatch FindMeasuredSegment(double frequency, double hb, double hm, std::string_view areaText,
                                  double percentTime, const MeasuredTable& table);

// The heads of all tables and the rows of the last, for the report log.
std::string MeasuredListing(const MeasuredTable& table);

}  // namespace vardel
