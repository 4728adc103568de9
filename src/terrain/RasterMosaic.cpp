#include "terrain/RasterMosaic.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vardel {

namespace {

constexpr double Unknown = std::numeric_limits<double>::quiet_NaN();
constexpr double HalfCell = 0.5;
// How far a cell may lie off another raster's, in cells, and still be one of the same pattern. Also
// what rounding may put a place beyond the edge.
constexpr double CellTolerance = 0.02;

bool AreFinite(const std::array<double, 6>& numbers) {
    return std::all_of(numbers.begin(), numbers.end(), [](double x) { return std::isfinite(x); });
}

// The inverse of an affine transform; not finite where there is none.
std::array<double, 6> Inverse(const std::array<double, 6>& t) {
    const double determinant = t[1] * t[5] - t[2] * t[4];
    const double a = t[5] / determinant, b = -t[2] / determinant;
    const double c = -t[4] / determinant, d = t[1] / determinant;
    return {-(a * t[0] + b * t[3]), a, b, -(c * t[0] + d * t[3]), c, d};
}

struct CellPoint {
    double column, row;
};

CellPoint Apply(const std::array<double, 6>& t, double a, double b) {
    return {t[0] + a * t[1] + b * t[2], t[3] + a * t[4] + b * t[5]};
}

// West, south, east and north.
std::array<double, 4> BoundsOf(const RasterGrid& grid) {
    std::array<double, 4> bounds{HUGE_VAL, HUGE_VAL, -HUGE_VAL, -HUGE_VAL};
    for (const double column : {0.0, static_cast<double>(grid.columns)})
        for (const double row : {0.0, static_cast<double>(grid.rows)}) {
            const auto [x, y] = Apply(grid.toMap, column, row);
            bounds = {std::min(bounds[0], x), std::min(bounds[1], y), std::max(bounds[2], x),
                      std::max(bounds[3], y)};
        }
    return bounds;
}

bool Overlap(const std::array<double, 4>& a, const std::array<double, 4>& b) {
    return a[0] <= b[2] && b[0] <= a[2] && a[1] <= b[3] && b[1] <= a[3];
}

// What to add to x where the same meridian has several.
std::vector<double> TurnsOf(const MapProjection& projection) {
    if (projection.IsGeographic()) return {0.0, 360.0, -360.0};
    return {0.0};
}

bool Covers(const RasterGrid& grid, const CellPoint& at) {
    return at.column >= -CellTolerance && at.column <= grid.columns + CellTolerance &&
           at.row >= -CellTolerance && at.row <= grid.rows + CellTolerance;
}

}  // namespace

void Geographic::ToMap(const Place* places, std::size_t count, double* x, double* y) {
    for (std::size_t i = 0; i < count; ++i) {
        x[i] = places[i].longitude;
        y[i] = places[i].latitude;
    }
}

bool IsUsable(const RasterGrid& grid) noexcept {
    return grid.columns > 0 && grid.rows > 0 && AreFinite(grid.toMap) &&
           AreFinite(Inverse(grid.toMap));
}

RasterMosaic::RasterMosaic(std::size_t memoryBytes)
    : mostBlocks_(std::max<std::size_t>(
          4, memoryBytes / (std::size_t{BlockSize} * BlockSize * sizeof(float)))) {}

void RasterMosaic::Add(const RasterGrid& grid, std::shared_ptr<MapProjection> projection,
                       CellReader read) {
    if (!IsUsable(grid)) throw ElevationError("has cells whose places are not known");
    const auto known = std::find_if(systems_.begin(), systems_.end(), [&](const System& system) {
        return system.projection == projection;
    });
    const auto index = static_cast<std::size_t>(known - systems_.begin());
    if (known == systems_.end())
        systems_.push_back({std::move(projection), {}, rasters_.size(), {}, {}});
    System& system = systems_[index];
    Raster raster{grid, Inverse(grid.toMap), BoundsOf(grid), index, {}, std::move(read)};
    for (const std::size_t other : system.rasters)
        if (Overlap(rasters_[other].bounds, raster.bounds)) raster.before.push_back(other);
    system.rasters.push_back(rasters_.size());
    rasters_.push_back(std::move(raster));
}

void RasterMosaic::At(const Place* places, std::size_t count, double* metres) {
    std::fill(metres, metres + count, Unknown);
    for (System& system : systems_) {
        system.x.resize(count);
        system.y.resize(count);
        system.projection->ToMap(places, count, system.x.data(), system.y.data());
        for (std::size_t i = 0; i < count; ++i)
            if (std::isnan(metres[i])) metres[i] = AtMap(system, system.x[i], system.y[i]);
    }
}

