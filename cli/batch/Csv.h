#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Rows and fields of CSV by RFC 4180, with a comma or a semicolon between the fields. A row ends in
// CR LF or in LF alone.

namespace vardel::cli {

// Where a reader stands in a row.
enum class CsvState { FieldStart, Plain, Quoted, BehindQuote, RowEnd };

constexpr CsvState Next(CsvState state, char c, char delimiter) {
    if (state == CsvState::Quoted) return c == '"' ? CsvState::BehindQuote : CsvState::Quoted;
    if (c == '\n') return CsvState::RowEnd;
    if (c == delimiter) return CsvState::FieldStart;
    if (c == '"' && state != CsvState::Plain) return CsvState::Quoted;
    return CsvState::Plain;
}

// Looks for the end of a row in a text that comes in pieces.
class RowEndFinder {
public:
    explicit RowEndFinder(char delimiter) : delimiter_(delimiter) {}

    // The place behind the row's end, or npos where the text ends before. The next call goes on
    // with the row at from.
    std::size_t Find(std::string_view text, std::size_t from);

private:
    char delimiter_;
    CsvState state_ = CsvState::FieldStart;
};

// What a field holds, without its quotes. Cheap to copy, valid as long as the row's text.
struct CsvField {
    std::string_view raw;  // between the quotes; a quote in there is still doubled
    bool doubledQuotes = false;

    std::string Text() const;
};

// What is wrong with the form of a row, in words, and in which field, counted from 0.
struct CsvFault {
    std::size_t field;
    std::string fault;
};

// Takes the line end off a row.
std::string_view WithoutLineEnd(std::string_view row);

// Puts the fields of one row, without its line end, into fields. Of a faulty row they are what can
// be made of it.
std::optional<CsvFault> SplitRow(std::string_view row, char delimiter,
                                 std::vector<CsvField>& fields);

// The delimiter of a head line: a semicolon if it has more of these than commas.
char DelimiterOf(std::string_view headLine);

}  // namespace vardel::cli
