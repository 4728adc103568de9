#include "text/Utf8.h"

#include <gtest/gtest.h>

#include "text/Windows1252.h"

namespace vardel {
namespace {

// The ends of each length; then what is no UTF-8, each of whose bytes is replaced.
TEST(Utf8, TakenAndAppended) {
    const std::pair<std::string_view, std::u32string_view> cases[] = {
        {"\x7F\xC2\x80\xDF\xBF", U"\x7F\x80\u07FF"},
        {"\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF", U"\u0800\uD7FF\uE000\uFFFF"},
        {"\xF0\x90\x80\x80\xF0\x9D\x84\x9E\xF4\x8F\xBF\xBF", U"\U00010000\U0001D11E\U0010FFFF"},
        {"\x80\xC1\xBF", U"\uFFFD\uFFFD\uFFFD"},
        {"\xF1\x80\x80\x80", U"\U00040000"},
        {"\xE0\x9F\xBF\xED\xA0\x80", U"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"\xED\xBF\xBF\xF0\x8F\xBF\xBF", U"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"\xF4\x90\x80\x80\xF8", U"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"},
        {std::string_view("\xC3\xA9", 1), U"\uFFFD"},  // what lies behind a text is none of it
    };
    for (const auto& [bytes, characters] : cases) {
        std::u32string taken;
        for (std::string_view rest = bytes; !rest.empty();) taken += TakeUtf8(rest);
        EXPECT_EQ(taken, characters) << bytes;
        std::string appended;
        for (const char32_t c : characters) AppendUtf8(appended, c);
        if (characters.front() != ReplacementCharacter) {
            EXPECT_EQ(appended, bytes);
        }
    }
}

TEST(Windows1252, LikenessesAndWhatThePageLacks) {
    const std::pair<char32_t, int> cases[] = {{U'~', '~'},  {U'é', 0xE9},      {U'€', 0x80},
                                              {U'Ÿ', 0x9F}, {U'\u03BC', 0xB5}, {U'\u2212', '-'},
                                              {U'Ω', '?'},  {U'Ā', '?'}};
    for (const auto& [c, byte] : cases) EXPECT_EQ(ToWindows1252(c), static_cast<char>(byte));
}

}  // namespace
}  // namespace vardel
