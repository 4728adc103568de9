#pragma once

#include <array>
#include <string>

#include "engine/Units.h"
#include "models/ModelInputs.h"

namespace vardel {

// As the models know them, in the order of Area and City.
inline constexpr std::array<const char*, 3> AreaNames = {"Urban", "Suburban", "Open"};
inline constexpr std::array<const char*, 2> CityNames = {"Small/Medium", "Large"};

// The inputs of one path in the units that the user entered them in.
struct PathInputs {
    double distance = 0.0;   // km or miles
    double frequency = 0.0;  // MHz
    double hb = 0.0;         // base antenna height, m or ft
    double hm = 0.0;         // mobile antenna height, m or ft
    Units units = Units::Metric;
    std::string area;
    std::string city;
    double pctTime = 50.0;  // percent of time, 50 meaning 50 %
    double pctLoc = 50.0;   // percent of locations
    double powerWatts = 1000.0;
};

// What the models take of a path: the same in metric units.
inline ModelInputs MetricInputs(const PathInputs& path) {
    return {.f = path.frequency,
            .d = path.distance * KmPerDistance(path.units),
            .hb = path.hb * MetresPerHeight(path.units),
            .hm = path.hm * MetresPerHeight(path.units),
            .area = path.area,
            .city = path.city,
            .pctTime = path.pctTime,
            .pctLoc = path.pctLoc};
}

}  // namespace vardel
