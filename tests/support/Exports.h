#pragma once

#include <functional>
#include <vector>

#include "forms/Program.h"

namespace vardel {

// A command that saves to a file of the user's choice.
struct Export {
    const char* file;
    int filterIndex;  // of the file dialog
    std::function<void(Program&)> command;
};

// One of each kind. The program must have started, with a line in its log, measured data for its
// inputs, and an archive with a run.
const std::vector<Export>& Exports();

// A table for the inputs of a first start, as the file of measured data has it.
inline constexpr const char* MeasuredExample = "0,450,0.5,Urban,1.5,1,100\n10,49.9\n";

}  // namespace vardel
