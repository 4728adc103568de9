#include "engine/reach/Reach.h"

#include <algorithm>
#include <cmath>

namespace vardel {

namespace {

constexpr double DistancePrecision = 1e-6;  // km
constexpr double HeightPrecision = 1e-3;    // m

bool IsPositive(double x) { return std::isfinite(x) && x > 0.0; }

// Apart from the distance and the base height, of which one is asked for.
bool AreValid(const ModelInputs& in, const Goal& goal) {
    return IsPositive(in.f) && IsPositive(in.hm) && std::isfinite(in.pctTime) &&
           std::isfinite(in.pctLoc) && std::isfinite(goal.value) &&
           (goal.quantity == Quantity::Loss || IsPositive(goal.powerWatts));
}

double MarginOf(const Goal& goal, double value) {
    return goal.quantity == Quantity::Loss ? goal.value - value : value - goal.value;
}

double MarginAt(const Model& model, const ModelInputs& in, const Goal& goal) {
    ModelTermsRecord terms;
    return MarginOf(goal, goal.quantity == Quantity::Loss
                              ? model.loss(in, terms)
                              : model.fieldStrength(in, goal.powerWatts, terms));
}

bool AreFinite(const std::vector<MarginSample>& samples) {
    return std::all_of(samples.begin(), samples.end(),
                       [](const MarginSample& sample) { return std::isfinite(sample.margin); });
}

// The curves bend where terms of the formulas begin, and at 9.98 km, where the sign of Davidson's
// height correction turns.
const DistanceGrid& ReachGrid() {
    static const DistanceGrid Grid = [] {
        const std::vector<double> km =
            PointsAround(ShortestReach, FarthestReach, {9.98, 20.0, 40.238, 64.38}, 0.001,
                         [](double d) { return d + CurveStep; });
        return DistanceGrid(km.data(), km.size());
    }();
    return Grid;
}

// Every so many points of the grid are looked at first.
constexpr std::size_t CoarseStride = 24;

// These points, the last of the grid among them.
const DistanceGrid& CoarseReachGrid() {
    static const DistanceGrid Grid = [] {
        const DistanceGrid& fine = ReachGrid();
        std::vector<double> km;
        for (std::size_t i = 0; i + 1 < fine.Size(); i += CoarseStride) km.push_back(fine.Km(i));
        km.push_back(fine.Km(fine.Size() - 1));
        return DistanceGrid(km.data(), km.size());
    }();
    return Grid;
}

// Of count points of a grid from first on, behind the samples there are.
void AddSamples(std::vector<MarginSample>& samples, const Model& model, const ModelInputs& in,
                const Goal& goal, const DistanceGrid& grid, std::size_t first, std::size_t count) {
    std::vector<double> values(count);
    if (goal.quantity == Quantity::Loss)
        model.lossCurve(in, grid.begin() + first, count, values.data());
    else
        model.fieldStrengthCurve(in, goal.powerWatts, grid.begin() + first, count, values.data());
    for (std::size_t i = 0; i < count; ++i)
        samples.push_back({grid.Km(first + i), MarginOf(goal, values[i])});
}

// Whether the margin may change its sign between a coarse sample and the next. It does not where
// both are farther from the goal, on one side, than twice what it changes by thereabouts: the
// curves have no spikes, and near a turn the neighbours show how much they bend.
bool MayMeetGoal(const std::vector<MarginSample>& coarse, std::size_t i) {
    double change = 0.0;
    const std::size_t first = i > 0 ? i - 1 : 0;
    const std::size_t last = std::min(i + 2, coarse.size() - 1);
    for (std::size_t k = first; k < last; ++k)
        change = std::max(change, std::fabs(coarse[k + 1].margin - coarse[k].margin));
    const double a = coarse[i].margin, b = coarse[i + 1].margin;
    return (a >= 0.0) != (b >= 0.0) || !(std::min(std::fabs(a), std::fabs(b)) > 2.0 * change);
}

// Of the whole grid where the goal may be met or missed between them, coarse ones elsewhere.
std::vector<MarginSample> DistanceSamples(const Model& model, const ModelInputs& in,
                                          const Goal& goal) {
    const DistanceGrid& fine = ReachGrid();
    std::vector<MarginSample> coarse;
    coarse.reserve(CoarseReachGrid().Size());
    AddSamples(coarse, model, in, goal, CoarseReachGrid(), 0, CoarseReachGrid().Size());
    const std::size_t intervals = coarse.size() - 1;
    std::vector<MarginSample> samples;
    samples.reserve(2 * coarse.size());
    for (std::size_t i = 0; i < intervals;) {
        std::size_t end = i;  // of neighbouring intervals that are looked at together
        while (end < intervals && MayMeetGoal(coarse, end)) ++end;
        if (end > i) {
            const std::size_t last = std::min(end * CoarseStride, fine.Size() - 1);
            AddSamples(samples, model, in, goal, fine, i * CoarseStride, last - i * CoarseStride);
            i = end;
        } else {
            samples.push_back(coarse[i++]);
        }
    }
    samples.push_back(coarse.back());
    return samples;
}

// Davidson's height correction begins at 300 m.
const std::vector<double>& MastHeights() {
    static const std::vector<double> Heights =
        PointsAround(LowestMast, HighestMast, {300.0}, 0.01, [](double hb) { return 1.01 * hb; });
    return Heights;
}

Reach ReachOfServed(std::vector<Stretch> served) {
    Reach reach{.outcome = Reach::Outcome::Never, .served = std::move(served)};
    if (reach.served.empty()) return reach;
    const Stretch& first = reach.served.front();
    reach.km = first.to;
    if (first.from > ShortestReach)
        reach.outcome = Reach::Outcome::Late;
    else
        reach.outcome =
            first.to < FarthestReach ? Reach::Outcome::Ends : Reach::Outcome::Everywhere;
    return reach;
}

}  // namespace

Reach ReachOf(const Model& model, const ModelInputs& in, const Goal& goal) {
    if (!AreValid(in, goal) || !IsPositive(in.hb)) return {};
    const std::vector<MarginSample> samples = DistanceSamples(model, in, goal);
    if (!AreFinite(samples)) return {};
    ModelInputs at = in;
    const auto margin = [&](double km) {
        at.d = km;
        return MarginAt(model, at, goal);
    };
    Reach reach = ReachOfServed(MetStretches(samples, margin, DistancePrecision));
    at.d = std::max(reach.km, ShortestReach);
    reach.inRange = InRange(model, at);
    return reach;
}

Reach FreeSpaceReach(double f, const Goal& goal) {
    if (!IsPositive(f) || !std::isfinite(goal.value)) return {};
    const double decibels = goal.quantity == Quantity::Loss ? goal.value - FreeSpaceLossAt1Km(f)
                                                            : FreeSpaceFieldAt1Km - goal.value;
    const double km = std::min(std::pow(10.0, decibels / 20.0), FarthestReach);
    std::vector<Stretch> served;
    if (km >= ShortestReach) served.push_back({ShortestReach, km});
    Reach reach = ReachOfServed(std::move(served));
    reach.inRange = true;
    return reach;
}

NeededHeight BaseHeightFor(const Model& model, const ModelInputs& in, const Goal& goal) {
    if (!AreValid(in, goal) || !IsPositive(in.d)) return {};
    ModelInputs at = in;
    const auto margin = [&](double hb) {
        at.hb = hb;
        return MarginAt(model, at, goal);
    };
    std::vector<MarginSample> samples;
    for (const double hb : MastHeights()) samples.push_back({hb, margin(hb)});
    if (!AreFinite(samples)) return {};

    using Outcome = NeededHeight::Outcome;
    NeededHeight needed{.outcome = Outcome::Never,
                        .served = MetStretches(samples, margin, HeightPrecision)};
    at.hb = HighestMast;
    if (!needed.served.empty()) {
        at.hb = needed.metres = needed.served.front().from;
        needed.outcome = needed.metres > LowestMast ? Outcome::Found : Outcome::Lowest;
    }
    needed.inRange = InRange(model, at);
    return needed;
}

std::optional<NeededPower> PowerForFieldStrength(const Model& model, const ModelInputs& in,
                                                 double dBuVm) {
    const Goal goal = Goal::FieldStrength(dBuVm, 1.0);
    if (!AreValid(in, goal) || !IsPositive(in.hb) || !IsPositive(in.d)) return std::nullopt;
    const double watts = std::pow(10.0, -MarginAt(model, in, goal) / 10.0);
    if (!IsPositive(watts)) return std::nullopt;
    return NeededPower{watts, InRange(model, in)};
}

}  // namespace vardel
