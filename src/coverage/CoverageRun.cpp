#include "coverage/CoverageRun.h"

#include <algorithm>
#include <cmath>

namespace vardel {

namespace {

constexpr int AreaSide = 64;  // cells that count with the same area, each way

struct Strip {
    Strip(std::size_t models, std::size_t cells)
        : heights(cells), values(models * cells), marks(models * cells) {
        buffers.heights = heights.data();
        for (std::size_t i = 0; i < models; ++i) {
            buffers.values[i] = values.data() + i * cells;
            buffers.inRange[i] = marks.data() + i * cells;
        }
    }

    std::vector<double> heights, values;
    std::vector<std::uint8_t> marks;
    CoverageBuffers buffers;
};

void AddSquare(std::vector<CoveredArea>& areas, const CoverageStation& station,
               const CoverageGrid& grid, const CellRectangle& square, int firstRow,
               const CoverageBuffers& strip, std::optional<double> goal) {
    const double area = CellAreaNear(grid, square);
    for (std::size_t i = 0; i < areas.size(); ++i) {
        std::size_t calculated = 0, covered = 0, inRange = 0;
        for (int row = square.row; row < square.row + square.rows; ++row)
            for (int column = square.column; column < square.column + square.columns; ++column) {
                const std::size_t at = static_cast<std::size_t>(row - firstRow) *
                                           static_cast<std::size_t>(grid.cells.columns) +
                                       static_cast<std::size_t>(column);
                const double value = strip.values[i][at];
                if (std::isnan(value)) continue;
                ++calculated;
                inRange += strip.inRange[i][at];
                if (goal && Meets(station.quantity, value, *goal)) ++covered;
            }
        areas[i].calculated += area * static_cast<double>(calculated);
        areas[i].covered += area * static_cast<double>(covered);
        areas[i].inRange += area * static_cast<double>(inRange);
    }
}

}  // namespace

std::optional<std::vector<CoveredArea>> RunCoverage(const CoverageStation& station,
                                                    const CoverageGrid& grid,
                                                    std::optional<double> goal, unsigned threads,
                                                    const StripSink& sink) {
    const std::size_t models = station.models.size();
    const auto columns = static_cast<std::size_t>(grid.cells.columns);
    const std::size_t rowBytes = columns * (sizeof(double) * (models + 1) + models);
    const int most = std::clamp(static_cast<int>(StripBytes / rowBytes), 1, AreaSide);
    Strip strip(models, columns * static_cast<std::size_t>(most));
    std::vector<CoveredArea> areas(models);
    for (int row = 0; row < grid.cells.rows; row += most) {
        const int rows = std::min(most, grid.cells.rows - row);
        ComputeCoverageOn(threads, station, grid, {0, row, grid.cells.columns, rows},
                          strip.buffers);
        for (int column = 0; column < grid.cells.columns; column += AreaSide)
            AddSquare(areas, station, grid,
                      {column, row, std::min(AreaSide, grid.cells.columns - column), rows}, row,
                      strip.buffers, goal);
        if (!sink(row, rows, strip.buffers) && row + rows < grid.cells.rows) return std::nullopt;
    }
    return areas;
}

}  // namespace vardel
