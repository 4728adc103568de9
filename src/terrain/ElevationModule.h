#pragma once

#include <memory>
#include <string>
#include <vector>

#include "terrain/Elevations.h"

// Elevations from files. What reads these is a module of its own, loaded when it is first wanted,
// so that no program needs its libraries to start.

namespace vardel {

// Counts up with each change of Elevations, Place or ElevationModule.
constexpr int ElevationModuleVersion = 1;

struct ElevationModule {
    int version;  // stays the first member
    // Files, and folders of them with all folders below. Throws ElevationError.
    std::unique_ptr<Elevations> (*open)(const std::vector<std::string>& paths);
};

// What the module exports under the name, with C linkage.
using ElevationModuleEntry = const ElevationModule* (*)();
constexpr const char* ElevationModuleEntryName = "VardelElevationModule";

// Of the module beside the running program, or in the folder "modules" there or in lib/vardel of
// the same prefix.
// Throws ElevationError where it is not installed or of another version, and where the files are
// not good.
std::unique_ptr<Elevations> OpenElevations(const std::vector<std::string>& paths);

// The same of the module in a file.
std::unique_ptr<Elevations> OpenElevationsWith(const std::string& moduleFile,
                                               const std::vector<std::string>& paths);

}  // namespace vardel
