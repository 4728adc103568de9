#include "cli/options/CoverageOptions.h"

#include <sstream>

#include "cli/options/PathFields.h"
#include "text/NumberText.h"

namespace vardel::cli {

std::optional<CoverageBounds> BoundsOf(const std::string& text, std::optional<std::string>& wrong) {
    std::istringstream words(text);
    std::vector<double> numbers;
    for (std::string word; words >> word;) {
        if (word.back() == ',') word.pop_back();
        numbers.push_back(WholeTextNumber(word).value_or(1e9));
    }
    if (numbers.size() == 4) {
        const CoverageBounds bounds{numbers[0], numbers[1], numbers[2], numbers[3]};
        if (IsValid({bounds.south, bounds.west}) && IsValid({bounds.north, bounds.east}) &&
            bounds.south < bounds.north && bounds.west != bounds.east)
            return bounds;
    }
    wrong = Shown(text) + " is not south, west, north and east in degrees, such as '49 5 50 6.5'";
    return std::nullopt;
}

}  // namespace vardel::cli
