#include "terrain/Contours.h"

#include <unordered_map>

namespace vardel {

ContourTable ContoursOf(EffectiveHeightTable heights, const ModelInputs& path, const Goal& goal) {
    ContourTable table{std::move(heights), path, goal, {}};
    for (const ModelNumber number : ComparedModels) {
        Contour contour{number, {}};
        contour.reaches.reserve(table.heights.radials.size());
        std::unordered_map<double, std::size_t> firstOfHeight;  // floors make many alike
        for (const RadialHeight& radial : table.heights.radials) {
            const auto [same, isNew] =
                firstOfHeight.try_emplace(radial.effectiveHeight, contour.reaches.size());
            ModelInputs in = path;
            in.hb = radial.effectiveHeight;
            contour.reaches.push_back(isNew ? ReachOf(ModelOf(number), in, goal)
                                            : contour.reaches[same->second]);
        }
        table.contours.push_back(std::move(contour));
    }
    return table;
}

}  // namespace vardel
