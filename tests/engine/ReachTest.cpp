#include "engine/reach/Reach.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <random>
#include <tuple>

#include "engine/reach/LinkBudget.h"

namespace vardel {
namespace {

// A town's radio: 25 W, 95 % of locations.
const ModelInputs Town{390, 10, 45, 1.5, "Suburban", "Small/Medium", 50, 95};
constexpr double Watts = 25.0;
const Model& Itu = ModelOf(ModelNumber::Itu529);
const double Nan = std::nan("");

ModelInputs TownWith(double ModelInputs::*input, double value) {
    ModelInputs in = Town;
    in.*input = value;
    return in;
}

void ExpectStretches(const std::vector<Stretch>& found, const std::vector<double>& ends) {
    std::vector<double> all;
    for (const auto& [from, to] : found) all.insert(all.end(), {from, to});
    EXPECT_THAT(all, testing::Pointwise(testing::DoubleNear(0.001), ends));
}

// Expected values here are of a computation of its own of the published formulas.
TEST(Reach, EndsWhereTheFormulaSays) {
    constexpr std::tuple<ModelNumber, double, double> Cases[] = {
        {ModelNumber::Itu529, 32, 5.195683},   {ModelNumber::Davidson, 32, 5.192173},
        {ModelNumber::Cost231, 32, 6.443582},  {ModelNumber::Itu529, 0, 38.378389},
        {ModelNumber::Davidson, 0, 34.582039}, {ModelNumber::Itu529, 90, 0.103119}};
    for (const auto& [model, wanted, km] : Cases) {
        const Reach reach = ReachOf(ModelOf(model), Town, Goal::FieldStrength(wanted, Watts));
        EXPECT_EQ(reach.outcome, Reach::Outcome::Ends);
        EXPECT_NEAR(reach.km, km, 2e-6);
        EXPECT_EQ(reach.inRange, model != ModelNumber::Cost231);
        EXPECT_FALSE(reach.Again());
    }
}

TEST(Reach, TellsWhereServiceBeginsAgain) {
    // The loss falls again with the distance from 132.46 km on.
    const ModelInputs low{35, 0, 20, 1.5, "Urban", "Small/Medium", 50, 50};
    const auto served = [&](double allowed) {
        return ReachOf(ModelOf(ModelNumber::Davidson), low, Goal::AllowedLoss(allowed)).served;
    };
    ExpectStretches(served(165), {0.1, 73.43536, 216.88576, 300});
    ExpectStretches(served(167.279370383), {0.1, 132.454165, 132.467367, 300});
    // A gap of 38 m just behind a bend, where no antenna is so high.
    const ModelInputs high{1500, 0, 4.8e6, 1.5, "Urban", "Small/Medium", 1, 50};
    const Reach reach = ReachOf(Itu, high, Goal::AllowedLoss(61.188191));
    ExpectStretches(reach.served, {0.1, 7.871492, 19.996125, 20.006448, 20.044935, 300});
    EXPECT_NEAR(reach.km, 7.871492, 1e-5);
}

TEST(Reach, HasAnOutcomeForEverything) {
    using enum Reach::Outcome;
    const std::tuple<ModelInputs, Goal, Reach::Outcome, double> cases[] = {
        {Town, Goal::FieldStrength(-60, Watts), Everywhere, 300},
        {Town, Goal::FieldStrength(91, Watts), Never, 0},
        // So high that the loss falls with the distance.
        {TownWith(&ModelInputs::hb, 1e8), Goal::AllowedLoss(20), Late, 300},
        {Town, Goal::FieldStrength(32, 0), Invalid, 0},
        {Town, Goal::FieldStrength(32, HUGE_VAL), Invalid, 0},
        {Town, Goal::AllowedLoss(Nan), Invalid, 0},
        {TownWith(&ModelInputs::hb, 0), Goal::AllowedLoss(120), Invalid, 0},
        {TownWith(&ModelInputs::pctTime, Nan), Goal::AllowedLoss(120), Invalid, 0}};
    for (const auto& [in, goal, outcome, km] : cases) {
        const Reach reach = ReachOf(Itu, in, goal);
        EXPECT_EQ(reach.outcome, outcome) << goal.value;
        EXPECT_EQ(reach.km, km);
    }
}

TEST(Reach, TellsTheHeightAndThePowerThatAreNeeded) {
    using enum NeededHeight::Outcome;
    using Ends = std::vector<double>;
    const std::tuple<double, double, NeededHeight::Outcome, Ends, bool> cases[] = {
        {10, 32, Found, {134.5355, 2500}, true},
        {10, 10, Lowest, {20, 2500}, false},
        {10, 90, Never, {}, false},
        // The exponent of the distance grows with the height.
        {300, -46.7, Found, {153.5703, 232.8717, 458.8718, 2500}, false},
        {-1, 32, Invalid, {}, false}};
    for (const auto& [km, wanted, outcome, ends, inRange] : cases) {
        const ModelInputs in = TownWith(&ModelInputs::d, km);
        const auto needed = BaseHeightFor(Itu, in, Goal::FieldStrength(wanted, Watts));
        EXPECT_EQ(needed.outcome, outcome);
        ExpectStretches(needed.served, ends);
        EXPECT_NEAR(needed.metres, ends.empty() ? 0.0 : ends[0], 0.001);
        EXPECT_EQ(needed.inRange, inRange);
    }
    EXPECT_NEAR(PowerForFieldStrength(Itu, Town, 32)->watts, 232.694905, 1e-6);
    for (const double wanted : {Nan, 1e6, -1e6})
        EXPECT_FALSE(PowerForFieldStrength(Itu, Town, wanted));
}

TEST(LinkBudget, FollowsP525) {
    const Receiver receiver{450, 2.15, 3};
    EXPECT_NEAR(FieldStrengthForReceivedPower(receiver, -100), 31.11425, 1e-5);
    EXPECT_NEAR(ReceivedPower(receiver, 31.11425), -100, 1e-5);
    EXPECT_NEAR(AllowedLoss(390, Watts, 32), 143.15069, 1e-5);
    EXPECT_FALSE(std::isfinite(ReceivedPower({-450}, 32)));
}

// How many of a curve's samples the answer tells wrongly; within a millimetre of an end either is
// right.
int WrongSamples(const Reach& reach, double wanted, const DistanceGrid& grid,
                 const std::vector<double>& values) {
    constexpr double Precision = 1e-6;  // km
    int wrong = 0;
    auto stretch = reach.served.begin();
    for (std::size_t i = 0; i < values.size(); ++i) {
        const double km = grid.Km(i);
        while (stretch != reach.served.end() && stretch->to + Precision < km) ++stretch;
        const bool outside = stretch == reach.served.end() || km < stretch->from - Precision;
        const bool inside = !outside && stretch->from <= km && km <= stretch->to;
        wrong += values[i] >= wanted ? outside : inside;
    }
    return wrong;
}

// Field strengths about that of a curve somewhere, or at a turn, against a sample every metre. So
// many paths as the environment says make it a long test.
TEST(Reach, TellsEachMetreOfRandomPaths) {
    const char* count = std::getenv("VARDEL_REACH_PATHS");
    std::mt19937 random(1);
    const auto uniform = [&](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random);
    };
    std::vector<double> km, e(299'901);
    for (int metre = 100; metre <= 300'000; ++metre) km.push_back(metre / 1000.0);
    const DistanceGrid grid(km.data(), km.size());
    for (int i = 0; i < (count != nullptr ? std::atoi(count) : 300); ++i) {
        const Model& model = Models[random() % 4];
        const double f = std::exp(uniform(3, 8)), hm = uniform(1, 30), time = uniform(1, 99);
        const double hb = std::pow(random() % 8 ? 1e4 : 1e9, uniform(0, 1));
        const char* area = random() % 2 ? "Urban" : "Open";
        const ModelInputs in{f, 0, hb, hm, area, "Large", time, uniform(1, 99)};
        model.fieldStrengthCurve(in, Watts, grid.begin(), grid.Size(), e.data());
        std::size_t at = 1 + random() % (e.size() - 2);
        const bool atTurn = random() % 2 == 0;
        const auto turns = [&] { return (e[at] - e[at - 1]) * (e[at + 1] - e[at]) < 0.0; };
        while (atTurn && at + 2 < e.size() && !turns()) ++at;
        const double wanted = e[at] + uniform(-1, 1) * std::pow(10.0, uniform(-9, 0));
        const Reach reach = ReachOf(model, in, Goal::FieldStrength(wanted, Watts));
        ASSERT_EQ(WrongSamples(reach, wanted, grid, e), 0) << model.name << i << ' ' << wanted;
    }
}

}  // namespace
}  // namespace vardel
