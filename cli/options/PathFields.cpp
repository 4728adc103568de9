#include "cli/options/PathFields.h"

#include <algorithm>
#include <cmath>

#include "text/AsciiCase.h"
#include "text/NumberText.h"

namespace vardel::cli {

namespace {

template <class Names>
std::optional<std::string> SetName(std::string& target, std::string_view text, const Names& names) {
    std::string wanted;
    for (const char* const name : names) {
        if (SameButForCase(Trimmed(text), name)) {
            target = name;
            return std::nullopt;
        }
        wanted += (wanted.empty() ? "" : ", ") + std::string(name);
    }
    return Shown(text) + " is not one of " + wanted;
}

std::optional<std::string> SetPositive(double& target, std::string_view text, double factor) {
    std::optional<std::string> wrong;
    const auto number = NumberOrFault(text, wrong);
    if (!number) return wrong;
    if (!(*number > 0.0)) return Shown(text) + " is not above zero";
    target = *number * factor;
    return std::nullopt;
}

std::optional<std::string> SetPercentage(double& target, std::string_view text) {
    std::optional<std::string> wrong;
    const auto number = NumberOrFault(text, wrong);
    if (!number) return wrong;
    if (!(1.0 <= *number && *number <= 99.0)) return Shown(text) + " is not from 1 to 99";
    target = *number;
    return std::nullopt;
}

std::optional<std::string> SetPower(double& watts, std::string_view text, PowerUnit unit) {
    std::optional<std::string> wrong;
    const auto number = NumberOrFault(text, wrong);
    if (!number) return wrong;
    const double power = WattsOf(*number, unit);
    if (!(power > 0.0) || !std::isfinite(power)) return Shown(text) + " is no power";
    watts = power;
    return std::nullopt;
}

}  // namespace

PathInputs DefaultPath(Units units) {
    return {.distance = 10.0 / KmPerDistance(units),
            .frequency = 450.0,
            .hb = 100.0 / MetresPerHeight(units),
            .hm = 1.5 / MetresPerHeight(units),
            .units = units,
            .area = AreaNames[0],
            .city = CityNames[0]};
}

std::string Shown(std::string_view text) {
    std::size_t most = 40;
    const auto insideCharacter = [&] {
        return (static_cast<unsigned char>(text[most]) & 0xC0U) == 0x80;
    };
    while (most > 0 && most < text.size() && insideCharacter()) --most;
    std::string shown = "'";
    for (const char c : text.substr(0, most)) shown += static_cast<unsigned char>(c) < 32 ? '?' : c;
    return shown + (text.size() > most ? "...'" : "'");
}

std::optional<double> NumberOrFault(std::string_view text, std::optional<std::string>& wrong) {
    const auto number = WholeTextNumber(text);
    if (number) return number;
    if (Trimmed(text).empty()) {
        wrong = "is empty";
        return number;
    }
    std::string pointed(text);
    std::replace(pointed.begin(), pointed.end(), ',', '.');
    wrong = Shown(text) + (WholeTextNumber(pointed) ? " has a decimal comma; a point is wanted"
                                                    : " is not a number");
    return number;
}

std::optional<std::size_t> WholeNumberOrFault(std::string_view text, std::size_t least,
                                              std::size_t most, std::optional<std::string>& wrong) {
    const auto number = NumberOrFault(text, wrong);
    if (!number) return std::nullopt;
    if (*number >= double(least) && *number <= double(most) && std::floor(*number) == *number)
        return static_cast<std::size_t>(*number);
    wrong = "a whole number from " + std::to_string(least) + " to " + std::to_string(most) +
            " is wanted";
    return std::nullopt;
}

std::optional<std::string> SetPathField(PathInputs& path, PathField field, std::string_view text,
                                        double factor, PowerUnit unit) {
    switch (field) {
        case PathField::Frequency:
            return SetPositive(path.frequency, text, 1.0);
        case PathField::Distance:
            return SetPositive(path.distance, text, factor);
        case PathField::BaseHeight:
            return SetPositive(path.hb, text, factor);
        case PathField::MobileHeight:
            return SetPositive(path.hm, text, factor);
        case PathField::PercentTime:
            return SetPercentage(path.pctTime, text);
        case PathField::PercentLocations:
            return SetPercentage(path.pctLoc, text);
        case PathField::Power:
            return SetPower(path.powerWatts, text, unit);
        case PathField::Area:
            return SetName(path.area, text, AreaNames);
        case PathField::City:
            return SetName(path.city, text, CityNames);
    }
    return std::nullopt;
}

}  // namespace vardel::cli
