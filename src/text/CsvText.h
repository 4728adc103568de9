#pragma once

#include <string>
#include <string_view>

namespace vardel {

// Adds a field of a row of CSV, in quotes where RFC 4180 asks for them. The delimiters between
// fields are the caller's.
void AppendCsvField(std::string& row, std::string_view text, char delimiter = ',');

}  // namespace vardel
