#pragma once

#include <pybind11/pybind11.h>

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "engine/PathInputs.h"
#include "models/Model.h"
#include "models/Primitives.h"

// How Python names what the house has as values.

namespace vardel::python {

namespace py = pybind11;

// The names that an argument may have. A name's place in the list is its code.
struct NameList {
    const char* argument;
    std::span<const char* const> names;
    // The place of a text in names, or their number; null: case and blanks count.
    std::size_t (*find)(std::string_view text) noexcept = nullptr;
};

// The code of a text that is missing in a table.
inline constexpr int MissingCode = -1;

// The place of a text in the list. Throws ValueError for another text and TypeError for what is no
// text.
std::size_t PlaceOf(py::handle text, const NameList& list);

// In the order of ModelNumber; the functions of a model begin with its name.
inline constexpr std::array<const char*, 4> ModelNames = {"itu529", "davidson", "cost231", "us"};

inline std::size_t FindArea(std::string_view text) noexcept {
    return static_cast<std::size_t>(AreaOfUntrimmed(text));
}

// In the order of PowerUnit.
inline constexpr std::array<const char*, 4> UnitNames = {"W", "kW", "dBm", "dBW"};

inline constexpr NameList ModelList{"model", ModelNames};
inline constexpr NameList AreaList{"area", AreaNames, FindArea};
inline constexpr NameList CityList{"city", CityNames};
inline constexpr NameList UnitList{"unit", UnitNames};

}  // namespace vardel::python
