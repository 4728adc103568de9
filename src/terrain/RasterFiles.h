#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "terrain/GridSystem.h"
#include "terrain/RasterMosaic.h"

// What the module of elevations writes: rasters of any size, strip by strip.

namespace vardel {

enum class CellType { Byte, Float, Double };

struct RasterLayout {
    RasterGrid grid;
    std::string system;  // see GridSystem::Definition
    CellType type;
    std::vector<std::string> bands;                             // what each holds
    std::vector<std::pair<std::string, std::string>> metadata;  // names and values
    bool noDataIsNan = false;
};

// A raster that is being written into a file of its own.
class RasterWriter {
public:
    RasterWriter() = default;
    RasterWriter(const RasterWriter&) = delete;
    RasterWriter& operator=(const RasterWriter&) = delete;
    virtual ~RasterWriter() = default;

    // So many whole rows of a band, counted from 0. Throws ElevationError.
    virtual void Write(std::size_t band, int row, int rows, const double* cells) = 0;
    // All is on the disk. Throws ElevationError.
    virtual void Finish() = 0;
};

enum class RasterFormat { CloudOptimizedTiff, Png };

// The coordinates of elevation data, and the cells of the first of their rasters.
struct ElevationSystem {
    std::shared_ptr<const GridSystem> system;
    RasterGrid cells;
};

}  // namespace vardel
