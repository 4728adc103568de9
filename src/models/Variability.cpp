#include "models/Variability.h"

#include <algorithm>
#include <cmath>

#include "models/Distances.h"
#include "models/Primitives.h"

namespace vardel {

// Three decimals as tabulated, so 2.321 for 1 % where the computed quantile is 2.326.
const std::array<double, 50> QuantileTable = {
    2.321, 2.062, 1.889, 1.756, 1.647, 1.555, 1.474, 1.401, 1.336, 1.276,  // 1 % to 10 %
    1.22,  1.168, 1.119, 1.073, 1.029, 0.987, 0.947, 0.908, 0.871, 0.835,  // 11 % to 20 %
    0.8,   0.766, 0.733, 0.701, 0.67,  0.639, 0.609, 0.579, 0.55,  0.522,  // 21 % to 30 %
    0.493, 0.466, 0.438, 0.411, 0.384, 0.358, 0.331, 0.305, 0.279, 0.253,  // 31 % to 40 %
    0.228, 0.202, 0.177, 0.151, 0.126, 0.101, 0.076, 0.05,  0.025, 0.0,    // 41 % to 50 %
};

const SigmaTable SigmaTableUrban = {{
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

const SigmaTable SigmaTableSuburban = {{
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

double TimeLevel(double pct) noexcept {
    pct = std::clamp(pct, 1.0, 99.0);
    return pct <= 50.0 ? Log10(0.02 * pct) : -Log10(0.02 * (100.0 - pct));
}

double TimeVariability(double d, double pct) noexcept { return TimeGrowth(d) * TimeLevel(pct); }

double LinearInterpolate(double x0, double x1, double y0, double y1, double x) noexcept {
    const double t = (x - x0) / (x1 - x0);
    return (1.0 - t) * y0 + t * y1;
}

double DeviationSigma(const SigmaTable& table, double f) noexcept {
    if (std::isnan(f)) return f;
    // The first ten rows stand at the whole hundreds.
    const auto hundreds = static_cast<std::size_t>(std::clamp(f, 100.0, 1000.0) * 0.01);
    std::size_t row = hundreds - 1;
    while (row < table.size() && table[row].f < f) ++row;
    if (row == table.size()) return table.back().sigma;
    if (table[row].f == f || row == 0) return table[row].sigma;
    const SigmaRow& below = table[row - 1];
    const SigmaRow& above = table[row];
    return LinearInterpolate(below.f, above.f, below.sigma, above.sigma, f);
}

double LocationVariability(double f, double pct, std::string_view area) noexcept {
    return LocationVariability(f, pct, AreaOfUntrimmed(area));
}

double LocationVariability(double f, double pct, Area area) noexcept {
    if (std::isnan(pct)) return pct;
    if (area == Area::Unknown) return 0.0;
    // lrint rounds halves to the even neighbour in the rounding mode that all code runs in.
    const auto i = static_cast<std::size_t>(std::lrint(std::clamp(pct - 1.0, 0.0, 98.0)));
    const double z = i <= 49 ? QuantileTable[i] : -QuantileTable[98 - i];
    return DeviationSigma(area == Area::Urban ? SigmaTableUrban : SigmaTableSuburban, f) * z;
}

}  // namespace vardel
