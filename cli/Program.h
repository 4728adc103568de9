#pragma once

#include <functional>
#include <memory>

#include "cli/batch/Batch.h"
#include "terrain/ElevationModule.h"
#include "text/CalendarTime.h"

namespace vardel::cli {

// What the program meets outside.
struct World {
    std::function<Source(const std::string& path)> open;  // throws std::system_error
    Sink output;
    Sink errors;
    CalendarTime now;
    // Elevations of files and folders; throws ElevationError.
    std::function<std::unique_ptr<Elevations>(const std::vector<std::string>& paths)> ground = {};
    // What writes rasters; throws ElevationError.
    std::function<const ElevationModule&()> module = {};
    bool progress = false;  // whether a long batch reports how far it is
};

enum class ExitStatus : int { Done = 0, Failed = 1, WrongUsage = 2, RowsWithErrors = 3 };

// The whole of vardel-calc. Tells its errors and throws none.
ExitStatus RunProgram(int argc, char* const* argv, const World& world);

}  // namespace vardel::cli
