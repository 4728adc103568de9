#pragma once

#include <array>
#include <limits>

#include "Names.h"
#include "Ufuncs.h"
#include "models/ModelInputs.h"

// Paths as the columns of universal functions, and as single values.

namespace vardel::python {

inline constexpr double NoNumber = std::numeric_limits<double>::quiet_NaN();

// Where a path's arguments stand among the columns; Absent: the function has none.
struct PathPlaces {
    static constexpr std::size_t Absent = MostArguments;
    std::size_t frequency, distance, baseHeight, mobileHeight, area, city, percentTime,
        percentLocations;
};

// One behind the other from the first on, but for one that is absent.
constexpr PathPlaces PlacesFrom(std::size_t first, std::size_t PathPlaces::*absent = nullptr) {
    PathPlaces places{};
    for (const auto place : {&PathPlaces::frequency, &PathPlaces::distance, &PathPlaces::baseHeight,
                             &PathPlaces::mobileHeight, &PathPlaces::area, &PathPlaces::city,
                             &PathPlaces::percentTime, &PathPlaces::percentLocations})
        places.*place = place == absent ? PathPlaces::Absent : first++;
    return places;
}

// The paths of a row. Their texts are made once.
class PathReader {
public:
    explicit PathReader(const PathPlaces& places) : at_(places) {
        for (std::size_t area = 0; area < AreaNames.size(); ++area)
            for (std::size_t city = 0; city < CityNames.size(); ++city) {
                paths_[area][city].area = AreaNames[area];
                paths_[area][city].city = CityNames[city];
            }
    }

    // The path of element i, until the next is read; null where its area or city is missing.
    const ModelInputs* Read(const Columns& columns, std::size_t i) {
        const auto number = [&](std::size_t place) {
            return place == PathPlaces::Absent ? 1.0 : columns[place].Number(i);
        };
        const auto area = static_cast<std::size_t>(columns[at_.area].Code(i));
        const auto city = static_cast<std::size_t>(columns[at_.city].Code(i));
        if (area >= paths_.size() || city >= paths_[area].size()) return nullptr;
        ModelInputs& in = paths_[area][city];
        in.f = number(at_.frequency);
        in.d = number(at_.distance);
        in.hb = number(at_.baseHeight);
        in.hm = number(at_.mobileHeight);
        in.pctTime = number(at_.percentTime);
        in.pctLoc = number(at_.percentLocations);
        return &in;
    }

private:
    PathPlaces at_;
    std::array<std::array<ModelInputs, CityNames.size()>, AreaNames.size()> paths_;
};

}  // namespace vardel::python
