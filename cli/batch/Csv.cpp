#include "cli/batch/Csv.h"

#include <algorithm>

namespace vardel::cli {

namespace {

// Why a character may not stand where it stands; nothing where it may.
const char* FaultAt(CsvState state, char c, CsvState next) {
    if (c == '\0') return "a NUL byte";
    if (state == CsvState::Plain && c == '"') return "a quote inside an unquoted field";
    if (state == CsvState::BehindQuote && next == CsvState::Plain)
        return "text behind the closing quote";
    if (next == CsvState::Plain && c == '\r') return "a carriage return within the row";
    return nullptr;
}

CsvField FieldOf(std::string_view text) {
    const bool quoted = text.size() >= 2 && text.front() == '"' && text.back() == '"';
    if (!quoted) return {text, false};
    text = text.substr(1, text.size() - 2);
    return {text, text.find('"') != text.npos};
}

}  // namespace

std::size_t RowEndFinder::Find(std::string_view text, std::size_t from) {
    for (std::size_t i = from; i < text.size(); ++i) {
        state_ = Next(state_, text[i], delimiter_);
        if (state_ == CsvState::RowEnd) {
            state_ = CsvState::FieldStart;
            return i + 1;
        }
    }
    return std::string_view::npos;
}

std::string CsvField::Text() const {
    std::string text(raw);
    if (!doubledQuotes) return text;
    std::size_t kept = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        text[kept++] = text[i];
        if (text[i] == '"' && i + 1 < text.size() && text[i + 1] == '"') ++i;
    }
    text.resize(kept);
    return text;
}

std::string_view WithoutLineEnd(std::string_view row) {
    if (!row.empty() && row.back() == '\n') {
        row.remove_suffix(1);
        if (!row.empty() && row.back() == '\r') row.remove_suffix(1);
    }
    return row;
}

std::optional<CsvFault> SplitRow(std::string_view row, char delimiter,
                                 std::vector<CsvField>& fields) {
    fields.clear();
    std::optional<CsvFault> fault;
    CsvState state = CsvState::FieldStart;
    std::size_t start = 0;
    for (std::size_t i = 0; i < row.size(); ++i) {
        const CsvState next = Next(state, row[i], delimiter);
        if (const char* const wrong = FaultAt(state, row[i], next); wrong && !fault)
            fault = CsvFault{fields.size(), wrong};
        if (next == CsvState::FieldStart) {
            fields.push_back(FieldOf(row.substr(start, i - start)));
            start = i + 1;
        }
        state = next;
    }
    if (state == CsvState::Quoted && !fault)
        fault = CsvFault{fields.size(), "a quote that is never closed"};
    fields.push_back(FieldOf(row.substr(start)));
    return fault;
}

char DelimiterOf(std::string_view headLine) {
    const auto commas = std::count(headLine.begin(), headLine.end(), ',');
    const auto semicolons = std::count(headLine.begin(), headLine.end(), ';');
    return semicolons > commas ? ';' : ',';
}

}  // namespace vardel::cli
