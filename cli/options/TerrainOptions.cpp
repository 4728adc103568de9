#include "cli/options/TerrainOptions.h"

#include "cli/options/PathFields.h"
#include "text/NumberText.h"

namespace vardel::cli {

std::string DefinitionKeys() {
    std::string keys;
    for (const HeightDefinition& definition : HeightDefinitions)
        keys += (keys.empty() ? "" : ", ") + std::string(definition.key);
    return keys;
}

std::optional<Place> SiteOf(const std::string& text, std::optional<std::string>& wrong) {
    const auto place = ParsePlace(text);
    if (!place)
        wrong = Shown(text) + " is no latitude and longitude in degrees, such as '49.8, 6.1'";
    return place;
}

std::optional<HeightDefinition> DefinitionOf(const std::string& text,
                                             std::optional<std::string>& wrong) {
    if (const HeightDefinition* const known = FindHeightDefinition(text)) return *known;
    const std::size_t dash = text.find('-', 1);
    if (dash != text.npos) {
        const auto from = WholeTextNumber(text.substr(0, dash));
        const auto to = WholeTextNumber(text.substr(dash + 1));
        if (from && to && 0.0 <= *from && *from < *to && *to <= FarthestBound)
            return OwnHeightDefinition(*from, *to);
    }
    wrong = Shown(text) + " is not one of " + DefinitionKeys() +
            ", and no bounds in km from 0 to 300 such as 2-20";
    return std::nullopt;
}

std::optional<std::size_t> AzimuthsOf(const std::string& text, std::optional<std::string>& wrong) {
    return WholeNumberOrFault(text, FewestAzimuths, MostAzimuths, wrong);
}

}  // namespace vardel::cli
