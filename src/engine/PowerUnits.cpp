#include "engine/PowerUnits.h"

#include <cmath>

#include "models/Primitives.h"
#include "text/NumberText.h"

namespace vardel {

double PowerTextToWatts(std::string_view text, PowerUnit unit) {
    const double x = LeadingNumber(text);
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

std::string PowerText(double watts, PowerUnit unit) {
    constexpr const char* PowerPattern = "0000000.000000000000";
    constexpr const char* LevelPattern = "0000000.0000";
    std::string text;
    switch (unit) {
        case PowerUnit::Watts:
            text = FormatNumber(watts, PowerPattern);
            break;
        case PowerUnit::Kilowatts:
            text = FormatNumber(watts / 1000.0, PowerPattern);
            break;
        case PowerUnit::Dbm:
            text = FormatNumber(10.0 * Log10(watts / 0.001), LevelPattern);
            break;
        case PowerUnit::Dbw:
            text = FormatNumber(10.0 * Log10(watts), LevelPattern);
            break;
        default:
            break;
    }
    return std::string(Trimmed(FixedWidthNumber(text)));
}

std::string CorrectedPowerText(std::string_view text, PowerUnit unit) {
    double x = LeadingNumber(text);
    // Zero and negative levels are powers; a level so extreme that no power is left is none.
    const double watts = PowerTextToWatts(text, unit);
    if (!(watts > 0.0) || !std::isfinite(watts)) x = 1.0;
    const std::string number = ShortestText(x);
    return x < 0.0 ? number : ' ' + number;
}

}  // namespace vardel
