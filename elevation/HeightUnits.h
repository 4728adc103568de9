#pragma once

#include <array>
#include <optional>
#include <string_view>
#include <utility>

namespace vardel::elevation {

// Metres in a unit of heights, by the names that formats have for it; none stands for the metre.
constexpr std::optional<double> MetresPerHeightUnit(std::string_view unit) {
    constexpr double Foot = 0.3048;
    constexpr double SurveyFoot = 1200.0 / 3937.0;
    constexpr std::array<std::pair<std::string_view, double>, 21> Known = {{
        {"", 1.0},
        {"m", 1.0},
        {"metre", 1.0},
        {"metres", 1.0},
        {"meter", 1.0},
        {"meters", 1.0},
        {"Metre", 1.0},
        {"Meter", 1.0},
        {"Meters", 1.0},
        {"METERS", 1.0},
        {"cm", 0.01},
        {"ft", Foot},
        {"foot", Foot},
        {"feet", Foot},
        {"Feet", Foot},
        {"FEET", Foot},
        {"International Foot", Foot},
        {"us-ft", SurveyFoot},
        {"ftUS", SurveyFoot},
        {"US survey foot", SurveyFoot},
        {"Foot_US", SurveyFoot},
    }};
    for (const auto& [name, metres] : Known)
        if (name == unit) return metres;
    return std::nullopt;
}

}  // namespace vardel::elevation
