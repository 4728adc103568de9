#include "qt/chart/StepTicker.h"

#include <cmath>

namespace vardel {

int StepTicker::DecimalsOf(double step) {
    constexpr int Most = 9;
    int decimals = 0;
    for (double scaled = step; decimals < Most; ++decimals, scaled *= 10.0)
        if (std::abs(scaled - std::round(scaled)) < 1e-6 * scaled) break;
    return decimals;
}

double StepTicker::getTickStep(const QCPRange& range) {
    constexpr double Fewest = 4, Most = 20;
    const double steps = step_ > 0 ? range.size() / step_ : 0;
    shownStep_ = steps >= Fewest && steps <= Most ? step_ : QCPAxisTicker::getTickStep(range);
    return shownStep_;
}

// With a decimal point in every locale, and no sign before a zero.
QString StepTicker::getTickLabel(double tick, const QLocale&, QChar, int) {
    const bool isZero = std::abs(tick) < 1e-6 * shownStep_;
    return QString::number(isZero ? 0.0 : tick, 'f', DecimalsOf(shownStep_));
}

}  // namespace vardel
