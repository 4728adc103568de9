#pragma once

#include <cstddef>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "cli/batch/Csv.h"

namespace vardel::cli {

// Gives up to so many bytes more, 0 at the end.
using Source = std::function<std::size_t(char* bytes, std::size_t size)>;

// What is wrong with an input as a whole, in words for the user.
struct InputError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// The longest row that is read, so that a quote that is never closed does not fill the memory.
constexpr std::size_t LongestRow = std::size_t{1} << 20U;

constexpr std::size_t UsualReadSize = std::size_t{1} << 18U;  // bytes

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

// Whole rows, one behind the other.
struct RowBlock {
    std::string text;
    std::vector<std::size_t> ends;  // of each row, its line end included
    std::size_t firstLine = 1;      // the line on which the first row begins
};

// Cuts a stream of CSV between rows. Holds a block and a row at the most.
class RowReader {
public:
    // readSize: the bytes that one read brings at most.
    explicit RowReader(Source source, std::size_t readSize = UsualReadSize)
        : source_(std::move(source)), read_(readSize) {}

    // The first row, its line end included but no byte order mark. To be called first, once. Throws
    // InputError where there is none.
    std::string TakeHead();
    char Delimiter() const { return delimiter_; }
    bool HadByteOrderMark() const { return byteOrderMark_; }

    // The next rows, as many as one read brings; false at the end. Throws InputError before a row
    // that is too long.
    bool TakeRows(RowBlock& block);

private:
    bool Fill();
    bool Take(RowBlock& block, std::size_t mostRows);
    void FindRows(RowBlock& block, std::size_t mostRows);

    Source source_;
    std::vector<char> read_;  // what one read brings
    std::string buffer_;
    std::size_t scanned_ = 0;  // how much of the buffer the finder has seen
    std::size_t line_ = 1;
    bool tooLong_ = false;  // the next row is
    bool byteOrderMark_ = false;
    char delimiter_ = ',';
    RowEndFinder finder_{delimiter_};
};

}  // namespace vardel::cli
