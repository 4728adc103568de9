#include "engine/measured/MeasuredData.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "services/Files.h"
#include "text/AsciiCase.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

constexpr std::size_t MaxTables = 32768;

// Inside this file a MeasuredFault is thrown; it goes no further than ParseMeasuredData.

struct Field {
    std::string_view text;
    int line = 1;
};

class FieldReader {
public:
    explicit FieldReader(std::string_view text) : rest_(text) {
        Take("\xEF\xBB\xBF");  // a byte order mark
        CutEndMark();
    }

    enum class Place { BetweenGroups, InGroup };

    // Nothing at the end of the text. In a group, empty fields at the end of a line are a fault as
    // well: what comes on the next line would be taken in their place.
    std::optional<Field> Next(Place place);

    // Of the field last taken: where a text breaks off, not where its blank lines end.
    int Line() const { return lastLine_; }

private:
    void SkipBlanks() {
        rest_.remove_prefix(std::min(rest_.find_first_not_of(" \t"), rest_.size()));
    }
    bool Take(std::string_view start) {
        if (!rest_.starts_with(start)) return false;
        rest_.remove_prefix(start.size());
        return true;
    }
    void CutEndMark();
    std::string_view TakePlain();
    std::string_view TakeQuoted();

    std::string_view rest_;
    bool commaTaken_ = false;  // behind the field last taken
    int line_ = 1;
    int lastLine_ = 1;
};

// Programs of the time of DOS end a text with a Ctrl-Z, or fill it up with them.
void FieldReader::CutEndMark() {
    constexpr char CtrlZ = '\x1A';
    std::size_t end = 0;
    while ((end = rest_.find_last_not_of(" \t\r\n")) != rest_.npos && rest_[end] == CtrlZ)
        rest_ = rest_.substr(0, end);
}

std::optional<Field> FieldReader::Next(Place place) {
    const auto fail = [this] { throw MeasuredFault{line_, "a field is empty."}; };
    bool gap = false;
    for (;;) {
        SkipBlanks();
        if (rest_.empty()) return std::nullopt;
        if (Take(",")) {
            gap = true;
        } else if (Take("\r\n") || Take("\n") || Take("\r")) {
            if (place == Place::InGroup && (gap || commaTaken_)) fail();
            gap = false;
            ++line_;
        } else {
            break;
        }
    }
    if (gap) fail();
    lastLine_ = line_;
    const std::string_view text = rest_.front() == '"' ? TakeQuoted() : TakePlain();
    SkipBlanks();
    commaTaken_ = Take(",");
    return Field{text, line_};
}

std::string_view FieldReader::TakePlain() {
    const std::size_t end = std::min(rest_.find_first_of(",\r\n"), rest_.size());
    const std::string_view text = rest_.substr(0, end);
    rest_.remove_prefix(end);
    return text.substr(0, text.find_last_not_of(" \t") + 1);
}

std::string_view FieldReader::TakeQuoted() {
    const std::size_t end = rest_.find_first_of("\"\r\n", 1);
    if (end == rest_.npos || rest_[end] != '"')
        throw MeasuredFault{line_, "a quotation mark is not closed."};
    const std::string_view text = rest_.substr(1, end - 1);
    rest_.remove_prefix(end + 1);
    SkipBlanks();
    if (!rest_.empty() && std::string_view(",\r\n").find(rest_.front()) == std::string_view::npos)
        throw MeasuredFault{line_, "a comma is missing after a quoted text."};
    return text;
}

// Names what spreadsheets of other settings write, and else what should be a number.
std::string NoNumberFault(std::string_view text, const std::string& what) {
    using namespace std::string_view_literals;
    const auto has = [text](std::string_view part) { return text.find(part) != text.npos; };
    if (SameButForCase(text.substr(0, 4), "sep=")) return "a \"sep=\" line is no data.";
    if (has("\0"sv) && !has("\0\0"sv)) return "the text is in UTF-16 instead of UTF-8.";
    if (has(";")) return "the fields are separated by semicolons instead of commas.";
    if (has("\t")) return "the fields are separated by tabs instead of commas.";
    return what + " is not a number.";
}

class MeasuredParser {
public:
    MeasuredParser(std::string_view text, MeasuredTable& table) : fields_(text), table_(table) {}

    void Parse();

private:
    Field Need(const std::string& what);
    double NeedNumber(const std::string& what) { return Number(Need(what), what); }
    static double Number(const Field& field, const std::string& what);
    void ReadHead();
    void ReadRow(double distance);
    void EndTable();

    FieldReader fields_;
    MeasuredTable& table_;                    // those that have ended
    std::optional<MeasuredSegment> segment_;  // the one that has not
    int headLine_ = 0;
    int rows_ = 0;
};

void MeasuredParser::Parse() {
    while (const auto first = fields_.Next(FieldReader::Place::BetweenGroups)) {
        const double x = Number(*first, "a distance");
        if (x == 0.0) {
            EndTable();
            ReadHead();
        } else {
            ReadRow(x);
        }
    }
    EndTable();
}

Field MeasuredParser::Need(const std::string& what) {
    const auto field = fields_.Next(FieldReader::Place::InGroup);
    if (!field)
        throw MeasuredFault{fields_.Line(), "the file ends where " + what + " should follow."};
    return *field;
}

