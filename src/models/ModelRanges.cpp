#include "models/ModelRanges.h"

#include <array>
#include <limits>

namespace vardel {

namespace {

constexpr double Unbounded = std::numeric_limits<double>::infinity();

struct Range {
    double fMin, fMax;    // MHz
    double hbMin, hbMax;  // m
    double hmMin, hmMax;  // m
    double productMax;    // hb · hm, m²
    double dMax;          // km; no model has a lower bound
};

constexpr std::array<Range, 4> Ranges = {{
    {150, 1500, 30, 200, 1, 10, Unbounded, 100},
    {30, 1500, 20, 2500, 1, 10, Unbounded, 300},
    {1500, 2000, 30, 200, 1, 10, Unbounded, 100},
    {30, 1000, -Unbounded, Unbounded, 1, 10, 300, 600},
}};

constexpr bool Within(double x, double low, double high) noexcept { return low <= x && x <= high; }

}  // namespace

bool ModelInRange(int model, double f, double hb, double hm, double d,
                  std::string_view /*area*/) noexcept {
    if (model < ModelItu529 || model > ModelUs) return false;
    const Range& range = Ranges[static_cast<std::size_t>(model)];
    return Within(f, range.fMin, range.fMax) && Within(hb, range.hbMin, range.hbMax) &&
           Within(hm, range.hmMin, range.hmMax) && hb * hm <= range.productMax && d <= range.dMax;
}

}  // namespace vardel
