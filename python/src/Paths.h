#pragma once

#include <cmath>
#include <limits>
#include <optional>

#include "Names.h"
#include "Ufuncs.h"
#include "models/ModelInputs.h"

// Paths as the columns of universal functions, and as single values.

namespace vardel::python {

inline constexpr double NoNumber = std::numeric_limits<double>::quiet_NaN();

// The name of a code; nothing for MissingCode and for codes of no name.
template <std::size_t Count>
const char* NameOf(const std::array<const char*, Count>& names, int code) noexcept {
    const auto place = static_cast<std::size_t>(code);
    return place < Count ? names[place] : nullptr;
}

// Where a path's arguments stand among the columns; Absent: the function has none.
struct PathPlaces {
    static constexpr std::size_t Absent = MostArguments;
    std::size_t frequency, distance, baseHeight, mobileHeight, area, city, percentTime,
        percentLocations;
};

// The path of element i. False where its area or city is missing.
inline bool ReadPath(const Columns& columns, const PathPlaces& at, std::size_t i, ModelInputs& in) {
    const auto number = [&](std::size_t place) {
        return place == PathPlaces::Absent ? 1.0 : columns[place].Number(i);
    };
    const char* const area = NameOf(AreaNames, columns[at.area].Code(i));
    const char* const city = NameOf(CityNames, columns[at.city].Code(i));
    if (area == nullptr || city == nullptr) return false;
    in.f = number(at.frequency);
    in.d = number(at.distance);
    in.hb = number(at.baseHeight);
    in.hm = number(at.mobileHeight);
    in.area = area;
    in.city = city;
    in.pctTime = number(at.percentTime);
    in.pctLoc = number(at.percentLocations);
    return true;
}

}  // namespace vardel::python
