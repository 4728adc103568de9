#pragma once

#include <string>

#include "richtext/RichText.h"

namespace vardel {

// The report log as a table: a row for each line of a calculation, with what was typed behind it,
// and one for each note. Numbers stand as in the log, in the units of their row. A model is out of
// range where the log underlines a result of it. Header lines and empty lines are left out, and so
// are pictures.
std::string LogCsv(const RichText& log);

}  // namespace vardel
