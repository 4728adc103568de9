#include "map/CoverageRings.h"

#include <algorithm>
#include <cmath>

#include "map/MapFeatures.h"
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
    const ModelInputs& path = coverage.path;
    const Goal& goal = coverage.goal;
    const bool isLoss = goal.quantity == Quantity::Loss;
    std::vector<FeatureProperty> properties = {
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

std::vector<MapFeature> FeaturesOf(const Coverage& coverage) {
    std::vector<MapFeature> features;
    for (const CoverageRing& ring : coverage.rings)
        features.push_back({std::string(ModelOf(ring.model).name) + ", " +
                                ShortestText(ring.pctLoc) + " % of locations",
                            ring.model, PropertiesOf(coverage, ring),
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
