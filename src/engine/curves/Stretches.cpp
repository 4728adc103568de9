#include "engine/curves/Stretches.h"

#include <algorithm>
#include <optional>

namespace vardel {

namespace {

using Margin = std::function<double(double)>;

bool IsMet(const MarginSample& sample) { return sample.margin >= 0.0; }

// The outermost point that meets the goal, between one that does and one that does not.
double EndBetween(MarginSample met, MarginSample missed, const Margin& margin, double precision) {
    while (std::max(met.at, missed.at) - std::min(met.at, missed.at) > precision) {
        const double middle = (met.at + missed.at) / 2.0;
        const MarginSample sample{middle, margin(middle)};
        (IsMet(sample) ? met : missed) = sample;
    }
    return met.at;
}

// A point between low and high, which lie on one side of the goal, that lies on the other: by a
// search for the extreme in golden sections.
std::optional<MarginSample> PointBeyondGoal(double low, double high, bool met, const Margin& margin,
                                            double precision) {
    constexpr double Golden = 0.6180339887498949;
    const auto sampleAt = [&](double at) { return MarginSample{at, margin(at)}; };
    const auto nearer = [met](const MarginSample& a, const MarginSample& b) {
        return met ? a.margin < b.margin : a.margin > b.margin;
    };
    MarginSample left = sampleAt(high - Golden * (high - low));
    MarginSample right = sampleAt(low + Golden * (high - low));
    while (high - low > precision) {
        if (IsMet(left) != met) return left;
        if (IsMet(right) != met) return right;
        if (nearer(left, right)) {
            high = right.at;
            right = left;
            left = sampleAt(high - Golden * (high - low));
        } else {
            low = left.at;
            left = right;
            right = sampleAt(low + Golden * (high - low));
        }
    }
    return std::nullopt;
}

// Of three samples on one side of the goal the middle one may be the nearest: then the curve turns
// there, and may have crossed the goal twice between them.
std::optional<MarginSample> HiddenPoint(const MarginSample* middle, const Margin& margin,
                                        double precision) {
    const MarginSample &before = middle[-1], &after = middle[1];
    const bool met = IsMet(*middle);
    if (IsMet(before) != met || IsMet(after) != met) return std::nullopt;
    const bool turns = met ? middle->margin < before.margin && middle->margin <= after.margin
                           : middle->margin > before.margin && middle->margin >= after.margin;
    if (!turns) return std::nullopt;
    return PointBeyondGoal(before.at, after.at, met, margin, precision);
}

std::vector<MarginSample> WithHiddenPoints(const std::vector<MarginSample>& samples,
                                           const Margin& margin, double precision) {
    std::vector<MarginSample> all;
    all.reserve(samples.size() + 8);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        std::optional<MarginSample> hidden;
        if (i > 0 && i + 1 < samples.size()) hidden = HiddenPoint(&samples[i], margin, precision);
        if (hidden && hidden->at < samples[i].at) all.push_back(*hidden);
        all.push_back(samples[i]);
        if (hidden && hidden->at > samples[i].at) all.push_back(*hidden);
    }
    return all;
}

}  // namespace

std::vector<Stretch> MetStretches(const std::vector<MarginSample>& samples, const Margin& margin,
                                  double precision) {
    const std::vector<MarginSample> all = WithHiddenPoints(samples, margin, precision);
    std::vector<Stretch> stretches;
    if (all.empty()) return stretches;
    if (IsMet(all.front())) stretches.push_back({all.front().at, all.back().at});
    for (std::size_t i = 1; i < all.size(); ++i) {
        const MarginSample &a = all[i - 1], &b = all[i];
        if (IsMet(a) == IsMet(b)) continue;
        if (IsMet(a))
            stretches.back().to = EndBetween(a, b, margin, precision);
        else
            stretches.push_back({EndBetween(b, a, margin, precision), all.back().at});
    }
    return stretches;
}

std::vector<double> PointsAround(double first, double last, const std::vector<double>& bends,
                                 double nearest, const std::function<double(double)>& next) {
    std::vector<double> points = bends;
    for (double at = first; at < last; at = next(at)) points.push_back(at);
    points.push_back(last);
    std::vector<double> centres = bends;
    centres.insert(centres.end(), {first, last});
    for (const double centre : centres) {
        const double step = next(centre) - centre;
        for (double offset = nearest; offset < step; offset *= 2.0)
            points.insert(points.end(), {centre - offset, centre + offset});
    }
    std::erase_if(points, [&](double at) { return at < first || at > last; });
    std::sort(points.begin(), points.end());
    points.erase(std::unique(points.begin(), points.end()), points.end());
    return points;
}

}  // namespace vardel
