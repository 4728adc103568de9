#include "engine/PathText.h"

#include "text/NumberText.h"

namespace vardel {

std::string DistanceText(const PathInputs& path) {
    return ShortestText(path.distance) + ' ' + DistanceUnit(path.units);
}

std::string PercentText(double percentage) { return ShortestText(percentage) + " %"; }

std::string PathText(const PathInputs& path) {
    const std::string height = std::string(" ") + HeightUnit(path.units);
    std::string text = ShortestText(path.frequency) + " MHz, hb " + ShortestText(path.hb) + height +
                       ", hm " + ShortestText(path.hm) + height + ", " + path.area;
    if (Trimmed(path.area) == "Urban") text += ", " + path.city;
    return text + ", " + ShortestText(path.powerWatts) + " W e.r.p., " + PercentText(path.pctTime) +
           " of time";
}

}  // namespace vardel
