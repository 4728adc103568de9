#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "engine/PathInputs.h"

// The inputs of a path as a line of plain text, which files carry so that the inputs can be had
// back.

namespace vardel {

// All but the distance: a mark, then name=value pairs separated by blanks. Heights stand in metres
// and in feet, the power in watts, numbers with a decimal point and all their digits. No character
// of it has a meaning in XML, PDF or CSV.
std::string PathRecord(const PathInputs& path);

// Of the first record in the text, in the units that its user had. Nothing where there is none, or
// where a value is missing, is none or is beyond what the main window's boxes take.
std::optional<PathInputs> PathOfRecord(std::string_view text);

}  // namespace vardel
