#include "models/Primitives.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace vardel {

namespace {

std::string_view WithoutBlanks(std::string_view text) noexcept {
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return text;
}

std::uint32_t FourBytes(const char* text) noexcept {
    std::uint32_t bytes = 0;
    std::memcpy(&bytes, text, sizeof bytes);
    return bytes;
}

// Whether text, upper-cased, is the word, which is made of 4 to 8 upper case letters. Without its
// bit for lower case a character equals a letter only if it is that letter in either case. The
// first and the last four characters are looked at together: a model asks for this at every call.
template <std::size_t N>
bool IsWord(std::string_view text, const char (&word)[N]) noexcept {
    constexpr std::uint32_t LowerCaseBits = 0x20202020;
    constexpr std::size_t Length = N - 1, Last = Length - 4;
    static_assert(4 <= Length && Length <= 8);
    if (text.size() != Length) return false;
    const std::uint32_t first = (FourBytes(text.data()) & ~LowerCaseBits) ^ FourBytes(word);
    const std::uint32_t last =
        (FourBytes(text.data() + Last) & ~LowerCaseBits) ^ FourBytes(word + Last);
    return (first | last) == 0;
}

}  // namespace

double PowerWatts = 0.0;

double GetPowerWatts() noexcept { return PowerWatts; }

Area AreaOfUntrimmed(std::string_view area) noexcept {
    if (IsWord(area, "URBAN")) return Area::Urban;
    if (IsWord(area, "SUBURBAN")) return Area::Suburban;
    if (IsWord(area, "OPEN")) return Area::Open;
    return Area::Unknown;
}

Area AreaOf(std::string_view area) noexcept { return AreaOfUntrimmed(WithoutBlanks(area)); }

City CityOf(std::string_view city) noexcept {
    const std::string_view name = WithoutBlanks(city);
    if (name == "Small/Medium") return City::SmallMedium;
    if (name == "Large") return City::Large;
    return City::Unknown;
}

}  // namespace vardel
