#pragma once

#include <memory>
#include <string>
#include <vector>

#include "terrain/Elevations.h"
#include "terrain/RasterFiles.h"

// Elevations from files. What reads these is a module of its own, loaded when it is first wanted,
// so that no program needs its libraries to start.

namespace vardel {

// Counts up with each change of Elevations, Place, RasterFiles.h or ElevationModule.
constexpr int ElevationModuleVersion = 2;

struct ElevationModule {
    int version;  // stays the first member
    // Files, and folders of them with all folders below. Throws ElevationError.
    std::unique_ptr<Elevations> (*open)(const std::vector<std::string>& paths);
    // The coordinate system of the first raster of these. Throws ElevationError.
    ElevationSystem (*systemOf)(const std::vector<std::string>& paths);
    // A new plain GeoTIFF. Throws ElevationError.
    std::unique_ptr<RasterWriter> (*create)(const std::string& file, const RasterLayout& layout);
    // A raster's copy in another format. Throws ElevationError.
    void (*convert)(const std::string& from, const std::string& to, RasterFormat format,
                    unsigned threads);
    // The lines of equal value of the first bands of a raster, as GeoJSON in longitude and
    // latitude: each with the band's name as "model" and the value as "value". Throws
    // ElevationError.
    void (*lines)(const std::string& raster, std::size_t bands, const std::vector<double>& values,
                  const std::string& to);
};

// What the module exports under the name, with C linkage.
using ElevationModuleEntry = const ElevationModule* (*)();
constexpr const char* ElevationModuleEntryName = "VardelElevationModule";

// The module beside the running program, or in the folder "modules" there or in lib/vardel of
// the same prefix. Throws ElevationError where it is not installed or of another version.
const ElevationModule& InstalledElevationModule();

// By it. Throws ElevationError, also where the files are not good.
std::unique_ptr<Elevations> OpenElevations(const std::vector<std::string>& paths);

// The same of the module in a file.
std::unique_ptr<Elevations> OpenElevationsWith(const std::string& moduleFile,
                                               const std::vector<std::string>& paths);

}  // namespace vardel
