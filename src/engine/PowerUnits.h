#pragma once

#include <array>
#include <string>
#include <string_view>

// Power is entered in one of four units and held in watts.

namespace vardel {

enum class PowerUnit : int { Watts = 0, Kilowatts = 1, Dbm = 2, Dbw = 3 };

// A unit with its name in lists.
struct NamedPowerUnit {
    PowerUnit unit;
    const char* name;
};

// In the order in which lists show them.
inline constexpr std::array<NamedPowerUnit, 4> PowerUnits = {{
    {PowerUnit::Watts, "W e.r.p."},
    {PowerUnit::Kilowatts, "kW e.r.p."},
    {PowerUnit::Dbm, "dBm"},
    {PowerUnit::Dbw, "dBw"},
}};

// The power in watts that a number means in the unit, and the other way about; 0 for an unknown
// unit.
double WattsOf(double x, PowerUnit unit) noexcept;
double FromWatts(double watts, PowerUnit unit) noexcept;

// The power in watts that the leading number of a text means in the unit; 0 for an unknown unit. A
// level beyond all that a double holds is the largest or smallest power that it does.
double PowerTextToWatts(std::string_view text, PowerUnit unit);

// The power as a box shows it in the unit: watts and kilowatts to twelve places, levels to four.
std::string PowerText(double watts, PowerUnit unit);

// What becomes of a power text when its box is left: its leading number behind a blank in the place
// of the sign, or behind the sign. Watts and kilowatts that are not above zero become 1; every
// number is a level.
std::string CorrectedPowerText(std::string_view text, PowerUnit unit);

}  // namespace vardel
