#include "services/settings/QuorneGlobal.h"

#include <cmath>
#include <limits>

#include "text/AsciiCase.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

std::optional<double> AsNumber(const GlobalValue& value) {
    if (const auto* text = std::get_if<std::string>(&value)) return WholeTextNumber(*text);
    if (const auto* number = std::get_if<double>(&value)) return *number;
    if (const auto* whole = std::get_if<std::int16_t>(&value)) return *whole;
    if (const auto* truth = std::get_if<bool>(&value)) return *truth ? -1.0 : 0.0;
    return std::nullopt;
}

std::optional<GlobalValue> AsWhole(const GlobalValue& value) {
    using Limits = std::numeric_limits<std::int16_t>;
    const auto number = AsNumber(value);
    if (!number) return std::nullopt;
    const double whole = std::nearbyint(*number);
    if (whole < Limits::min() || whole > Limits::max()) return std::nullopt;
    return static_cast<std::int16_t>(whole);
}

std::optional<GlobalValue> AsTruth(const GlobalValue& value) {
    if (const auto* text = std::get_if<std::string>(&value)) {
        if (SameButForCase(*text, "true")) return true;
        if (SameButForCase(*text, "false")) return false;
    }
    const auto number = AsNumber(value);
    if (!number) return std::nullopt;
    return *number != 0.0;
}

}  // namespace

std::string GlobalText(const GlobalValue& value) {
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    if (const auto* truth = std::get_if<bool>(&value)) return *truth ? "True" : "False";
    const auto number = AsNumber(value);
    return number ? ShortestText(*number) : std::string();
}

std::optional<GlobalValue> ConvertLikeDefault(const GlobalValue& old, const GlobalValue& value) {
    if (std::holds_alternative<std::string>(old)) return GlobalText(value);
    if (std::holds_alternative<std::int16_t>(old)) return AsWhole(value);
    if (std::holds_alternative<bool>(old)) return AsTruth(value);
    if (std::holds_alternative<double>(old)) {
        const auto number = AsNumber(value);
        return number ? std::optional<GlobalValue>(*number) : std::nullopt;
    }
    return value;
}

}  // namespace vardel
