#include "cli/batch/RowFormats.h"

#include <optional>
#include <set>

#include "cli/output/Results.h"
#include "engine/LogLine.h"
#include "text/CsvText.h"
#include "text/NumberText.h"

namespace vardel::cli {

namespace {

constexpr const char* ErrorColumn = "error";

std::optional<Calculation> CalculationOf(const BatchRow& row) {
    if (row.path == nullptr) return std::nullopt;
    return Calculation(row.path->inputs, row.path->path.powerWatts);
}

const Calculation* AddressOf(const std::optional<Calculation>& calculation) {
    return calculation ? &*calculation : nullptr;
}

std::vector<std::string> ResultsAndError() {
    std::vector<std::string> columns = ResultColumns();
    columns.emplace_back(ErrorColumn);
    return columns;
}

}  // namespace

std::vector<std::string> CsvRows::AddedColumns() const { return ResultsAndError(); }

void CsvRows::Begin(std::string& out, std::string_view head, const RowReader& input,
                    const Columns& columns) {
    delimiter_ = input.Delimiter();
    lineEnd_ = head.ends_with("\r\n") ? "\r\n" : "\n";
    if (input.HadByteOrderMark()) out += ByteOrderMark;
    out += WithoutLineEnd(head);
    std::vector<std::string> added = columns.AddedNames();
    found_ = added.size();
    for (const std::string& name : AddedColumns()) added.push_back(name);
    for (const std::string& name : added) out += delimiter_ + name;
    out += lineEnd_;
}

void CsvRows::Row(std::string& out, std::string& /*messages*/, const BatchRow& row) const {
    if (row.asWritten) {
        out += row.text;
    } else {
        for (std::size_t i = 0; i < row.fields.size(); ++i) {
            if (i > 0) out += delimiter_;
            AppendCsvField(out, row.fields[i].Text(), delimiter_);
        }
    }
    for (std::size_t i = 0; i < found_; ++i) {
        out += delimiter_;
        if (row.path != nullptr) out += ShortestText(row.path->found.at(i));
    }
    const auto calculation = CalculationOf(row);
    AppendResults(out, AddressOf(calculation), delimiter_);
    out += delimiter_;
    AppendCsvField(out, row.error, delimiter_);
    out += lineEnd_;
}

std::vector<std::string> JsonRows::AddedColumns() const { return ResultsAndError(); }

void JsonRows::Begin(std::string& /*out*/, std::string_view /*head*/, const RowReader& /*input*/,
                     const Columns& columns) {
    std::set<std::string> names;
    for (std::size_t i = 0; i < columns.Names().size(); ++i) {
        const std::string& name = columns.Names()[i];
        if (!names.insert(name).second)
            throw InputError("line 1, column " + std::to_string(i + 1) + ": a second '" + name +
                             "', which JSON cannot distinguish from the first");
        columns_.push_back({name, columns.IsNumber(i)});
    }
    found_ = columns.AddedNames();
}

void JsonRows::Row(std::string& out, std::string& /*messages*/, const BatchRow& row) const {
    JsonObject line(out);
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        const std::string text = row.fields[i].Text();
        const auto number = columns_[i].number ? WholeTextNumber(text) : std::nullopt;
        if (number)
            line.Number(columns_[i].name, *number);
        else
            line.Text(columns_[i].name, text);
    }
    for (std::size_t i = 0; i < found_.size(); ++i) {
        if (row.path != nullptr)
            line.Number(found_[i], row.path->found.at(i));
        else
            line.Null(found_[i]);
    }
    const auto calculation = CalculationOf(row);
    AddResults(line, AddressOf(calculation));
    if (row.error.empty())
        line.Null(ErrorColumn);
    else
        line.Text(ErrorColumn, row.error);
    line.End("\n");
}

void LogRows::Begin(std::string& out, std::string_view /*head*/, const RowReader& /*input*/,
                    const Columns& /*columns*/) {
    if (header_) out += LogHeads();
}

void LogRows::Row(std::string& out, std::string& messages, const BatchRow& row) const {
    if (row.path != nullptr)
        out += LogText(row.path->path, time_);
    else
        messages += row.error + '\n';
}

std::string LogText(const PathInputs& path, const CalendarTime& time) {
    const Calculation calculation(MetricInputs(path), path.powerWatts);
    std::string line;
    for (const LogPiece& piece : LogLine(path, calculation, time)) line += piece.text;
    return line;
}

std::string LogHeads() { return std::string(LogColumnHeader) + "\r\n"; }

}  // namespace vardel::cli
