#pragma once

namespace vardel {

// What the user enters distances and heights in: km and m, or miles and feet.
enum class Units { Metric, English };

// The factors between English and metric units, everywhere in the program the same.
constexpr double KmPerMile = 1.6093;
constexpr double MetresPerFoot = 0.3048;

constexpr double KmPerDistance(Units units) { return units == Units::English ? KmPerMile : 1.0; }
constexpr double MetresPerHeight(Units units) {
    return units == Units::English ? MetresPerFoot : 1.0;
}

constexpr const char* DistanceUnit(Units units) { return units == Units::English ? "miles" : "km"; }
constexpr const char* HeightUnit(Units units) { return units == Units::English ? "ft" : "m"; }

}  // namespace vardel
