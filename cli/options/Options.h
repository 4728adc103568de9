#pragma once

#include <stdexcept>
#include <string>

#include "cli/options/CoverageOptions.h"
#include "cli/options/TerrainOptions.h"
#include "engine/reach/ReachTable.h"

namespace vardel::cli {

enum class Command { Path, Batch, Curve, Reach, Log, Heights, Contour, Coverage };

// What is wrong with a command line, in words for the user.
struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// What a command line asks for.
struct Options {
    Command command = Command::Path;
    bool help = false;  // then, as with version, nothing else counts
    bool version = false;
    bool json = false;
    bool header = false;  // of the log
    PathInputs path;      // of batch and log, for the columns that a file lacks
    bool distanceGiven = false;
    unsigned threads = 1;   // of batch, log and coverage
    std::string file = {};  // of batch and log; empty: one path for the log
    double start = 1.0;     // of the curve, in the units of the path
    double end = 100.0;
    double step = 1.0;
    Wanted wanted = {};           // of the reach, the contour and the coverage
    bool wantedGiven = false;     // of the coverage, which may do without
    TerrainOptions terrain = {};  // of heights, contour, batch and log; site and antenna are there
                                  // for the first two
    CoverageOptions coverage = {};
};

// Throws UsageError. One call at a time, see SplitCommandLine.
Options ParseOptions(int argc, char* const* argv);

}  // namespace vardel::cli
