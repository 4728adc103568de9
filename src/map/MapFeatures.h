#pragma once

#include <string>
#include <vector>

#include "map/GeodesicCircle.h"
#include "models/Model.h"

// Polygons with what is known of them, as maps and geographic information systems read them.

namespace vardel {

// A text in UTF-8, or a number or a truth as text.
struct FeatureProperty {
    const char* name;
    std::string value;
    bool isText = false;
};

// A model's polygons, drawn in its colour.
struct MapFeature {
    std::string name;
    ModelNumber model;
    std::vector<FeatureProperty> properties;
    std::vector<PolygonRing> polygons;  // none: the feature is no place
};

// A GeoJSON FeatureCollection (RFC 7946) and a KML 2.2 document, in UTF-8. The document's name is
// plain text.
std::string GeoJsonOf(const std::vector<MapFeature>& features);
std::string KmlOf(const std::vector<MapFeature>& features, const std::string& documentName);

}  // namespace vardel
