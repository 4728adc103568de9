#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "engine/PowerUnits.h"
#include "engine/curves/CurvePlot.h"
#include "engine/measured/MeasuredData.h"
#include "forms/graphs/chart/ChartLook.h"
#include "forms/shared/Palette.h"
#include "services/Color.h"

namespace vardel {

class Chart;
class Form;

// A level that graphs show a line for, once the user asks for it.
struct GraphThreshold {
    double value;  // dB, or dB(µV/m)
    bool shown = false;
};

// The axes that a user wants of graphs, instead of those that they have.
struct GraphScales {
    bool logDistance = false;
    std::optional<ChartRanges> ranges{};
};

// A run of an archive that graphs of its quantity show over their curves.
struct LaidRun {
    std::int64_t number;
    Quantity quantity;
    CurvePlot curves;
};

// The data that several forms share, one of each to a program.
struct SharedData {
    // How often the session was said to end, which may be called off. Whoever waits for an answer
    // has none from the user where this has grown meanwhile.
    int SessionEnds = 0;
    bool DisplayLost = false;  // nothing is shown any more, and the program is about to die
    std::string TempLogFile;   // the log's file; empty: the log has none
    std::string ArchiveFile;   // chosen since the start; empty: none yet
    vardel::MeasuredTable MeasuredTable;
    FieldStrengthGraph GraphMode = FieldStrengthGraph::Davidson;
    bool ShowMeasuredData = false;  // whether graphs lay measured data over their curves
    GraphThreshold LossThreshold{140.0};
    GraphThreshold FieldStrengthThreshold{32.0};
    GraphScales LossScales;
    GraphScales FieldStrengthScales;
    std::vector<LaidRun> LaidRuns;
    Form* HelpOwnerWindow = nullptr;                             // whom the help viewer belongs to
    const Chart* ChartToRead = nullptr;                          // what ValuesForm shows
    Chart* ChartToPrint = nullptr;                               // what FrmPrintOut works on
    Color OutOfRangeColor = OutOfRangePink;                      // of what its model does not cover
    vardel::PowerUnit PowerUnit = vardel::PowerUnit::Kilowatts;  // of the power box
};

}  // namespace vardel
