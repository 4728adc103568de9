#include "engine/PathText.h"

#include "text/NumberText.h"

namespace vardel {

std::string DistanceText(const PathInputs& path) {
    return ShortestText(path.distance) + ' ' + DistanceUnit(path.units);
}

std::string PercentText(double percentage) { return ShortestText(percentage) + " %"; }

namespace {

std::string TextOf(const PathInputs& path, const std::string& baseHeight) {
    std::string text = ShortestText(path.frequency) + " MHz, hb " + baseHeight + ", hm " +
                       ShortestText(path.hm) + ' ' + HeightUnit(path.units) + ", " + path.area;
    if (Trimmed(path.area) == "Urban") text += ", " + path.city;
    return text + ", " + ShortestText(path.powerWatts) + " W e.r.p., " + PercentText(path.pctTime) +
           " of time";
}

}  // namespace

std::string PathText(const PathInputs& path) {
    return TextOf(path, ShortestText(path.hb) + ' ' + HeightUnit(path.units));
}

std::string StationText(const PathInputs& path) { return TextOf(path, "by azimuth"); }

}  // namespace vardel
