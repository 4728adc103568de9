#pragma once

#include <array>
#include <atomic>
#include <cstdint>

#include "coverage/CoverageGrid.h"
#include "coverage/CoverageStation.h"

// What a station gives at each pixel. A pixel needs the station and nothing of its neighbours, so
// that any part of a grid, on any thread or machine, gives the same bytes.

namespace vardel {

// The caller's room for a rectangle of cells, row after row; what is not wanted is nullptr. By the
// order of the station's models.
struct CoverageBuffers {
    double* km = nullptr;
    double* azimuths = nullptr;  // degrees
    double* heights = nullptr;   // m, with which the values are calculated
    std::array<double*, ComparedModels.size()> values{};
    std::array<std::uint8_t*, ComparedModels.size()> inRange{};  // 1 where the model covers it
};

// Fills in dB(µV/m), dBm or dB, each with the bits of a single call for that distance and that
// height; NaN, and out of range, at the site itself, beyond the station's farthest distance,
// and where the height is not known. Throws std::bad_alloc. Safe on any thread.
void ComputeCoverage(const CoverageStation& station, const CoverageGrid& grid,
                     const CellRectangle& cells, const CoverageBuffers& buffers);

// The same with the rows shared among so many threads. Between rows it looks whether to stop; then
// it returns false, and the buffers hold nothing of use.
bool ComputeCoverageOn(unsigned threads, const CoverageStation& station, const CoverageGrid& grid,
                       const CellRectangle& cells, const CoverageBuffers& buffers,
                       const std::atomic<bool>* stop = nullptr);

}  // namespace vardel
