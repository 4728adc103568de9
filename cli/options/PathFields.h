#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "engine/PathInputs.h"
#include "engine/PowerUnits.h"

// The inputs of a path one by one, as options and columns give them.

namespace vardel::cli {

// Which input.
enum class PathField {
    Frequency,
    Distance,
    BaseHeight,
    MobileHeight,
    PercentTime,
    PercentLocations,
    Power,
    Area,
    City
};
constexpr std::size_t PathFieldCount = 9;

// The path of the main window at its first start: 10 km at 450 MHz, 1 kW. Distance and heights are
// in the units.
PathInputs DefaultPath(Units units);

// Fills in what a text means. Distances and heights come with the factor, a power in the unit.
// Gives what is wrong with the text, in words behind its name; nothing: it was put in.
std::optional<std::string> SetPathField(PathInputs& path, PathField field, std::string_view text,
                                        double factor = 1.0, PowerUnit unit = PowerUnit::Watts);

// The text as a message shows it: in quotes, shortened, no control characters.
std::string Shown(std::string_view text);

// The number that a text is. What is wrong with it goes into wrong, such as "'x' is not a number".
std::optional<double> NumberOrFault(std::string_view text, std::optional<std::string>& wrong);
std::optional<std::size_t> WholeNumberOrFault(std::string_view text, std::size_t least,
                                              std::size_t most, std::optional<std::string>& wrong);

}  // namespace vardel::cli
