#include "terrain/ContourText.h"

#include <cmath>

#include "engine/reach/ReachTable.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

std::string Height(double metres, Units units) {
    return std::isnan(metres) ? "-" : FormatNumber(metres / MetresPerHeight(units), "0.0");
}

std::string WithUnit(double metres, Units units) {
    return Height(metres, units) + ' ' + HeightUnit(units);
}

}  // namespace

std::string AzimuthText(double degrees) {
    return ShortestText(std::round(100.0 * degrees) / 100.0);
}

std::vector<std::string> ContourLine(const ContourTable& table, std::size_t azimuth, Units units) {
    const RadialHeight& radial = table.heights.radials.at(azimuth);
    std::vector<std::string> line{AzimuthText(radial.azimuth), Height(radial.averageTerrain, units),
                                  Height(radial.effectiveHeight, units)};
    for (const Contour& contour : table.contours) {
        const Reach& reach = contour.reaches.at(azimuth);
        line.push_back(ReachText(reach, units) + (reach.Again() ? " +" : ""));
    }
    line.push_back(FormatNumber(100.0 * radial.seen, "0"));
    return line;
}

Cells ContourCells(const ContourTable& table, Units units) {
    const std::string inHeights = std::string(" (") + HeightUnit(units) + ')';
    const std::string inDistances = std::string(" (") + DistanceUnit(units) + ')';
    Cells cells{{"Azimuth", "Average terrain" + inHeights, "Effective height" + inHeights}};
    for (const Contour& contour : table.contours)
        cells.front().push_back(ModelOf(contour.model).name + inDistances);
    cells.front().push_back("Seen (%)");
    for (std::size_t i = 0; i < table.heights.radials.size(); ++i)
        cells.push_back(ContourLine(table, i, units));
    return cells;
}

std::string ContourRemark(const ContourTable& table, std::size_t azimuth, Units units) {
    const RadialHeight& radial = table.heights.radials.at(azimuth);
    if (radial.seen == 0.0) return "no elevation data in this direction";
    std::string remark;
    const auto add = [&remark](const std::string& more) {
        remark += (remark.empty() ? "" : "; ") + more;
    };
    if (radial.Floored())
        add(WithUnit(radial.aboveAverage, units) + " above average terrain counts as " +
            WithUnit(radial.effectiveHeight, units));
    for (const Contour& contour : table.contours) {
        const std::string more = ReachRemark(contour.reaches.at(azimuth));
        if (!more.empty()) add(std::string(ModelOf(contour.model).name) + " " + more);
    }
    return remark;
}

std::string ContourHead(const ContourTable& table, Units units) {
    const EffectiveHeightTable& heights = table.heights;
    const HeightDefinition& definition = heights.definition;
    std::string text =
        "Antenna " + WithUnit(heights.mast.antenna, units) + " above ground at " +
        ShortestText(heights.mast.site.latitude) + ' ' + ShortestText(heights.mast.site.longitude) +
        ", ground " + WithUnit(heights.ground, units) + "; average terrain " +
        ShortestText(definition.fromKm) + " to " + ShortestText(definition.toKm) + " km";
    if (!definition.source.empty()) text += " (" + std::string(definition.source) + ')';
    return text;
}

}  // namespace vardel
