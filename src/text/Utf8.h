#pragma once

#include <string>
#include <string_view>

namespace vardel {

constexpr char32_t ReplacementCharacter = 0xFFFD;

// Takes the first character off the text, which is not empty. A byte that is no UTF-8 gives the
// replacement character.
char32_t TakeUtf8(std::string_view& text);

// Adds a character. A code point that no text may hold is put in as the replacement character.
void AppendUtf8(std::string& text, char32_t c);

}  // namespace vardel
