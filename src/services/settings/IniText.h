#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vardel {

// The text of an INI file that other programs write as well: sections "[name]" with lines
// "key = value". All but the value that is changed stays byte for byte: comments, which are lines
// that begin with # or ;, foreign lines, line ends, a byte order mark. No Debian library does both.
//
// Case does not count in the names, and %XX stands for a character in them. A value stands as it
// is, with no escapes and no comment behind it; blanks around it do not count, and one pair of
// double quotes that encloses it is no part of it. Of a key that comes twice the last one counts.
class IniText {
public:
    explicit IniText(std::string text) : text_(std::move(text)) {}

    const std::string& Text() const { return text_; }
    // Nothing where there is no such line.
    std::optional<std::string> Value(std::string_view section, std::string_view key) const;
    // A value that is there already changes nothing. False, with the text as it was, where a value
    // has a line end, or the text is no text of 8-bit characters.
    bool SetValue(std::string_view section, std::string_view key, std::string_view value);
    void Remove(std::string_view section, std::string_view key);

private:
    struct Range {
        std::size_t begin = 0;
        std::size_t length = 0;
    };
    struct Place {
        std::optional<Range> line;  // with its end
        Range value;
        std::optional<std::size_t> sectionEnd;  // behind its last line but comments and blank ones
    };
    Place Find(std::string_view section, std::string_view key) const;

    std::string text_;
};

}  // namespace vardel
