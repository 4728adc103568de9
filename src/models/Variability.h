#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <string_view>

#include "Primitives.h"

// The statistics that move a median loss to other percentages of time and of locations.
// TimeVariability is added to a loss and LocationVariability subtracted from it; for a field
// strength the signs are the other way about. Both are 0 at 50 %. NaN in gives NaN out.
//
// The standard deviations follow the curves of Y. Okumura et al., "Field Strength and its
// Variability in VHF and UHF Land-Mobile Radio Service", Review of the Electrical Communication
// Laboratory 16 (1968).

namespace vardel {

// A standard deviation of locations at a frequency.
struct SigmaRow {
    double f;      // MHz
    double sigma;  // dB
};

using SigmaTable = std::array<SigmaRow, 13>;

// Normal deviates of 1 % to 50 %, with three decimals as tabulated, so 2.321 for 1 % where the
// computed quantile is 2.326.
inline constexpr std::array<double, 50> QuantileTable = {
    2.321, 2.062, 1.889, 1.756, 1.647, 1.555, 1.474, 1.401, 1.336, 1.276,  // 1 % to 10 %
    1.22,  1.168, 1.119, 1.073, 1.029, 0.987, 0.947, 0.908, 0.871, 0.835,  // 11 % to 20 %
    0.8,   0.766, 0.733, 0.701, 0.67,  0.639, 0.609, 0.579, 0.55,  0.522,  // 21 % to 30 %
    0.493, 0.466, 0.438, 0.411, 0.384, 0.358, 0.331, 0.305, 0.279, 0.253,  // 31 % to 40 %
    0.228, 0.202, 0.177, 0.151, 0.126, 0.101, 0.076, 0.05,  0.025, 0.0,    // 41 % to 50 %
};

// Those of 1 % to 99 %.
inline constexpr std::array<double, 99> AllQuantiles = [] {
    std::array<double, 99> quantiles{};
    for (std::size_t i = 0; i < 50; ++i) quantiles[98 - i] = -QuantileTable[i];
    for (std::size_t i = 0; i < 50; ++i) quantiles[i] = QuantileTable[i];
    return quantiles;
}();

inline constexpr SigmaTable SigmaTableUrban = {{
    {100, 5.3},
    {200, 5.4},
    {300, 5.7},
    {400, 5.9},
    {500, 6},
    {600, 6.2},
    {700, 6.3},
    {800, 6.45},
    {900, 6.6},
    {1000, 6.7},
    {1500, 7.1},
    {2000, 7.5},
    {3000, 8},
}};

// For open areas as well.
inline constexpr SigmaTable SigmaTableSuburban = {{
    {100, 6.8},
    {200, 7},
    {300, 7.2},
    {400, 7.5},
    {500, 7.7},
    {600, 7.9},
    {700, 8},
    {800, 8.2},
    {900, 8.3},
    {1000, 8.4},
    {1500, 9},
    {2000, 9.4},
    {3000, 10},
}};

// x between low and high. What lies beyond goes apart, so that the compiler does not make a case of
// its own of each end.
double ClampedFrom(double x, double low, double high) noexcept;
inline double Clamped(double x, double low, double high) noexcept {
    return low <= x && x <= high ? x : ClampedFrom(x, low, high);
}

// y at x on the line through (x0, y0) and (x1, y1), x0 and x1 apart.
inline double LinearInterpolate(double x0, double x1, double y0, double y1, double x) noexcept {
    const double t = (x - x0) / (x1 - x0);
    return (1.0 - t) * y0 + t * y1;
}

// In dB, for d in km. pct is clipped to 1 to 99.
double TimeVariability(double d, double pct) noexcept;
// The part of it that the percentage makes: times TimeGrowth of the distance it is TimeVariability.
inline double TimeLevel(double pct) noexcept {
    pct = Clamped(pct, 1.0, 99.0);
    const double rest = 100.0 - pct;
    const double level = Log10(0.02 * (rest < pct ? rest : pct));
    return std::copysign(1.0, 50.0 - pct) * level;
}

// In dB, for f in MHz. pct counts in whole percents, 1 to 99. An area that is not one of the three
// words (in any case, but with no blank around it) gives 0.
double LocationVariability(double f, double pct, std::string_view area) noexcept;
// For an area that is recognised already, as AreaOfUntrimmed does it.
inline double LocationVariability(double f, double pct, Area area) noexcept;

// The standard deviation in dB at f in MHz, of one of the two tables: interpolated on frequency,
// the first or last row's beyond the table.
inline double DeviationSigma(const SigmaTable& table, double f) noexcept {
    // The row below each whole hundred.
    static constexpr unsigned char RowBelow[] = {0,  0,  1,  2,  3,  4,  5,  6,  7,  8,  9,
                                                 9,  9,  9,  9,  10, 10, 10, 10, 10, 11, 11,
                                                 11, 11, 11, 11, 11, 11, 11, 11, 11};
    if (std::isnan(f)) return f;
    f = Clamped(f, 100.0, 3000.0);
    const SigmaRow* below = &table[RowBelow[static_cast<int>(f) / 100]];
    return LinearInterpolate(below[0].f, below[1].f, below[0].sigma, below[1].sigma, f);
}

// The normal deviate of a percentage of locations, which counts in whole percents.
inline double LocationDeviate(double pct) noexcept {
    // lrint rounds halves to the even neighbour in the rounding mode that all code runs in.
    const auto i = static_cast<std::size_t>(std::lrint(Clamped(pct - 1.0, 0.0, 98.0)));
    return AllQuantiles[i];
}

// Of an area that is known.
inline const SigmaTable& SigmaTableOf(Area area) noexcept {
    return area == Area::Urban ? SigmaTableUrban : SigmaTableSuburban;
}

inline double LocationVariability(double f, double pct, Area area) noexcept {
    if (std::isnan(pct)) return pct;
    if (area == Area::Unknown) return 0.0;
    return DeviationSigma(SigmaTableOf(area), f) * LocationDeviate(pct);
}

}  // namespace vardel
