#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <unordered_map>

#include "terrain/Elevations.h"

// Elevations from rasters, whoever reads them: one, or many side by side, in any coordinate system.

namespace vardel {

// Turns places into a raster's own coordinates, x to the east and y to the north as a rule: not
// finite where that cannot be.
class MapProjection {
public:
    virtual ~MapProjection() = default;
    virtual void ToMap(const Place* places, std::size_t count, double* x, double* y) = 0;
    // Whether x and y are longitude and latitude in degrees, so that x comes again after 360.
    virtual bool IsGeographic() const = 0;
};

// Longitude and latitude themselves.
class Geographic : public MapProjection {
public:
    void ToMap(const Place* places, std::size_t count, double* x, double* y) override;
    bool IsGeographic() const override { return true; }
};

// Where the cells of a raster lie. Column 0 is the first, row 0 too; a cell's centre is half a cell
// on.
struct RasterGrid {
    int columns = 0;
    int rows = 0;
    // x = toMap[0] + column · toMap[1] + row · toMap[2], y = toMap[3] + column · toMap[4] +
    // row · toMap[5]
    std::array<double, 6> toMap{};
};

// Whether there are cells, not more than 2^31 - 1 each way, and their places are numbers and can be
// found back.
bool IsUsable(const RasterGrid& grid) noexcept;

// Reads cells of one raster in m, NaN for those without data. The window lies within the
// raster. Throws ElevationError.
using CellReader = std::function<void(int column, int row, int columns, int rows, float* metres)>;

// Rasters as one ground. A place is answered by the first raster that has data there. Blocks of
// cells are read when they are needed, and those used last are kept within memoryBytes.
class RasterMosaic : public Elevations {
public:
    static constexpr std::size_t UsualMemory = std::size_t{64} << 20U;  // bytes

    explicit RasterMosaic(std::size_t memoryBytes = UsualMemory);

    // Rasters with the same projection object fit together where their cells do: what lies between
    // the last cells of one and the first of the next is then known. Throws ElevationError for a
    // grid that is not usable.
    void Add(const RasterGrid& grid, std::shared_ptr<MapProjection> projection, CellReader read);
    void AddNote(std::string note) { notes_.push_back(std::move(note)); }
    std::size_t Count() const { return rasters_.size(); }

    void At(const Place* places, std::size_t count, double* metres) override;
    double Step(const Place& place) override;
    const std::vector<std::string>& Notes() const override { return notes_; }

    std::size_t BlocksInMemory() const { return blocks_.size(); }
    static constexpr int BlockSize = 256;  // cells each way

private:
    struct Raster {
        RasterGrid grid;
        std::array<double, 6> toCell;     // the inverse of grid.toMap
        std::array<double, 4> bounds;     // west, south, east and north on the map
        std::size_t system;               // of systems_
        std::vector<std::size_t> before;  // earlier ones of the system that overlap it
        CellReader read;
    };
    // The rasters of one projection.
    struct System {
        std::shared_ptr<MapProjection> projection;
        std::vector<std::size_t> rasters;
        std::size_t last;  // of rasters_, that answered last
        std::vector<double> x, y;
    };
    struct Block {
        std::uint64_t key;
        std::vector<float> cells;
    };

    double AtMap(System& system, double x, double y);
    double InRaster(std::size_t raster, double x, double y);
    double Cell(std::size_t raster, int column, int row);
    double CellOrNeighbour(std::size_t raster, int column, int row);
    const float* BlockOf(std::size_t raster, int column, int row);

    std::vector<Raster> rasters_;
    std::vector<System> systems_;
    std::vector<std::string> notes_;
    std::size_t mostBlocks_;
    std::list<Block> blocks_;  // the one used last comes first
    std::unordered_map<std::uint64_t, std::list<Block>::iterator> blockOf_;
    std::uint64_t lastKey_ = 0;  // of the block that was used last
    const float* lastCells_ = nullptr;
};

// A raster of an array in memory, as another program or a test holds it: rows one after the other.
// Throws ElevationError for a grid that is not usable, or an array of another size.
std::unique_ptr<RasterMosaic> ElevationsOfArray(
    const RasterGrid& grid, std::vector<float> metres,
    std::shared_ptr<MapProjection> projection = std::make_shared<Geographic>());

}  // namespace vardel
