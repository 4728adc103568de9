#pragma once

#include <vector>

#include "controls/Controls.h"
#include "engine/PowerUnits.h"

namespace vardel {

// The entries of a list of power units, each with its unit as item data.
inline std::vector<ComboBox::Item> PowerUnitEntries() {
    std::vector<ComboBox::Item> entries;
    entries.reserve(PowerUnits.size());
    for (const auto& [unit, name] : PowerUnits) entries.push_back({name, static_cast<int>(unit)});
    return entries;
}

inline PowerUnit SelectedPowerUnit(const ComboBox& list) {
    return static_cast<PowerUnit>(list.SelectedItemData());
}

}  // namespace vardel
