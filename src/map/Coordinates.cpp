#include "map/Coordinates.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "text/AsciiCase.h"
#include "text/NumberText.h"
#include "text/Utf8.h"

namespace vardel {

namespace {

constexpr double HighestLatitude = 90.0;
constexpr double HighestLongitude = 180.0;

bool IsWithin(double x, double limit) { return std::fabs(x) <= limit; }

// The marks of angles in the one form that is read below; letters large.
char PlainCharacter(char32_t c) {
    switch (c) {
        case U'°':
        case U'º':
            return 'D';
        case U'′':
        case U'’':
            return '\'';
        case U'″':
        case U'”':
            return '"';
        case U'−':
            return '-';
        case U'\u00A0':
            return ' ';
        default:
            return c < 0x80 ? Upper(static_cast<char>(c)) : '?';
    }
}

std::string PlainText(std::string_view text) {
    std::string plain;
    while (!text.empty()) plain += PlainCharacter(TakeUtf8(text));
    for (std::size_t at = plain.find("''"); at != plain.npos; at = plain.find("''"))
        plain.replace(at, 2, "\"");
    return plain;
}

// Takes a number without a sign off the text, with the mark behind it or a colon before the next.
std::optional<double> TakeNumber(std::string_view& text, char mark) {
    const std::size_t length = std::min(text.find_first_not_of("0123456789."), text.size());
    const std::optional<double> number = WholeTextNumber(text.substr(0, length));
    text = Trimmed(text.substr(length));
    if (!text.empty() && (text[0] == mark || (text[0] == ':' && text.size() > 1)))
        text = Trimmed(text.substr(1));
    return number;
}

// Degrees, and minutes, and seconds, of which only the last may have decimals.
std::optional<double> AngleOf(std::string_view text) {
    constexpr std::array<char, 3> Marks = {'D', '\'', '"'};
    constexpr std::array<double, 3> PerDegree = {1.0, 60.0, 3600.0};
    double angle = 0.0;
    bool isWhole = true;
    std::size_t count = 0;
    for (; !text.empty(); ++count) {
        if (count == Marks.size() || !isWhole) return std::nullopt;
        const std::optional<double> number = TakeNumber(text, Marks[count]);
        if (!number || (count > 0 && !(*number < 60.0))) return std::nullopt;
        isWhole = std::floor(*number) == *number;
        angle += *number / PerDegree[count];
    }
    if (count == 0) return std::nullopt;
    return angle;
}

// A coordinate, with a sign or with one of two letters.
std::optional<double> ParseCoordinate(std::string_view typed, char positive, char negative,
                                      double limit) {
    const std::string plain = PlainText(typed);
    std::string_view text = Trimmed(plain);
    const std::string letters = {positive, negative};
    char sign = '+';
    if (!text.empty() && (letters + "+-").find(text.front()) != letters.npos) {
        sign = text.front();
        text.remove_prefix(1);
    } else if (!text.empty() && letters.find(text.back()) != letters.npos) {
        sign = text.back();
        text.remove_suffix(1);
    }
    const std::optional<double> angle = AngleOf(Trimmed(text));
    if (!angle || !IsWithin(*angle, limit)) return std::nullopt;
    return sign == '-' || sign == negative ? -*angle : *angle;
}

}  // namespace

bool IsValid(const Place& place) noexcept {
    return IsWithin(place.latitude, HighestLatitude) && IsWithin(place.longitude, HighestLongitude);
}

std::optional<double> ParseLatitude(std::string_view text) {
    return ParseCoordinate(text, 'N', 'S', HighestLatitude);
}

std::optional<double> ParseLongitude(std::string_view text) {
    return ParseCoordinate(text, 'E', 'W', HighestLongitude);
}

std::optional<Place> ParsePlace(std::string_view text) {
    const bool isSeparated = text.find_first_of(",;") != text.npos;
    const char* const separators = isSeparated ? ",;" : " \t";
    std::optional<Place> place;
    for (std::size_t at = text.find_first_of(separators); at != text.npos;
         at = text.find_first_of(separators, at + 1)) {
        const auto latitude = ParseLatitude(text.substr(0, at));
        const auto longitude = ParseLongitude(text.substr(at + 1));
        if (!latitude || !longitude) continue;
        const Place found{*latitude, *longitude};
        // Blanks in a row part the same two texts.
        const bool isSame =
            place && place->latitude == found.latitude && place->longitude == found.longitude;
        if (place && !isSame) return std::nullopt;
        place = found;
    }
    return place;
}

}  // namespace vardel
