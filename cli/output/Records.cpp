#include "cli/output/Records.h"

#include <cmath>

#include "cli/output/Results.h"
#include "text/CsvText.h"
#include "text/JsonText.h"
#include "text/NumberText.h"

namespace vardel::cli {

namespace {

std::string CellText(const Cell& cell) {
    if (const auto* const text = std::get_if<std::string>(&cell)) return *text;
    if (const auto* const number = std::get_if<double>(&cell))
        return std::isfinite(*number) ? ShortestText(*number) : std::string();
    if (const auto* const yes = std::get_if<bool>(&cell)) return YesOrNo(*yes);
    return {};
}

void AppendJson(std::string& out, const Record& record) {
    JsonObject line(out);
    for (const auto& [name, cell] : record) {
        if (const auto* const number = std::get_if<double>(&cell))
            line.Number(name, *number);
        else if (const auto* const yes = std::get_if<bool>(&cell))
            line.YesNo(name, *yes);
        else if (const auto* const text = std::get_if<std::string>(&cell))
            line.Text(name, *text);
        else
            line.Null(name);
    }
    line.End("\n");
}

}  // namespace

std::string CsvRow(const std::vector<std::string>& fields) {
    std::string out;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i > 0) out += ',';
        AppendCsvField(out, fields[i]);
    }
    return out + LineEnd;
}

std::string CsvOf(const std::vector<Record>& records) {
    std::vector<std::string> names;
    for (const auto& [name, cell] : records.front()) names.push_back(name);
    std::string out = CsvRow(names);
    for (const Record& record : records) {
        std::vector<std::string> fields;
        for (const auto& [name, cell] : record) fields.push_back(CellText(cell));
        out += CsvRow(fields);
    }
    return out;
}

std::string JsonOf(const std::vector<Record>& records) {
    std::string out;
    for (const Record& record : records) AppendJson(out, record);
    return out;
}

std::string DistanceColumn(const std::string& quantity, Units units) {
    return quantity + std::string(units == Units::English ? "_mi" : "_km");
}

std::string HeightColumn(const std::string& quantity, Units units) {
    return quantity + std::string("_") + HeightUnit(units);
}

}  // namespace vardel::cli
