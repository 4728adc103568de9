#include "map/CoverageRings.h"

#include <algorithm>
#include <cmath>

#include "map/CoverageProperties.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

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

std::vector<FeatureProperty> PropertiesOf(const Coverage& coverage, const CoverageRing& ring) {
    ModelInputs path = coverage.path;
    path.pctLoc = ring.pctLoc;
    std::vector<FeatureProperty> properties = {
        {"model", ModelOf(ring.model).name, true},
        {"distance_km", ShortestText(std::round(ring.km * 1000.0) / 1000.0)},
        {"in_range", ring.inRange ? "true" : "false"}};
    AddInputs(properties, coverage.goal, path, BaseHeight::Told, coverage.station);
    AddPower(properties, coverage.goal);
    return properties;
}

std::vector<MapFeature> FeaturesOf(const Coverage& coverage) {
    std::vector<MapFeature> features;
    for (const CoverageRing& ring : coverage.rings)
        features.push_back({FeatureName(ring.model, ring.pctLoc), ring.model,
                            PropertiesOf(coverage, ring),
                            GeodesicCircle(coverage.station, ring.km)});
    return features;
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
    return GeoJsonOf(FeaturesOf(coverage));
}

std::optional<std::string> CoverageKml(const Coverage& coverage) {
    if (!IsWritable(coverage)) return std::nullopt;
    return KmlOf(FeaturesOf(coverage), "Coverage");
}

}  // namespace vardel
