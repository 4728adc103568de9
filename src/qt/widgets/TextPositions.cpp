#include "qt/widgets/TextPositions.h"

#include <algorithm>

namespace vardel {

namespace {

// Past one character: a line end, or the bytes of a code point.
void Step(std::string_view text, TextPosition& at) {
    const auto first = static_cast<unsigned char>(text[at.bytes]);
    if (first < 0x80 && first != '\r') {
        ++at.bytes;
        ++at.units;
        return;
    }
    const bool lineEnd = first == '\r' && text.substr(at.bytes + 1, 1) == "\n";
    const std::size_t length = lineEnd        ? 2
                               : first < 0xC0 ? 1
                               : first < 0xE0 ? 2
                               : first < 0xF0 ? 3
                                              : 4;
    at.bytes = std::min(at.bytes + length, text.size());
    at.units += length == 4 ? 2 : 1;
}

}  // namespace

TextPosition AdvanceToBytes(std::string_view text, TextPosition from, std::size_t bytes) {
    while (from.bytes < bytes && from.bytes < text.size()) Step(text, from);
    return from;
}

TextPosition AdvanceToUnits(std::string_view text, TextPosition from, int units) {
    while (from.units < units && from.bytes < text.size()) Step(text, from);
    return from;
}

}  // namespace vardel
