#pragma once

#include <string>
#include <vector>

namespace vardel {

// Lines of cells, the heads first.
using Cells = std::vector<std::vector<std::string>>;

// Columns apart by tabs, lines by line feeds.
std::string TabbedText(const Cells& cells);
// RFC 4180.
std::string CsvText(const Cells& cells);
// For ASCII, in a font of one width: the first column set to the left, the others to the right, two
// blanks between them.
std::string AlignedText(const Cells& cells);

}  // namespace vardel
