#include "services/settings/IniText.h"

#include <algorithm>
#include <charconv>

#include "text/AsciiCase.h"

namespace vardel {

namespace {

constexpr std::string_view Blanks = " \t\r";

std::string_view WithoutBlanks(std::string_view text) {
    const std::size_t begin = std::min(text.find_first_not_of(Blanks), text.size());
    return text.substr(begin, text.find_last_not_of(Blanks) + 1 - begin);
}

bool IsQuoted(std::string_view text) {
    return text.size() >= 2 && text.front() == '"' && text.back() == '"';
}

char TakeNameCharacter(std::string_view& name) {
    unsigned char code = 0;
    if (name.size() >= 3 && name[0] == '%' &&
        std::from_chars(name.data() + 1, name.data() + 3, code, 16).ptr == name.data() + 3) {
        name.remove_prefix(3);
        return static_cast<char>(code);
    }
    const char c = name.front();
    name.remove_prefix(1);
    return c;
}

bool Names(std::string_view written, std::string_view name) {
    for (const char c : name)
        if (written.empty() || Lower(TakeNameCharacter(written)) != Lower(c)) return false;
    return written.empty();
}

std::string Written(std::string_view name) {
    constexpr std::string_view Digits = "0123456789ABCDEF";
    std::string written;
    for (const char c : name) {
        const bool plain = (c >= '0' && c <= '9') || (Lower(c) >= 'a' && Lower(c) <= 'z') ||
                           c == '_' || c == '-' || c == '.';
        const auto code = static_cast<unsigned char>(c);
        if (plain)
            written += c;
        else
            (written += '%').append({Digits[code / 16U], Digits[code % 16U]});
    }
    return written;
}

}  // namespace

IniText::Place IniText::Find(std::string_view section, std::string_view key) const {
    Place place;
    bool inSection = false;
    const std::string_view all = text_;
    std::size_t next = all.starts_with("\xEF\xBB\xBF") ? 3 : 0;
    while (next < all.size()) {
        const std::size_t begin = next;
        next = std::min(all.find('\n', begin), all.size() - 1) + 1;
        const std::string_view line =
            WithoutBlanks(all.substr(begin, next - begin - (all[next - 1] == '\n' ? 1 : 0)));
        if (line.empty()) continue;
        const bool isHeader = line.front() == '[' && line.find(']') != line.npos;
        if (isHeader) inSection = Names(line.substr(1, line.find(']') - 1), section);
        // A comment may belong to what follows.
        if (!inSection || line.front() == '#' || line.front() == ';') continue;
        place.sectionEnd = next;
        const std::size_t equals = line.find_first_of("=:");
        if (isHeader || equals == line.npos) continue;
        if (!Names(WithoutBlanks(line.substr(0, equals)), key)) continue;
        const std::string_view value = WithoutBlanks(line.substr(equals + 1));
        place.line = Range{begin, next - begin};
        place.value = {
            static_cast<std::size_t>(line.data() + line.size() - all.data()) - value.size(),
            value.size()};
    }
    return place;
}

std::optional<std::string> IniText::Value(std::string_view section, std::string_view key) const {
    const Place place = Find(section, key);
    if (!place.line) return std::nullopt;
    const std::string value = text_.substr(place.value.begin, place.value.length);
    return IsQuoted(value) ? value.substr(1, value.size() - 2) : value;
}

bool IniText::SetValue(std::string_view section, std::string_view key, std::string_view value) {
    using namespace std::string_view_literals;
    if (Value(section, key) == value) return true;
    if (value.find_first_of("\r\n\0"sv) != value.npos || text_.find('\0') != text_.npos)
        return false;
    std::string written(value);
    if (IsQuoted(value) || WithoutBlanks(value) != value) written = '"' + written + '"';
    const Place place = Find(section, key);
    if (place.line) {
        text_.replace(place.value.begin, place.value.length, written);
        return true;
    }
    const std::string lineEnd = text_.find("\r\n") != text_.npos ? "\r\n" : "\n";
    std::string added = Written(key) + '=' + written + lineEnd;
    if (!place.sectionEnd)
        added.insert(0, (text_.empty() ? "" : lineEnd) + '[' + Written(section) + ']' + lineEnd);
    const std::size_t at = place.sectionEnd.value_or(text_.size());
    if (at > 0 && text_[at - 1] != '\n') added.insert(0, lineEnd);
    text_.insert(at, added);
    return true;
}

void IniText::Remove(std::string_view section, std::string_view key) {
    if (const Place place = Find(section, key); place.line)
        text_.erase(place.line->begin, place.line->length);
}

}  // namespace vardel
