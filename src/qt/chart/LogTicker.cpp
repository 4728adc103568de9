#include "qt/chart/LogTicker.h"

#include <cmath>

namespace vardel {

namespace {

constexpr double NarrowRatio = 6.0;  // of the end to the beginning
constexpr double WideDecades = 3.5;

// At these multiples of each power of ten within the range.
QVector<double> DecadeTicks(const QCPRange& range, std::initializer_list<int> multiples) {
    QVector<double> ticks;
    const int last = static_cast<int>(std::ceil(std::log10(range.upper)));
    for (int power = static_cast<int>(std::floor(std::log10(range.lower))); power <= last; ++power)
        for (const int multiple : multiples) {
            // Divided, a tenth is the nearest number to it.
            const double tick =
                power < 0 ? multiple / std::pow(10.0, -power) : multiple * std::pow(10.0, power);
            if (range.contains(tick)) ticks.append(tick);
        }
    return ticks;
}

}  // namespace

double LogTicker::getTickStep(const QCPRange& range) {
    even_ = !(range.lower > 0.0 && range.upper / range.lower >= NarrowRatio);
    return StepTicker::getTickStep(range);
}

QVector<double> LogTicker::createTickVector(double step, const QCPRange& range) {
    if (even_) return StepTicker::createTickVector(step, range);
    if (std::log10(range.upper / range.lower) > WideDecades) return DecadeTicks(range, {1});
    return DecadeTicks(range, {1, 2, 5});
}

QVector<double> LogTicker::createSubTickVector(int count, const QVector<double>& ticks) {
    if (even_) return StepTicker::createSubTickVector(count, ticks);
    if (ticks.isEmpty()) return {};
    const QCPRange around(ticks.front() / 10.0, ticks.back() * 10.0);
    return DecadeTicks(around, {1, 2, 3, 4, 5, 6, 7, 8, 9});
}

QString LogTicker::getTickLabel(double tick, const QLocale& locale, QChar format, int precision) {
    constexpr int Digits = 6;
    if (even_) return StepTicker::getTickLabel(tick, locale, format, precision);
    return QString::number(tick, 'g', Digits);
}

}  // namespace vardel