double RasterMosaic::AtMap(System& system, double x, double y) {
    if (!std::isfinite(x) || !std::isfinite(y)) return Unknown;
    const auto answer = [&](const std::vector<std::size_t>& rasters, double xTurned) {
        for (const std::size_t raster : rasters) {
            const double metres = InRaster(raster, xTurned, y);
            if (std::isnan(metres)) continue;
            system.last = raster;
            return metres;
        }
        return Unknown;
    };
    // Where the last place was, this one is as a rule; those that come before it still do.
    const std::size_t last = system.last;
    if (const double metres = InRaster(last, x, y); !std::isnan(metres)) {
        const double earlier = answer(rasters_[last].before, x);
        return std::isnan(earlier) ? metres : earlier;
    }
    for (const double turn : TurnsOf(*system.projection))
        if (const double metres = answer(system.rasters, x + turn); !std::isnan(metres))
            return metres;
    return Unknown;
}

double RasterMosaic::InRaster(std::size_t raster, double x, double y) {
    const RasterGrid& grid = rasters_[raster].grid;
    const CellPoint at = Apply(rasters_[raster].toCell, x, y);
    if (!Covers(grid, at)) return Unknown;
    // Centres count from 0; the first half cell is before them.
    const double u = at.column - HalfCell, v = at.row - HalfCell;
    const auto column = static_cast<std::int64_t>(u + 1.0) - 1;
    const auto row = static_cast<std::int64_t>(v + 1.0) - 1;
    const double right = u - static_cast<double>(column), down = v - static_cast<double>(row);
    const std::array<double, 4> weights = {(1.0 - right) * (1.0 - down), right * (1.0 - down),
                                           (1.0 - right) * down, right * down};
    const bool isWithin = column >= 0 && row >= 0 && column + 1 < grid.columns &&
                          row + 1 < grid.rows && column % BlockSize != BlockSize - 1 &&
                          row % BlockSize != BlockSize - 1;
    if (isWithin) {
        const float* const cells =
            BlockOf(raster, static_cast<int>(column), static_cast<int>(row)) +
            (row % BlockSize) * BlockSize + column % BlockSize;
        const double metres = weights[0] * static_cast<double>(cells[0]) +
                              weights[1] * static_cast<double>(cells[1]) +
                              weights[2] * static_cast<double>(cells[BlockSize]) +
                              weights[3] * static_cast<double>(cells[BlockSize + 1]);
        if (!std::isnan(metres)) return metres;
    }
    double metres = 0.0;
    // A cell of no weight need not be known.
    for (std::size_t i = 0; i < weights.size(); ++i)
        if (weights.at(i) > 0.0)
            metres += weights.at(i) *
                      CellOrNeighbour(raster, static_cast<int>(column + static_cast<int>(i % 2)),
                                      static_cast<int>(row + static_cast<int>(i / 2)));
    return metres;
}

// Beyond the edge it is the cell of the raster that goes on there; where none does, the edge's own.
double RasterMosaic::CellOrNeighbour(std::size_t raster, int column, int row) {
    const RasterGrid& grid = rasters_[raster].grid;
    const int nearestColumn = std::clamp(column, 0, grid.columns - 1);
    const int nearestRow = std::clamp(row, 0, grid.rows - 1);
    if (nearestColumn == column && nearestRow == row) return Cell(raster, column, row);
    const System& system = systems_[rasters_[raster].system];
    const CellPoint centre = Apply(grid.toMap, column + HalfCell, row + HalfCell);
    for (const double turn : TurnsOf(*system.projection)) {
        for (const std::size_t other : system.rasters) {
            const CellPoint at = Apply(rasters_[other].toCell, centre.column + turn, centre.row);
            if (!Covers(rasters_[other].grid, at)) continue;
            const double c = std::floor(at.column), r = std::floor(at.row);
            const bool fits = std::fabs(at.column - c - HalfCell) < CellTolerance &&
                              std::fabs(at.row - r - HalfCell) < CellTolerance;
            if (fits) return Cell(other, static_cast<int>(c), static_cast<int>(r));
        }
    }
    return Cell(raster, nearestColumn, nearestRow);
}

double RasterMosaic::Cell(std::size_t raster, int column, int row) {
    const float* const cells = BlockOf(raster, column, row);
    return static_cast<double>(cells[static_cast<std::size_t>(row % BlockSize) * BlockSize +
                                     static_cast<std::size_t>(column % BlockSize)]);
}

