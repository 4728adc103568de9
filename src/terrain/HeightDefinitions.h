#pragma once

#include <array>
#include <string_view>

// What is meant by the effective height of a base antenna: its height above sea level minus
// the ground's average along a part of the path.

namespace vardel {

// Where the average is taken, as a publication defines it.
struct HeightDefinition {
    std::string_view key;     // in options and files
    std::string_view name;    // for people
    std::string_view source;  // published
    double fromKm, toKm;      // of the radial, 0 <= fromKm < toKm
    int points;               // at least so many, equally spaced, both ends among them
    double floor;             // m; an effective height below it counts as this
    // A path that is shorter than toKm is averaged from this part of it to its end; 0: as any
    // other.
    double shortPathPart;
};

// The first is that of a contour, if no other is asked for.
inline constexpr std::array<HeightDefinition, 4> HeightDefinitions = {{
    {"3-16", "3 to 16 km, 50 points", "47 CFR 24.53 and 1.959; floor: 47 CFR 73.333", 3.0, 16.0, 50,
     30.0, 0.0},
    {"3-15", "3 to 15 km", "Hata 1980; ITU-R P.529", 3.0, 15.0, 50, 30.0, 0.0},
    {"3.2-16.1", "3.2 to 16.1 km (2 to 10 miles)", "Davidson; TIA TSB-88", 3.2, 16.1, 50, 20.0,
     0.0},
    {"p1546", "3 to 15 km, of a shorter path its last four fifths", "ITU-R P.1546, Annex 5", 3.0,
     15.0, 50, 20.0, 0.2},
}};

// Nothing for a key that is none of these.
constexpr const HeightDefinition* FindHeightDefinition(std::string_view key) {
    for (const HeightDefinition& definition : HeightDefinitions)
        if (definition.key == key) return &definition;
    return nullptr;
}

// Bounds of one's own, in km.
constexpr double FarthestBound = 300.0;
constexpr HeightDefinition OwnHeightDefinition(double fromKm, double toKm) {
    return {"own", "own bounds", "", fromKm, toKm, 50, 20.0, 0.0};
}

// Where the average of a path of that length in km is taken, above zero.
struct AverageBounds {
    double fromKm, toKm;
};
constexpr AverageBounds BoundsFor(const HeightDefinition& definition, double pathKm) {
    if (definition.shortPathPart > 0.0 && pathKm < definition.toKm)
        return {definition.shortPathPart * pathKm, pathKm};
    return {definition.fromKm, definition.toKm};
}

}  // namespace vardel
