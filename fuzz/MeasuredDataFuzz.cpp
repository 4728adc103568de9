#include <cstdint>

#include "Check.h"
#include "engine/measured/MeasuredData.h"

namespace {

// A table that came from a text is whole: each of its columns ends in the row in which its
// distances do.
bool Whole(const vardel::MeasuredSegment& segment) {
    if (segment.HeightCount < 1 || segment.HeightCount > vardel::MeasuredHeights) return false;
    for (int r = 1; r < vardel::MeasuredRows; ++r) {
        bool ends = segment.RowDistance[r] == vardel::MeasuredEndMark;
        for (int c = 0; c < segment.HeightCount; ++c)
            ends = ends && segment.RowValue[r][c] == vardel::MeasuredEndMark;
        if (ends) return true;
    }
    return false;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    vardel::MeasuredTable table;
    const auto fault =
        vardel::ParseMeasuredData({reinterpret_cast<const char*>(data), size}, table);
    Check(!table.empty());
    if (fault) Check(fault->line >= 1 && static_cast<std::size_t>(fault->line) <= size + 1);
    Check(!vardel::MeasuredListing(table).empty());
    if (table[0].HeightCount == 0) {
        Check(table.size() == 1 && table[0].Frequency == -1.0);
        return 0;
    }
    for (const auto& segment : table) {
        Check(Whole(segment));
        Check(vardel::FindMeasuredSegment(segment.Frequency, segment.BaseHeight[0],
                                          segment.MobileHeight, segment.City, segment.PercentTime,
                                          table)
                  .found);
    }
    return 0;
}