const float* RasterMosaic::BlockOf(std::size_t raster, int column, int row) {
    constexpr unsigned PlaceBits = 23;  // of 2^31 cells in blocks of 2^8
    const auto across = static_cast<std::uint64_t>(column / BlockSize);
    const auto along = static_cast<std::uint64_t>(row / BlockSize);
    const std::uint64_t key =
        (static_cast<std::uint64_t>(raster) << 2 * PlaceBits) + (along << PlaceBits) + across;
    if (lastCells_ != nullptr && key == lastKey_) return lastCells_;
    if (const auto kept = blockOf_.find(key); kept != blockOf_.end()) {
        blocks_.splice(blocks_.begin(), blocks_, kept->second);
    } else {
        const RasterGrid& grid = rasters_[raster].grid;
        const int firstColumn = column - column % BlockSize, firstRow = row - row % BlockSize;
        const int columns = std::min(BlockSize, grid.columns - firstColumn);
        const int rows = std::min(BlockSize, grid.rows - firstRow);
        std::vector<float> read(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows));
        rasters_[raster].read(firstColumn, firstRow, columns, rows, read.data());
        Block block{key, std::vector<float>(std::size_t{BlockSize} * BlockSize)};
        for (int line = 0; line < rows; ++line)
            std::copy_n(read.begin() + std::ptrdiff_t{line} * columns, columns,
                        block.cells.begin() + std::ptrdiff_t{line} * BlockSize);
        if (blocks_.size() == mostBlocks_) {
            blockOf_.erase(blocks_.back().key);
            blocks_.pop_back();
        }
        blocks_.push_front(std::move(block));
        blockOf_[key] = blocks_.begin();
    }
    lastKey_ = key;
    lastCells_ = blocks_.front().cells.data();
    return lastCells_;
}

double RasterMosaic::Step(const Place& place) {
    constexpr double MetresPerDegree = 111'195.0;  // of a great circle on the mean sphere
    constexpr double Shift = 1e-4;                 // degrees
    // Near a pole a step to the east is none.
    const double eastScale = std::cos(place.latitude * std::acos(-1.0) / 180.0);
    const double north = place.latitude > 0.0 ? -Shift : Shift;
    const std::array<Place, 3> places = {
        place,
        {place.latitude + north, place.longitude},
        {place.latitude, place.longitude + (place.longitude > 0.0 ? -Shift : Shift)}};
    for (System& system : systems_) {
        std::array<double, 3> x{}, y{};
        system.projection->ToMap(places.data(), places.size(), x.data(), y.data());
        for (const double turn : TurnsOf(*system.projection))
            for (const std::size_t raster : system.rasters) {
                if (std::isnan(InRaster(raster, x[0] + turn, y[0]))) continue;
                const auto& toCell = rasters_[raster].toCell;
                const CellPoint at = Apply(toCell, x[0], y[0]);
                const auto stepTo = [&](std::size_t i, double metres) {
                    const CellPoint to = Apply(toCell, x.at(i), y.at(i));
                    return metres / std::hypot(to.column - at.column, to.row - at.row);
                };
                return std::max(stepTo(1, Shift * MetresPerDegree),
                                stepTo(2, Shift * MetresPerDegree * eastScale));
            }
    }
    return Unknown;
}

std::unique_ptr<RasterMosaic> ElevationsOfArray(const RasterGrid& grid, std::vector<float> metres,
                                                std::shared_ptr<MapProjection> projection) {
    if (!IsUsable(grid) ||
        metres.size() / static_cast<std::size_t>(grid.columns) !=
            static_cast<std::size_t>(grid.rows) ||
        metres.size() % static_cast<std::size_t>(grid.columns) != 0)
        throw ElevationError("the array is of another size than its grid");
    auto mosaic = std::make_unique<RasterMosaic>();
    const auto width = static_cast<std::size_t>(grid.columns);
    mosaic->Add(
        grid, std::move(projection),
        [cells = std::move(metres), width](int column, int row, int columns, int rows, float* to) {
            for (int line = 0; line < rows; ++line)
                to = std::copy_n(cells.begin() + static_cast<std::ptrdiff_t>(
                                                     static_cast<std::size_t>(row + line) * width +
                                                     static_cast<std::size_t>(column)),
                                 columns, to);
        });
    return mosaic;
}

}  // namespace vardel
