#pragma once

#include <string>
#include <string_view>

namespace vardel {

// Adds a field of a row of CSV, in quotes where RFC 4180 asks for them.
void AppendCsvField(std::string& row, std::string_view text, char delimiter = ',');

}  // namespace vardel
