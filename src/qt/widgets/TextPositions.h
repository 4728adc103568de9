#pragma once

#include <QString>
#include <string_view>

namespace vardel {

// A rich text counts bytes and has two for a line end; a text document counts UTF-16 units and has
// one. These walk through the text from one to the other.

struct TextPosition {
    std::size_t bytes = 0;
    int units = 0;
};

// A stretch of a document, in units.
struct TextPlace {
    int from = 0;
    int to = 0;
};

// Goes on from a position to the one with so many bytes.
TextPosition AdvanceToBytes(std::string_view text, TextPosition from, std::size_t bytes);
TextPosition AdvanceToUnits(std::string_view text, TextPosition from, int units);

}  // namespace vardel
