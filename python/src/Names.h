#pragma once

#include <array>

#include "Broadcast.h"
#include "models/Model.h"
#include "models/Primitives.h"

// How Python names what the house has as values.

namespace vardel::python {

// In the order of ModelNumber; the functions of a model begin with its name.
inline constexpr std::array<const char*, 4> ModelNames = {"itu529", "davidson", "cost231", "us"};

// In the order of Area, without the unknown one.
inline constexpr std::array<const char*, 3> AreaNames = {"Urban", "Suburban", "Open"};
inline std::size_t FindArea(std::string_view text) noexcept {
    return static_cast<std::size_t>(AreaOfUntrimmed(text));
}

inline constexpr std::array<const char*, 2> CityNames = {"Small/Medium", "Large"};

// In the order of PowerUnit.
inline constexpr std::array<const char*, 4> UnitNames = {"W", "kW", "dBm", "dBW"};

inline constexpr NameList ModelList{"model", ModelNames};
inline constexpr NameList AreaList{"area", AreaNames, FindArea};
inline constexpr NameList CityList{"city", CityNames};
inline constexpr NameList UnitList{"unit", UnitNames};

inline const Model& ModelNamed(py::handle name) { return Models.at(PlaceOf(name, ModelList)); }

// What the program's first start has in its boxes.
struct FirstStart {
    static constexpr double BaseHeight = 100.0;  // m
    static constexpr double MobileHeight = 1.5;  // m
    static constexpr const char* Area = "Urban";
    static constexpr const char* City = "Small/Medium";
    static constexpr double Percent = 50.0;
    static constexpr double Power = 1000.0;  // W e.r.p.
};

}  // namespace vardel::python
