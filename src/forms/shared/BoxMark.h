#pragma once

#include <optional>

#include "controls/Controls.h"

// Boxes whose mistakes are shown in them, by no message.

namespace vardel {

// A threshold, or what a service wants: dB, dBm or dB(µV/m).
constexpr double LowestWanted = -300.0;
constexpr double HighestWanted = 400.0;
constexpr const char* WantedRule = "The wanted value must be a number from -300 to 400.";

// Marks a box that is not good, and says why to those who do not see it. Gives back whether it is.
bool MarkBox(TextBox& box, bool good, const char* what);

// The box's number; nothing, with the box marked, where it is none between the limits.
std::optional<double> ReadMarked(TextBox& box, double low, double high, const char* rule);

}  // namespace vardel
