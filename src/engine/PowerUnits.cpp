#include "engine/PowerUnits.h"

#include <cmath>

#include "models/Primitives.h"
#include "text/NumberText.h"

namespace vardel {

std::vector<ComboBox::Item> PowerUnitEntries() {
    return {
        {"W e.r.p.", UnitWatts}, {"kW e.r.p.", UnitKilowatts}, {"dBm", UnitDbm}, {"dBw", UnitDbw}};
}

double PowerTextToWatts(std::string_view text, int unit) {
    const double x = LeadingNumber(text);
    switch (unit) {
        case UnitWatts:
            return x;
        case UnitKilowatts:
            return x * 1000.0;
        case UnitDbm:
            return std::pow(10.0, x / 10.0) * 0.001;
        case UnitDbw:
            return std::pow(10.0, x / 10.0);
        default:
            return 0.0;
    }
}

std::string PowerText(double watts, int unit) {
    constexpr const char* PowerPattern = "0000000.000000000000";
    constexpr const char* LevelPattern = "0000000.0000";
    std::string text;
    switch (unit) {
        case UnitWatts:
            text = FormatNumber(watts, PowerPattern);
            break;
        case UnitKilowatts:
            text = FormatNumber(watts / 1000.0, PowerPattern);
            break;
        case UnitDbm:
            text = FormatNumber(10.0 * Log10(watts / 0.001), LevelPattern);
            break;
        case UnitDbw:
            text = FormatNumber(10.0 * Log10(watts), LevelPattern);
            break;
        default:
            break;
    }
    return std::string(Trimmed(FixedWidthNumber(text)));
}

std::string CorrectedPowerText(std::string_view text, int unit) {
    double x = LeadingNumber(text);
    // Zero and negative levels are powers; a level so extreme that no power is left is none.
    const double watts = PowerTextToWatts(text, unit);
    if (!(watts > 0.0) || !std::isfinite(watts)) x = 1.0;
    const std::string number = ShortestText(x);
    return x < 0.0 ? number : ' ' + number;
}

}  // namespace vardel
