#include "map/MapFeatures.h"

#include "text/JsonText.h"
#include "text/NumberText.h"
#include "text/Utf8.h"

namespace vardel {

namespace {

std::string HexOf(unsigned value) {
    constexpr const char* Digits = "0123456789abcdef";
    return {Digits[value / 16 % 16], Digits[value % 16]};
}

// In UTF-8 that is valid whatever the text is. XML has no way to write most control characters, nor
// two at the end of the first plane.
std::string XmlText(std::string_view text) {
    std::string escaped;
    while (!text.empty()) {
        const char32_t c = TakeUtf8(text);
        const bool isNone = c < 0x20 && c != U'\t' && c != U'\n' && c != U'\r';
        if (c == U'&')
            escaped += "&amp;";
        else if (c == U'<')
            escaped += "&lt;";
        else if (c == U'>')
            escaped += "&gt;";
        else if (c == U'\r')
            escaped += "&#13;";
        else
            AppendUtf8(escaped, isNone || c == 0xFFFE || c == 0xFFFF ? U' ' : c);
    }
    return escaped;
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
    if (polygons.empty()) return "null";
    std::string coordinates;
    for (const PolygonRing& ring : polygons) {
        if (!coordinates.empty()) coordinates += ',';
        coordinates += "[[" + PositionsText(ring, "[", "]", ',') + "]]";
    }
    if (polygons.size() == 1) return R"({"type":"Polygon","coordinates":)" + coordinates + '}';
    return R"({"type":"MultiPolygon","coordinates":[)" + coordinates + "]}";
}

std::string JsonFeature(const MapFeature& feature) {
    std::string text = R"({"type":"Feature","properties":)";
    JsonObject properties(text);
    for (const auto& [name, value, isText] : feature.properties)
        isText ? properties.Text(name, value) : properties.Raw(name, value);
    properties.End();
    return text + R"(,"geometry":)" + JsonGeometry(feature.polygons) + '}';
}

// Colours of KML are of opacity, blue, green and red.
std::string KmlColor(const Model& model, unsigned opacity) {
    return "<color>" + HexOf(opacity) + HexOf(model.color.blue) + HexOf(model.color.green) +
           HexOf(model.color.red) + "</color>";
}

std::string KmlGeometry(const std::vector<PolygonRing>& polygons) {
    if (polygons.empty()) return {};
    std::string text;
    for (const PolygonRing& ring : polygons)
        text += "<Polygon><tessellate>1</tessellate><outerBoundaryIs><LinearRing><coordinates>" +
                PositionsText(ring, "", "", ' ') +
                "</coordinates></LinearRing></outerBoundaryIs></Polygon>\n";
    return polygons.size() == 1 ? text : "<MultiGeometry>\n" + text + "</MultiGeometry>\n";
}

std::string KmlPlacemark(const MapFeature& feature) {
    const Model& model = ModelOf(feature.model);
    std::string text = "<Placemark>\n<name>" + XmlText(feature.name) +
                       "</name>\n<Style><LineStyle>" + KmlColor(model, 0xFF) +
                       "<width>2</width></LineStyle><PolyStyle>" + KmlColor(model, 0x33) +
                       "</PolyStyle></Style>\n<ExtendedData>\n";
    for (const FeatureProperty& property : feature.properties)
        text += "<Data name=\"" + std::string(property.name) + "\"><value>" +
                XmlText(property.value) + "</value></Data>\n";
    return text + "</ExtendedData>\n" + KmlGeometry(feature.polygons) + "</Placemark>\n";
}

}  // namespace

std::string GeoJsonOf(const std::vector<MapFeature>& features) {
    std::string text;
    for (const MapFeature& feature : features) {
        if (!text.empty()) text += ",\n";
        text += JsonFeature(feature);
    }
    return R"({"type":"FeatureCollection","features":[)"
           "\n" +
           text + "\n]}\n";
}

std::string KmlOf(const std::vector<MapFeature>& features, const std::string& documentName) {
    std::string text = R"(<?xml version="1.0" encoding="UTF-8"?>)"
                       "\n"
                       R"(<kml xmlns="http://www.opengis.net/kml/2.2">)"
                       "\n<Document>\n<name>" +
                       XmlText(documentName) + "</name>\n";
    for (const MapFeature& feature : features) text += KmlPlacemark(feature);
    return text + "</Document>\n</kml>\n";
}

}  // namespace vardel
