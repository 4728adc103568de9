#pragma once

#include <optional>
#include <string>

#include "controls/Controls.h"

namespace vardel {

// How a number box is put right when the focus leaves it. The limits are for the number as it
// stands in the box, in whatever units that shows.
struct BoxRule {
    double lowest;
    double highest;
    double replacement;
    const char* message;
    const char* pattern;  // of what is written back; null: the shortest text
};

// The pattern of the boxes for frequency, distance and heights.
constexpr const char* InputPattern = "#####0.0###";

// Reads the box's leading number; outside the limits it shows the message and takes the
// replacement. Writes the number back in any case.
void ApplyBoxRule(TextBox& box, const BoxRule& rule, Form& form);

std::string TrimmedText(const TextBox& box);
bool IsUrban(const ComboBox& area);

// Only an urban area knows large cities: elsewhere the list is disabled, on the small ones.
void ApplyAreaRule(const ComboBox& area, ComboBox& city);

// The whole text of the box as a number. Nothing, with a message that names the box by the caption
// of its label, when it is none.
std::optional<double> ReadNumberBox(const TextBox& box, const Label& caption, Form& form);
// As ReadNumberBox, and the number is above zero, as the models want it.
std::optional<double> ReadPositiveBox(const TextBox& box, const Label& caption, Form& form);
// As ReadPositiveBox, with no message.
std::optional<double> ReadPositiveBoxQuietly(const TextBox& box, const Label&, Form&);
using BoxReader = decltype(&ReadNumberBox);

}  // namespace vardel
