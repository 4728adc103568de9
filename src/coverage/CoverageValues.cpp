#include "coverage/CoverageValues.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <limits>
#include <thread>

#include "models/Model.h"
#include "models/Variability.h"

namespace vardel {

namespace {

constexpr double Unknown = std::numeric_limits<double>::quiet_NaN();
constexpr std::size_t Block = AreaBlock::Size;

// A row's blocks one after the other.
class RowCalculation {
public:
    RowCalculation(const CoverageStation& station, const CoverageGrid& grid)
        : station_(station), grid_(grid), time_(TimeLevel(station.path.pctTime) != 0.0) {}

    void Compute(int row, int column, std::size_t count, const CoverageBuffers& into,
                 std::size_t at) {
        const bool azimuths = into.azimuths != nullptr || station_.heights.Vary();
        WaysToCells(grid_, row, column, count, km_.data(), azimuths ? azimuths_.data() : nullptr);
        FindHeights(count);
        Keep(km_, into.km, count, at);
        Keep(azimuths_, into.azimuths, count, at);
        Keep(hb_, into.heights, count, at);
        MarkUnknown(count);
        block_.Compute(station_.path.f, time_, km_.data(), hb_.data(), count);
        for (std::size_t i = 0; i < station_.models.size(); ++i) {
            if (into.values[i] != nullptr)
                ComputeModel(station_.models[i], count, into.values[i] + at);
            if (into.inRange[i] != nullptr)
                MarkRange(station_.models[i], count, into.inRange[i] + at);
        }
    }

private:
    using Column = std::array<double, Block>;

    static void Keep(const Column& column, double* into, std::size_t count, std::size_t at) {
        if (into != nullptr) std::copy_n(column.begin(), count, into + at);
    }

    void FindHeights(std::size_t count) {
        if (!station_.heights.Vary()) {
            std::fill_n(hb_.begin(), count, station_.heights.At(0.0));
            return;
        }
        for (std::size_t i = 0; i < count; ++i)
            hb_[i] = std::isnan(azimuths_[i]) ? Unknown : station_.heights.At(azimuths_[i]);
    }

    // What has no value is calculated with the inputs of some other place, and dropped.
    void MarkUnknown(std::size_t count) {
        anyUnknown_ = false;
        for (std::size_t i = 0; i < count; ++i) {
            known_[i] = km_[i] > 0.0 && km_[i] <= station_.farthestKm && hb_[i] > 0.0;
            anyUnknown_ = anyUnknown_ || !known_[i];
            if (known_[i]) continue;
            km_[i] = 1.0;
            hb_[i] = i > 0 ? hb_[i - 1] : 100.0;
        }
    }

    void ComputeModel(ModelNumber number, std::size_t count, double* values) const {
        const Model& model = ModelOf(number);
        if (station_.quantity == ServiceQuantity::PathLoss)
            model.areaLosses(station_.path, block_, values);
        else
            model.areaFieldStrengths(station_.path, station_.powerWatts, block_, values);
        if (station_.quantity == ServiceQuantity::ReceivedPower)
            for (std::size_t i = 0; i < count; ++i)
                values[i] = ReceivedPower(station_.receiver, values[i]);
        if (!anyUnknown_) return;
        for (std::size_t i = 0; i < count; ++i)
            if (!known_[i]) values[i] = Unknown;
    }

    void MarkRange(ModelNumber number, std::size_t count, std::uint8_t* marks) const {
        const ModelInputs& path = station_.path;
        for (std::size_t i = 0; i < count; ++i)
            marks[i] = known_[i] && ModelInRange(static_cast<int>(number), path.f, hb_[i], path.hm,
                                                 km_[i], path.area)
                           ? 1
                           : 0;
    }

    const CoverageStation& station_;
    const CoverageGrid& grid_;
    bool time_;
    bool anyUnknown_ = false;
    Column km_, azimuths_, hb_;
    std::array<bool, Block> known_;
    AreaBlock block_;
};

void ComputeRow(RowCalculation& calculation, const CellRectangle& cells, int row,
                const CoverageBuffers& buffers) {
    const auto columns = static_cast<std::size_t>(cells.columns);
    for (std::size_t done = 0; done < columns; done += Block)
        calculation.Compute(cells.row + row, cells.column + static_cast<int>(done),
                            std::min(Block, columns - done), buffers,
                            static_cast<std::size_t>(row) * columns + done);
}

}  // namespace

void ComputeCoverage(const CoverageStation& station, const CoverageGrid& grid,
                     const CellRectangle& cells, const CoverageBuffers& buffers) {
    RowCalculation calculation(station, grid);
    for (int row = 0; row < cells.rows; ++row) ComputeRow(calculation, cells, row, buffers);
}

bool ComputeCoverageOn(unsigned threads, const CoverageStation& station, const CoverageGrid& grid,
                       const CellRectangle& cells, const CoverageBuffers& buffers,
                       const std::atomic<bool>* stop) {
    std::atomic<int> next{0};
    const auto isStopped = [&] { return stop != nullptr && stop->load(std::memory_order_relaxed); };
    const auto work = [&](std::exception_ptr& fault) {
        try {
            RowCalculation calculation(station, grid);
            for (int row = next++; row < cells.rows && !isStopped(); row = next++)
                ComputeRow(calculation, cells, row, buffers);
        } catch (...) {
            fault = std::current_exception();
            next = cells.rows;
        }
    };
    std::vector<std::exception_ptr> faults(std::max(threads, 1U));
    std::vector<std::thread> others;
    for (std::size_t i = 1; i < faults.size(); ++i) others.emplace_back(work, std::ref(faults[i]));
    work(faults[0]);
    for (std::thread& other : others) other.join();
    for (const std::exception_ptr& fault : faults)
        if (fault) std::rethrow_exception(fault);
    return !isStopped();
}

}  // namespace vardel
