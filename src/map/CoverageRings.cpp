#include "map/CoverageRings.h"

#include <algorithm>
#include <cmath>

#include "map/GeodesicCircle.h"
#include "text/NumberText.h"
#include "text/Utf8.h"

namespace vardel {

namespace {

// A text, a number or a truth, as text.
struct Property {
    const char* name;
    std::string value;
    bool isText = false;
};

bool IsWritable(const Coverage& coverage) {
    const ModelInputs& path = coverage.path;
    const Goal& goal = coverage.goal;
    const auto numbers = {path.f, path.hb, path.hm, path.pctTime, goal.value, goal.powerWatts};
    return IsValid(coverage.station) &&
           std::all_of(numbers.begin(), numbers.end(), [](double x) { return std::isfinite(x); }) &&
           std::all_of(coverage.rings.begin(), coverage.rings.end(), [](const CoverageRing& ring) {
               return std::isfinite(ring.pctLoc) && ring.km >= SmallestRing &&
                      ring.km <= LargestRing;
           });
}

std::vector<Property> PropertiesOf(const Coverage& coverage, const CoverageRing& ring) {
    const ModelInputs& path = coverage.path;
    const Goal& goal = coverage.goal;
    const bool isLoss = goal.quantity == Quantity::Loss;
    std::vector<Property> properties = {
        {"model", ModelOf(ring.model).name, true},
        {"distance_km", ShortestText(std::round(ring.km * 1000.0) / 1000.0)},
        {"in_range", ring.inRange ? "true" : "false"},
        {"goal", isLoss ? "path loss" : "field strength", true},
        {"goal_value", ShortestText(goal.value)},
        {"goal_unit", isLoss ? "dB" : "dB(µV/m)", true},
        {"percent_locations", ShortestText(ring.pctLoc)},
        {"percent_time", ShortestText(path.pctTime)},
        {"frequency_mhz", ShortestText(path.f)},
        {"base_height_m", ShortestText(path.hb)},
        {"mobile_height_m", ShortestText(path.hm)},
        {"area", path.area, true},
        {"city", path.city, true},
        {"station_latitude", ShortestText(coverage.station.latitude)},
        {"station_longitude", ShortestText(coverage.station.longitude)},
    };
    if (!isLoss) properties.push_back({"power_w_erp", ShortestText(goal.powerWatts)});
    return properties;
}

std::string HexOf(unsigned value) {
    constexpr const char* Digits = "0123456789abcdef";
    return {Digits[value / 16 % 16], Digits[value % 16]};
}

// What each character becomes, in UTF-8 that is valid whatever the text is.
template <class Escape>
std::string Escaped(std::string_view text, Escape escape) {
    std::string escaped;
    while (!text.empty()) {
        const char32_t c = TakeUtf8(text);
        if (const std::string other = escape(c); !other.empty())
            escaped += other;
        else
            AppendUtf8(escaped, c);
    }
    return escaped;
}

std::string JsonText(std::string_view text) {
    return '"' +
           Escaped(text,
                   [](char32_t c) -> std::string {
                       if (c == U'"' || c == U'\\') return {'\\', static_cast<char>(c)};
                       return c < 0x20 ? "\\u00" + HexOf(c) : "";
                   }) +
           '"';
}

// XML has no way to write most control characters, nor two at the end of the first plane.
std::string XmlText(std::string_view text) {
    return Escaped(text, [](char32_t c) -> std::string {
        if (c == U'&') return "&amp;";
        if (c == U'<') return "&lt;";
        if (c == U'>') return "&gt;";
        if (c == U'\r') return "&#13;";
        const bool isNone = c < 0x20 && c != U'\t' && c != U'\n';
        return isNone || c == 0xFFFE || c == 0xFFFF ? " " : "";
    });
}

std::string JsonValue(const Property& property) {
    return property.isText ? JsonText(property.value) : property.value;
}

std::string DegreesText(std::int64_t position) {
    return ShortestText(static_cast<double>(position) / PositionsPerDegree);
}

// The positions of a ring, each as "longitude,latitude" between two texts.
std::string PositionsText(const PolygonRing& ring, const char* before, const char* after,
                          char between) {
    std::string text;
    for (const Position& position : ring) {
        if (!text.empty()) text += between;
        text +=
            before + DegreesText(position.longitude) + ',' + DegreesText(position.latitude) + after;
    }
    return text;
}

std::string JsonGeometry(const std::vector<PolygonRing>& polygons) {
    std::string coordinates;
    for (const PolygonRing& ring : polygons) {
        if (!coordinates.empty()) coordinates += ',';
        coordinates += "[[" + PositionsText(ring, "[", "]", ',') + "]]";
    }
    if (polygons.size() == 1) return R"({"type":"Polygon","coordinates":)" + coordinates + '}';
    return R"({"type":"MultiPolygon","coordinates":[)" + coordinates + "]}";
}

std::string JsonFeature(const Coverage& coverage, const CoverageRing& ring) {
    std::string properties;
    for (const Property& property : PropertiesOf(coverage, ring)) {
        if (!properties.empty()) properties += ',';
        properties += JsonText(property.name) + ':' + JsonValue(property);
    }
    return R"({"type":"Feature","properties":{)" + properties + R"(},"geometry":)" +
           JsonGeometry(GeodesicCircle(coverage.station, ring.km)) + '}';
}

// Colours of KML are of opacity, blue, green and red.
std::string KmlColor(const Model& model, unsigned opacity) {
    return "<color>" + HexOf(opacity) + HexOf(model.color.blue) + HexOf(model.color.green) +
           HexOf(model.color.red) + "</color>";
}

std::string KmlGeometry(const std::vector<PolygonRing>& polygons) {
    std::string text;
    for (const PolygonRing& ring : polygons)
        text += "<Polygon><tessellate>1</tessellate><outerBoundaryIs><LinearRing><coordinates>" +
                PositionsText(ring, "", "", ' ') +
                "</coordinates></LinearRing></outerBoundaryIs></Polygon>\n";
    return polygons.size() == 1 ? text : "<MultiGeometry>\n" + text + "</MultiGeometry>\n";
}

std::string KmlPlacemark(const Coverage& coverage, const CoverageRing& ring) {
    const Model& model = ModelOf(ring.model);
    std::string text = "<Placemark>\n<name>" + XmlText(model.name) + ", " +
                       ShortestText(ring.pctLoc) + " % of locations</name>\n<Style><LineStyle>" +
                       KmlColor(model, 0xFF) + "<width>2</width></LineStyle><PolyStyle>" +
                       KmlColor(model, 0x33) + "</PolyStyle></Style>\n<ExtendedData>\n";
    for (const Property& property : PropertiesOf(coverage, ring))
        text += "<Data name=\"" + std::string(property.name) + "\"><value>" +
                XmlText(property.value) + "</value></Data>\n";
    return text + "</ExtendedData>\n" + KmlGeometry(GeodesicCircle(coverage.station, ring.km)) +
           "</Placemark>\n";
}

}  // namespace

Coverage CoverageOf(const ReachTable& table, const Place& station) {
    Coverage coverage{station, MetricInputs(table.path), table.goal, {}};
    for (const ReachTable::Row& row : table.rows)
        for (std::size_t i = 0; i < row.reaches.size(); ++i)
            if (const Reach& reach = row.reaches.at(i); reach.km > 0.0)
                coverage.rings.push_back(
                    {row.model, table.percentages.at(i), reach.km, reach.inRange});
    return coverage;
}

std::optional<std::string> CoverageGeoJson(const Coverage& coverage) {
    if (!IsWritable(coverage)) return std::nullopt;
    std::string features;
    for (const CoverageRing& ring : coverage.rings) {
        if (!features.empty()) features += ",\n";
        features += JsonFeature(coverage, ring);
    }
    return R"({"type":"FeatureCollection","features":[)"
           "\n" +
           features + "\n]}\n";
}

std::optional<std::string> CoverageKml(const Coverage& coverage) {
    if (!IsWritable(coverage)) return std::nullopt;
    std::string text = R"(<?xml version="1.0" encoding="UTF-8"?>)"
                       "\n"
                       R"(<kml xmlns="http://www.opengis.net/kml/2.2">)"
                       "\n<Document>\n<name>Coverage</name>\n";
    for (const CoverageRing& ring : coverage.rings) text += KmlPlacemark(coverage, ring);
    return text + "</Document>\n</kml>\n";
}

}  // namespace vardel
