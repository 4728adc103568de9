#include "engine/PathRecord.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>

#include "engine/Calculation.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

constexpr std::string_view Mark = "vardel-inputs:";
constexpr std::string_view English = "english";
constexpr std::string_view Metric = "metric";

using Fields = std::map<std::string_view, std::string_view, std::less<>>;

double Converted(double height, Units from, Units to) {
    return from == to ? height : height * MetresPerHeight(from) / MetresPerHeight(to);
}

// What has an = in it and stands between blanks or the cells of a table, from the mark to the end
// of the line, of the quotation or of the element.
Fields FieldsOf(std::string_view text) {
    const std::size_t mark = text.find(Mark);
    if (mark == std::string_view::npos) return {};
    text.remove_prefix(mark + Mark.size());
    text = text.substr(0, text.find_first_of("\r\n\"<"));
    Fields fields;
    while (!text.empty()) {
        const std::string_view word = text.substr(0, text.find_first_of(" \t,;"));
        text.remove_prefix(std::min(word.size() + 1, text.size()));
        const std::size_t equals = word.find('=');
        if (equals != std::string_view::npos)
            fields.emplace(word.substr(0, equals), word.substr(equals + 1));
    }
    return fields;
}

// NaN, which lies between no limits, where there is no number.
double NumberOf(const Fields& fields, std::string_view name) {
    const auto field = fields.find(name);
    if (field == fields.end()) return std::nan("");
    return WholeTextNumber(field->second).value_or(std::nan(""));
}

template <std::size_t N>
std::string NameOf(const Fields& fields, std::string_view name,
                   const std::array<const char*, N>& known) {
    const auto field = fields.find(name);
    const bool isKnown = field != fields.end() &&
                         std::find(known.begin(), known.end(), field->second) != known.end();
    return isKnown ? std::string(field->second) : std::string();
}

bool IsPercentage(double x) { return x >= 1.0 && x <= 99.0; }

}  // namespace

std::string PathRecord(const PathInputs& path) {
    std::string record(Mark);
    const auto add = [&record](const char* name, std::string_view value) {
        record += std::string(" ") + name + '=' + std::string(value);
    };
    // Of the height as it is written, so that a record that is read makes the same one again.
    const auto height = [&](double x, Units to) {
        return ShortestText(Converted(LeadingNumber(ShortestText(x)), path.units, to));
    };
    add("frequency_mhz", ShortestText(path.frequency));
    add("base_m", height(path.hb, Units::Metric));
    add("base_ft", height(path.hb, Units::English));
    add("mobile_m", height(path.hm, Units::Metric));
    add("mobile_ft", height(path.hm, Units::English));
    add("area", path.area);
    add("city", path.city);
    add("time_percent", ShortestText(path.pctTime));
    add("location_percent", ShortestText(path.pctLoc));
    add("power_w", ShortestText(path.powerWatts));
    add("units", path.units == Units::English ? English : Metric);
    return record;
}

std::optional<PathInputs> PathOfRecord(std::string_view text) {
    const Fields fields = FieldsOf(text);
    const auto units = fields.find("units");
    if (units == fields.end()) return std::nullopt;
    const bool english = units->second == English;
    PathInputs path{.distance = 1.0,
                    .frequency = NumberOf(fields, "frequency_mhz"),
                    .hb = NumberOf(fields, english ? "base_ft" : "base_m"),
                    .hm = NumberOf(fields, english ? "mobile_ft" : "mobile_m"),
                    .units = english ? Units::English : Units::Metric,
                    .area = NameOf(fields, "area", AreaNames),
                    .city = NameOf(fields, "city", CityNames),
                    .pctTime = NumberOf(fields, "time_percent"),
                    .pctLoc = NumberOf(fields, "location_percent"),
                    .powerWatts = NumberOf(fields, "power_w")};
    const bool good = !path.area.empty() && !path.city.empty() && IsPercentage(path.pctTime) &&
                      IsPercentage(path.pctLoc) && path.powerWatts > 0.0 &&
                      std::isfinite(path.powerWatts) && !RefusalOf(MetricInputs(path));
    return good ? std::optional(path) : std::nullopt;
}

}  // namespace vardel
