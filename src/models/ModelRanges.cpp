#include "models/ModelRanges.h"

#include <algorithm>
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

std::array<BrokenLimit, 5> LimitsOf(int model, double f, double hb, double hm, double d) noexcept {
    const Range& range = Ranges[static_cast<std::size_t>(model)];
    return {{{"Frequency", "MHz", f, range.fMin, range.fMax},
             {"Height of base antenna", "m", hb, range.hbMin, range.hbMax},
             {"Height of mobile antenna", "m", hm, range.hmMin, range.hmMax},
             {"Product of the heights", "m²", hb * hm, -Unbounded, range.productMax},
             {"Distance", "km", d, -Unbounded, range.dMax}}};
}

// NaN breaks every bound.
bool Holds(const BrokenLimit& limit) noexcept {
    return limit.low <= limit.value && limit.value <= limit.high;
}

}  // namespace

bool ModelInRange(int model, double f, double hb, double hm, double d,
                  std::string_view /*area*/) noexcept {
    if (model < 0 || model >= static_cast<int>(Ranges.size())) return false;
    const auto limits = LimitsOf(model, f, hb, hm, d);
    return std::all_of(limits.begin(), limits.end(), Holds);
}

std::vector<BrokenLimit> BrokenLimits(ModelNumber model, const ModelInputs& in) {
    std::vector<BrokenLimit> broken;
    for (const BrokenLimit& limit : LimitsOf(static_cast<int>(model), in.f, in.hb, in.hm, in.d))
        if (!Holds(limit)) broken.push_back(limit);
    return broken;
}

}  // namespace vardel