double MeasuredParser::Number(const Field& field, const std::string& what) {
    const auto x = WholeTextNumber(field.text);
    if (!x) throw MeasuredFault{field.line, NoNumberFault(field.text, what)};
    return *x;
}

void MeasuredParser::ReadHead() {
    headLine_ = fields_.Line();
    rows_ = 0;
    MeasuredSegment& segment = segment_.emplace();
    segment.Frequency = NeedNumber("the frequency");
    segment.PercentTime = NeedNumber("the percent of time");
    segment.City = Need("the area").text;
    segment.MobileHeight = NeedNumber("the mobile antenna height");
    const double count = NeedNumber("the number of base antenna heights");
    if (count < 1.0 || count > MeasuredHeights || count != std::floor(count))
        throw MeasuredFault{fields_.Line(),
                            "the number of base antenna heights is not a whole "
                            "number from 1 to 6."};
    segment.HeightCount = static_cast<int>(count);
    for (int c = 0; c < segment.HeightCount; ++c)
        segment.BaseHeight[c] = NeedNumber("a base antenna height");
}

void MeasuredParser::ReadRow(double distance) {
    if (!segment_)
        throw MeasuredFault{fields_.Line(), "a data row comes before the first table head."};
    if (rows_ == MeasuredRows - 1)
        throw MeasuredFault{fields_.Line(), "a table has more than 75 data rows."};
    segment_->RowDistance[rows_] = distance;
    for (int c = 0; c < segment_->HeightCount; ++c)
        segment_->RowValue[rows_][c] = NeedNumber("a field strength");
    ++rows_;
}

void MeasuredParser::EndTable() {
    if (!segment_) return;
    if (rows_ == 0) throw MeasuredFault{headLine_, "a table has no data rows."};
    if (table_.size() == MaxTables)
        throw MeasuredFault{headLine_, "there are more than 32768 tables."};
    segment_->RowDistance[rows_] = MeasuredEndMark;
    for (int c = 0; c < segment_->HeightCount; ++c) segment_->RowValue[rows_][c] = MeasuredEndMark;
    table_.push_back(std::move(*segment_));
    segment_.reset();
}

}  // namespace

std::optional<MeasuredFault> ParseMeasuredData(std::string_view text, MeasuredTable& table) {
    table.clear();
    std::optional<MeasuredFault> fault;
    try {
        MeasuredParser(text, table).Parse();
    } catch (const MeasuredFault& found) {
        fault = found;
    }
    if (table.empty()) table.emplace_back().Frequency = -1.0;
    return fault;
}

bool ReadMeasuredData(const std::string& path, MeasuredTable& table, Windows& windows) {
    const std::string title = "Okum-Hata";
    const auto text = ReadWholeFile(path);
    if (!text) {
        windows.ShowMessage({.text = "Warning: Cannot find file " + path, .title = title});
        return false;
    }
    if (const auto fault = ParseMeasuredData(*text, table))
        windows.ShowMessage({.text = "Warning: The file " + path + " has a fault in line " +
                                     std::to_string(fault->line) + ": " + fault->fault +
                                     " Only the tables that were complete before it are used.",
                             .title = title});
    return true;
}

bool IsAreaOf(const MeasuredSegment& segment, std::string_view areaText) {
    return SameButForCase(segment.City, areaText);
}

MeasuredMatch FindMeasuredSegment(double frequency, double hb, double hm, std::string_view areaText,
                                  double percentTime, const MeasuredTable& table) {
    for (std::size_t i = 0; i < table.size(); ++i) {
        const MeasuredSegment& segment = table[i];
        if (segment.Frequency != frequency || segment.PercentTime != percentTime ||
            segment.MobileHeight != hm || !IsAreaOf(segment, areaText))
            continue;
        // A later table with the same head may have the height that this one lacks.
        for (int c = 0; c < segment.HeightCount; ++c)
            if (segment.BaseHeight[c] == hb) return {true, static_cast<int>(i), c};
    }
    return {};
}

std::string MeasuredListing(const MeasuredTable& table) {
    const std::string lineEnd = "\r\n";
    std::string text = lineEnd + "Table Segments: " + std::to_string(table.size()) + lineEnd;
    for (std::size_t i = 0; i < table.size(); ++i) {
        const MeasuredSegment& segment = table[i];
        text += std::to_string(i) + "> Freq:" + ShortestText(segment.Frequency);
        text += "  %:" + ShortestText(segment.PercentTime) + " City: " + segment.City;
        text += " hm: " + ShortestText(segment.MobileHeight);
        text += " hb(" + std::to_string(segment.HeightCount) + "): ";
        for (int c = 0; c < segment.HeightCount; ++c)
            text += ShortestText(segment.BaseHeight[c]) + "  ";
        if (i + 1 == table.size()) {
            text += lineEnd;
            for (int r = 0; r < MeasuredRows && segment.RowValue[r][0] != MeasuredEndMark; ++r) {
                text += "     " + ShortestText(segment.RowDistance[r]) + ": ";
                for (int c = 0; c < segment.HeightCount; ++c)
                    text += ShortestText(segment.RowValue[r][c]) + ' ';
                text += lineEnd;
            }
        }
        text += lineEnd;
    }
    return text;
}

}  // namespace vardel
