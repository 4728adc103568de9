#include "models/Variability.h"

#include <algorithm>

#include "models/Distances.h"

namespace vardel {

double ClampedFrom(double x, double low, double high) noexcept { return std::clamp(x, low, high); }

double TimeVariability(double d, double pct) noexcept { return TimeGrowth(d) * TimeLevel(pct); }

double LocationVariability(double f, double pct, std::string_view area) noexcept {
    return LocationVariability(f, pct, AreaOfUntrimmed(area));
}

}  // namespace vardel
