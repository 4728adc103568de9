#include "engine/PowerUnits.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "models/Primitives.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

bool IsLevel(PowerUnit unit) { return unit == PowerUnit::Dbm || unit == PowerUnit::Dbw; }

}  // namespace

double WattsOf(double x, PowerUnit unit) noexcept {
    switch (unit) {
        case PowerUnit::Watts:
            return x;
        case PowerUnit::Kilowatts:
            return x * 1000.0;
        case PowerUnit::Dbm:
            return std::pow(10.0, x / 10.0) * 0.001;
        case PowerUnit::Dbw:
            return std::pow(10.0, x / 10.0);
        default:
            return 0.0;
    }
}

double FromWatts(double watts, PowerUnit unit) noexcept {
    switch (unit) {
        case PowerUnit::Watts:
            return watts;
        case PowerUnit::Kilowatts:
            return watts / 1000.0;
        case PowerUnit::Dbm:
            return 10.0 * Log10(watts / 0.001);
        case PowerUnit::Dbw:
            return 10.0 * Log10(watts);
        default:
            return 0.0;
    }
}

double PowerTextToWatts(std::string_view text, PowerUnit unit) {
    const double watts = Finite(WattsOf(LeadingNumber(text), unit));
    // Every level is a power, however small.
    constexpr double Smallest = std::numeric_limits<double>::denorm_min();
    return IsLevel(unit) ? std::max(watts, Smallest) : watts;
}

std::string PowerText(double watts, PowerUnit unit) {
    constexpr const char* PowerPattern = "0000000.000000000000";
    constexpr const char* LevelPattern = "0000000.0000";
    std::string text;
    switch (unit) {
        case PowerUnit::Watts:
        case PowerUnit::Kilowatts:
            text = FormatNumber(FromWatts(watts, unit), PowerPattern);
            break;
        case PowerUnit::Dbm:
        case PowerUnit::Dbw:
            text = FormatNumber(FromWatts(watts, unit), LevelPattern);
            break;
        default:
            break;
    }
    return std::string(Trimmed(FixedWidthNumber(text)));
}

std::string CorrectedPowerText(std::string_view text, PowerUnit unit) {
    double x = LeadingNumber(text);
    if (!IsLevel(unit) && x <= 0.0) x = 1.0;
    const std::string number = ShortestText(x);
    return x < 0.0 ? number : ' ' + number;
}

}  // namespace vardel
