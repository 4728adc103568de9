#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

#include "cli/batch/Columns.h"
#include "cli/batch/RowReader.h"

// Many paths, a row each, on all processors and with a bounded memory.

namespace vardel::cli {

// Takes text at the end of the output. Throws std::system_error.
using Sink = std::function<void(std::string_view text)>;

// A row of the input, seen by what writes it.
struct BatchRow {
    std::string_view text;                // without its line end
    bool asWritten;                       // the text is well-formed, and consists of the fields
    const std::vector<CsvField>& fields;  // as many as the head has
    const RowPath* path;                  // nothing: the error says why
    std::string error;                    // with line and column
};

// How rows are written; used by many threads at once.
class RowFormat {
public:
    RowFormat() = default;
    RowFormat(const RowFormat&) = delete;
    RowFormat& operator=(const RowFormat&) = delete;
    virtual ~RowFormat() = default;

    // The names of columns that the format adds, which the input must not have.
    virtual std::vector<std::string> AddedColumns() const { return {}; }
    // What stands before the rows; the head is the input's own with its line end. Called once,
    // before any row.
    virtual void Begin(std::string& out, std::string_view head, const RowReader& input,
                       const Columns& columns) = 0;
    // Adds the row to out, and to messages what is for the user's eyes.
    virtual void Row(std::string& out, std::string& messages, const BatchRow& row) const = 0;
};

// How much of an input was written.
struct BatchCount {
    std::size_t rows = 0;
    std::size_t errors = 0;  // rows among them that could not be calculated
};

// From where a batch reads, to where it writes, and with what in place of missing columns.
struct BatchRun {
    Source source;
    Sink output;
    Sink messages;
    std::function<void(const std::string&)> notes = {};  // of Columns, before any row
    PathInputs defaults;
    const PathGround* ground = nullptr;  // nothing: base heights are effective ones
    unsigned threads = 1;
    std::function<void(const BatchCount&)> progress = {};  // after each written block
    std::size_t readSize = UsualReadSize;                  // bytes; blocks are about as large
};

// Reads, calculates and writes all rows, in the order of the input. Empty lines are left out.
// Throws InputError for what is wrong with the input as a whole, and what source and output throw;
// rows before that are written. Each worker takes the next block of whole rows, formats it, and
// waits for its turn to write: no more blocks than workers are in memory.
BatchCount RunBatch(const BatchRun& run, RowFormat& format);

}  // namespace vardel::cli
