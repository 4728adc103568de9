#include "cli/batch/RowReader.h"

#include <algorithm>
#include <limits>
#include <string_view>

namespace vardel::cli {

bool RowReader::Fill() {
    const std::size_t come = source_(read_.data(), read_.size());
    buffer_.append(read_.data(), come);
    return come > 0;
}

std::string RowReader::TakeHead() {
    while (buffer_.find('\n') == buffer_.npos && buffer_.size() <= LongestRow && Fill()) {
    }
    if (buffer_.starts_with("\xFF\xFE") || buffer_.starts_with("\xFE\xFF"))
        throw InputError("is UTF-16; UTF-8 is expected");
    byteOrderMark_ = buffer_.starts_with(ByteOrderMark);
    if (byteOrderMark_) buffer_.erase(0, ByteOrderMark.size());
    delimiter_ = DelimiterOf(std::string_view(buffer_).substr(0, buffer_.find('\n')));
    finder_ = RowEndFinder(delimiter_);
    RowBlock head;
    if (!Take(head, 1)) throw InputError("is empty; its first line must name the columns");
    return head.text;
}

bool RowReader::TakeRows(RowBlock& block) {
    return Take(block, std::numeric_limits<std::size_t>::max());
}

void RowReader::FindRows(RowBlock& block, std::size_t mostRows) {
    std::size_t start = 0;
    while (block.ends.size() < mostRows) {
        const std::size_t end = finder_.Find(buffer_, scanned_);
        scanned_ = std::min(end, buffer_.size());
        tooLong_ = scanned_ - start > LongestRow;
        if (end == buffer_.npos || tooLong_) return;
        block.ends.push_back(end);
        start = end;
    }
}

bool RowReader::Take(RowBlock& block, std::size_t mostRows) {
    block.ends.clear();
    bool more = true;
    while (!tooLong_ && more) {
        FindRows(block, mostRows);
        if (!block.ends.empty()) break;
        if (!tooLong_) more = Fill();
    }
    if (block.ends.empty()) {
        if (tooLong_)
            throw InputError("line " + std::to_string(line_) +
                             ": the row is longer than 1 MiB; is a quote not closed?");
        if (buffer_.empty()) return false;
        block.ends.push_back(buffer_.size());  // the last line may have no end
    }
    const std::size_t last = block.ends.back();
    block.firstLine = line_;
    block.text.swap(buffer_);
    buffer_.assign(block.text, last);
    block.text.resize(last);
    scanned_ -= last;
    line_ += static_cast<std::size_t>(std::count(block.text.begin(), block.text.end(), '\n'));
    return true;
}

}  // namespace vardel::cli
