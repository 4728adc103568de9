#pragma once

#include <string_view>

// Windows code page 1252, the 8-bit characters of rich text and of metafiles.

namespace vardel {

// The characters 0x80 to 0x9F; the rest is Latin-1. The five holes stay what they are.
inline constexpr std::u32string_view Windows1252Middle =
    U"\u20AC\x81\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152\x8D\u017D\x8F"
    U"\x90\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A\u0153\x9D\u017E"
    U"\u0178";

constexpr char32_t FromWindows1252(unsigned char byte) {
    return byte >= 0x80 && byte < 0xA0 ? Windows1252Middle[byte - 0x80U] : byte;
}

// A question mark for each character that the page lacks.
constexpr char ToWindows1252(char32_t c) {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<char>(c);
    if (c == U'\u03BC') return static_cast<char>(0xB5);  // the Greek letter looks like the prefix
    if (c == U'\u2212') return '-';
    const std::size_t at = Windows1252Middle.find(c);
    return at == std::u32string_view::npos ? '?' : static_cast<char>(0x80 + at);
}

}  // namespace vardel
