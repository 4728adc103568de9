#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "text/CalendarTime.h"

// The one place where numbers become text and text becomes numbers. The decimal point is a point
// in every locale. Texts are built from the up to 15 significant decimal digits of a number, so
// that rounding goes by the digits that a person sees: 2.675 at two places is 2.68.

namespace vardel {

// The shortest decimal text: no exponent, no needless zeros, no point without decimals (0.5, 100).
std::string ShortestText(double x);

// The number by a pattern such as "#####0.0###" or "00%". A 0 is a place always filled, a # one
// filled only if needed; behind the point the number is rounded, halves away from zero. A % shows
// the hundredfold. A negative number gets its sign ahead of the places; zero has none, also one
// that was rounded to zero. Places before the point never cut a number off.
std::string FormatNumber(double x, std::string_view pattern);

// A text by a pattern of character places such as "@@@@@@@@!": filled from the left, blanks behind.
// A longer text stays whole.
std::string FormatText(std::string_view text, std::string_view pattern);

// "mm/dd/yyyy hh:mm am" or "pm", on the 12-hour clock.
std::string FormatDateTime(const CalendarTime& time);

// The number in a text made by FormatNumber, in its shortest form, set to the right end of a field
// as wide as that text; a minus sign takes a place of the field. A longer number is cut to the
// width.
std::string FixedWidthNumber(std::string_view text);

// The number, or the largest there is in place of an infinite one, so that its text is a number.
double Finite(double x);

// The text without the blanks around it.
std::string_view Trimmed(std::string_view text);

// The number that a text begins with, blanks anywhere in it skipped; 0 when there is none. A number
// too large for a double is the largest one.
double LeadingNumber(std::string_view text);

// The number that a whole text is, blanks around it aside; nothing when it is anything else.
std::optional<double> WholeTextNumber(std::string_view text);

}  // namespace vardel
