#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "controls/Controls.h"

// Power is entered in one of four units and held in watts.

namespace vardel {

enum PowerUnitNumber : int { UnitWatts = 0, UnitKilowatts = 1, UnitDbm = 2, UnitDbw = 3 };

// For the lists of power units.
std::vector<ComboBox::Item> PowerUnitEntries();

// The power in watts that the leading number of a text means in the unit; 0 for an unknown unit.
double PowerTextToWatts(std::string_view text, int unit);

// The power as a box shows it in the unit: watts and kilowatts to twelve places, levels to four.
std::string PowerText(double watts, int unit);

// What becomes of a power text when its box is left: its leading number behind a blank in the place
// of the sign, or behind the sign. What is no power in the unit becomes 1.
std::string CorrectedPowerText(std::string_view text, int unit);

}  // namespace vardel
