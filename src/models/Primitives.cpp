#include "models/Primitives.h"

namespace vardel {

namespace {

std::string_view WithoutBlanks(std::string_view text) noexcept {
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return text;
}

// Whether text, upper-cased, is the word, which is made of upper case letters. Without its bit for
// lower case a character equals a letter only if it is that letter in either case. All characters
// are looked at together: a model asks for this at every call.
template <std::size_t N>
bool IsWord(std::string_view text, const char (&word)[N]) noexcept {
    constexpr unsigned LowerCaseBit = 0x20;
    constexpr std::size_t Length = N - 1;
    if (text.size() != Length) return false;
    unsigned different = 0;
    for (std::size_t i = 0; i < Length; ++i)
        different |= (static_cast<unsigned char>(text[i]) & ~LowerCaseBit) ^
                     static_cast<unsigned char>(word[i]);
    return different == 0;
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
