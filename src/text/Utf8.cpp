#include "text/Utf8.h"

namespace vardel {

namespace {

bool IsScalar(char32_t c) { return c <= 0x10FFFF && (c < 0xD800 || c > 0xDFFF); }

}  // namespace

char32_t TakeUtf8(std::string_view& text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char first = byte(0);
    std::size_t length = 1;
    char32_t c = first;
    char32_t smallest = 0;
    if (first >= 0xF0 && first < 0xF8) {
        length = 4, c = first & 0x07U, smallest = 0x10000;
    } else if (first >= 0xE0 && first < 0xF0) {
        length = 3, c = first & 0x0FU, smallest = 0x800;
    } else if (first >= 0xC0 && first < 0xE0) {
        length = 2, c = first & 0x1FU, smallest = 0x80;
    } else if (first >= 0x80) {
        c = ReplacementCharacter;
    }
    for (std::size_t i = 1; i < length; ++i) {
        if (i >= text.size() || (byte(i) & 0xC0U) != 0x80) {
            text.remove_prefix(1);
            return ReplacementCharacter;
        }
        c = (c << 6U) | (byte(i) & 0x3FU);
    }
    if (c < smallest || !IsScalar(c)) {
        text.remove_prefix(1);
        return ReplacementCharacter;
    }
    text.remove_prefix(length);
    return c;
}

void AppendUtf8(std::string& text, char32_t c) {
    if (!IsScalar(c)) c = ReplacementCharacter;
    const auto trail = [&](unsigned shift) {
        text += static_cast<char>(0x80U | ((c >> shift) & 0x3FU));
    };
    if (c < 0x80) {
        text += static_cast<char>(c);
    } else if (c < 0x800) {
        text += static_cast<char>(0xC0U | (c >> 6U));
        trail(0);
    } else if (c < 0x10000) {
        text += static_cast<char>(0xE0U | (c >> 12U));
        trail(6), trail(0);
    } else {
        text += static_cast<char>(0xF0U | (c >> 18U));
        trail(12), trail(6), trail(0);
    }
}

}  // namespace vardel
