#include <algorithm>
#include <cstdint>

#include "Check.h"
#include "cli/batch/RowFormats.h"

namespace {

using namespace vardel::cli;

Source Bytes(std::string_view input) {
    return [input](char* bytes, std::size_t size) mutable {
        const std::size_t come = input.copy(bytes, size);
        input.remove_prefix(come);
        return come;
    };
}

struct Outcome {
    std::string output;
    BatchCount count;
    bool refused = false;
};

// Reads so many bytes at a time.
Outcome Run(std::string_view input, std::size_t readSize, RowFormat& format) {
    Outcome outcome;
    try {
        outcome.count = RunBatch({.source = Bytes(input),
                                  .output = [&](std::string_view text) { outcome.output += text; },
                                  .messages = [](std::string_view) {},
                                  .defaults = DefaultPath(vardel::Units::English),
                                  .readSize = readSize},
                                 format);
    } catch (const InputError&) {
        outcome.refused = true;
    }
    return outcome;
}

// What came out is CSV of as many rows, each with as many fields as its head.
void CheckCsv(const Outcome& outcome) {
    RowReader reader(Bytes(outcome.output), outcome.output.size());
    std::vector<CsvField> fields;
    const std::string head = reader.TakeHead();
    Check(!SplitRow(WithoutLineEnd(head), reader.Delimiter(), fields));
    const std::size_t columns = fields.size();
    std::size_t rows = 0;
    for (RowBlock block; reader.TakeRows(block);) {
        std::size_t start = 0;
        for (const std::size_t end : block.ends) {
            const auto row = std::string_view(block.text).substr(start, end - start);
            start = end;
            const auto fault = SplitRow(WithoutLineEnd(row), reader.Delimiter(), fields);
            Check(!fault || row.find('\0') != row.npos);
            Check(fields.size() == columns);
            Check(fault || (fields[columns - 2].raw.empty() != fields.back().raw.empty()));
            ++rows;
        }
    }
    Check(rows == outcome.count.rows);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    CsvRows whole;
    const Outcome outcome = Run(input, std::max<std::size_t>(size, 1), whole);
    CsvRows cut;
    Check(Run(input, 1 + size % 7, cut).output == outcome.output);
    if (outcome.refused) {
        Check(outcome.output.empty());
        return 0;
    }
    CheckCsv(outcome);
    JsonRows objects;
    const Outcome json = Run(input, size, objects);
    if (json.refused) return 0;
    Check(json.count.rows == outcome.count.rows);
    const auto lines = std::count(json.output.begin(), json.output.end(), '\n');
    Check(static_cast<std::size_t>(lines) == json.count.rows);
    for (const char c : json.output) Check(c == '\n' || static_cast<unsigned char>(c) >= 0x20);
    return 0;
}
