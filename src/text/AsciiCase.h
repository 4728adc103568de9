#pragma once

#include <algorithm>
#include <string>
#include <string_view>

// The case of the letters A to Z, the same in every locale. Other characters have none.

namespace vardel {

constexpr char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

constexpr char Upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

inline std::string LowerCase(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), Lower);
    return lower;
}

constexpr bool SameLetter(char a, char b) { return Lower(a) == Lower(b); }

constexpr bool SameButForCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), SameLetter);
}

}  // namespace vardel
