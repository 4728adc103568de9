#include "engine/LogReader.h"

#include <algorithm>
#include <cmath>

#include "engine/LogLine.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

// Takes a line's words from its front, blanks before them skipped.
class Words {
public:
    explicit Words(std::string_view line) : line_(line) {}

    // Whether it was there.
    bool Take(std::string_view word) {
        SkipBlanks();
        if (!line_.starts_with(word)) return false;
        line_.remove_prefix(word.size());
        return true;
    }
    // Empty: there is none of them.
    std::string_view TakeOneOf(std::initializer_list<std::string_view> words) {
        for (const std::string_view word : words)
            if (Take(word)) return word;
        return {};
    }
    std::string_view TakeNumber() {
        SkipBlanks();
        const std::string_view number =
            line_.substr(0, std::min(line_.find_first_not_of("-0123456789."), line_.size()));
        if (!WholeTextNumber(number)) return {};
        line_.remove_prefix(number.size());
        return number;
    }
    bool TakeNumberTo(double& number) {
        const std::string_view text = TakeNumber();
        number = LeadingNumber(text);
        return !text.empty();
    }
    // A text of this form: a 0 stands for any digit.
    std::string_view TakeForm(std::string_view form) {
        SkipBlanks();
        const std::string_view text = line_.substr(0, form.size());
        const bool fits =
            std::equal(text.begin(), text.end(), form.begin(), form.end(),
                       [](char c, char f) { return f == '0' ? c >= '0' && c <= '9' : c == f; });
        if (!fits) return {};
        line_.remove_prefix(form.size());
        return text;
    }
    std::string_view Rest() const { return Trimmed(line_); }

private:
    void SkipBlanks() { line_.remove_prefix(std::min(line_.find_first_not_of(' '), line_.size())); }

    std::string_view line_;
};

bool TakePath(Words& words, PathInputs& path) {
    for (double* number : {&path.distance, &path.frequency, &path.hb, &path.hm})
        if (!words.TakeNumberTo(*number)) return false;
    path.area = words.TakeOneOf({"Urban", "Suburban", "Open"});
    path.city = "Small/Medium";  // which the boxes have where the city counts for nothing
    if (path.area == "Urban") path.city = words.TakeOneOf({"Small/Medium", "Large"});
    return !path.area.empty() && !path.city.empty();
}

bool TakeEnd(Words& words, LoggedCalculation& line) {
    PathInputs& path = line.path;
    for (double* percent : {&path.pctTime, &path.pctLoc})
        if (!words.TakeNumberTo(*percent) || !words.Take("%")) return false;
    const std::string_view units = words.TakeOneOf({"Metric", "Enlish"});
    path.units = units == "Metric" ? Units::Metric : Units::English;
    if (units.empty() || !words.TakeNumberTo(path.powerWatts)) return false;
    for (const char* form : {"00/00/0000 00:00 am", "00/00/0000 00:00 pm"})
        if (line.time.empty()) line.time = words.TakeForm(form);
    line.rest = words.Rest();
    return !line.time.empty();
}

double OffResults(const PathInputs& path, const LoggedCalculation& line) {
    const auto pieces = LogLine(path, Calculation(MetricInputs(path), path.powerWatts), {});
    double off = 0.0;
    for (std::size_t i = 0; i < line.results.size(); ++i)
        off = std::max(off, std::abs(LeadingNumber(line.results.at(i)) -
                                     LeadingNumber(pieces.at(i + 1).text)));
    return off;
}

}  // namespace

std::optional<LoggedCalculation> ReadLogLine(std::string_view line) {
    Words words(line);
    LoggedCalculation read;
    if (!TakePath(words, read.path)) return std::nullopt;
    for (std::string_view& result : read.results) {
        result = words.TakeNumber();
        if (result.empty()) return std::nullopt;
    }
    if (!TakeEnd(words, read)) return std::nullopt;
    return read;
}

LineInputs InputsOfLine(const LoggedCalculation& line) {
    LineInputs asTold{line.path, OffResults(line.path, line)};
    if (line.path.units == Units::Metric) return asTold;
    PathInputs path = line.path;
    path.distance /= KmPerDistance(path.units);
    LineInputs inKm{path, OffResults(path, line)};
    return inKm.off < asTold.off ? inKm : asTold;
}

}  // namespace vardel
