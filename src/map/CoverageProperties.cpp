#include "map/CoverageProperties.h"

#include "text/NumberText.h"

namespace vardel {

void AddInputs(std::vector<FeatureProperty>& properties, const Goal& goal, const ModelInputs& path,
               BaseHeight baseHeight, const Place& station) {
    const bool isLoss = goal.quantity == Quantity::Loss;
    const auto add = [&](const char* name, std::string value, bool isText = false) {
        properties.push_back({name, std::move(value), isText});
    };
    add("goal", isLoss ? "path loss" : "field strength", true);
    add("goal_value", ShortestText(goal.value));
    add("goal_unit", isLoss ? "dB" : "dB(µV/m)", true);
    add("percent_locations", ShortestText(path.pctLoc));
    add("percent_time", ShortestText(path.pctTime));
    add("frequency_mhz", ShortestText(path.f));
    if (baseHeight == BaseHeight::Told) add("base_height_m", ShortestText(path.hb));
    add("mobile_height_m", ShortestText(path.hm));
    add("area", path.area, true);
    add("city", path.city, true);
    add("station_latitude", ShortestText(station.latitude));
    add("station_longitude", ShortestText(station.longitude));
}

void AddPower(std::vector<FeatureProperty>& properties, const Goal& goal) {
    if (goal.quantity == Quantity::FieldStrength)
        properties.push_back({"power_w_erp", ShortestText(goal.powerWatts)});
}

std::string FeatureName(ModelNumber model, double pctLoc) {
    return std::string(ModelOf(model).name) + ", " + ShortestText(pctLoc) + " % of locations";
}

}  // namespace vardel
