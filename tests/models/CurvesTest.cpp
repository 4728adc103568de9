#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <thread>
#include <vector>

#include "models/ModCalculations.h"

namespace vardel {
namespace {

// Inputs around every threshold of the formulas, whatever the seed.
class RandomPaths {
public:
    explicit RandomPaths(unsigned seed) : random_(seed) {}

    ModelInputs Next() {
        constexpr const char* Areas[] = {"Urban", "Suburban", "Open", " urban ", "Desert"};
        constexpr const char* Cities[] = {"Small/Medium", "Large", " Large "};
        const double pctTime = random_() % 4 == 0 ? 50.0 : Uniform(0, 101);
        return {Uniform(20, 3200),    Uniform(0.1, 300),     Uniform(15, 700), Uniform(0.5, 35),
                Areas[random_() % 5], Cities[random_() % 3], pctTime,          Uniform(0, 101)};
    }
    double Uniform(double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random_);
    }

private:
    std::mt19937 random_;
};

bool SameBits(double a, double b) { return std::memcmp(&a, &b, sizeof a) == 0; }

// How many values of so many random curves differ from those of single calls.
int CurveFaults(unsigned seed, int curves) {
    constexpr std::size_t Points = 12;
    RandomPaths paths(seed);
    int faults = 0;
    for (int i = 0; i < curves; ++i) {
        ModelInputs in = paths.Next();
        const double power = paths.Uniform(0.001, 1e5);
        double distances[Points] = {20.0, 40.238, 64.38, 100.0};
        for (std::size_t k = 4; k < Points; ++k) distances[k] = paths.Uniform(0.05, 320);
        const DistanceGrid grid(distances, Points);
        for (const Model& model : Models) {
            double losses[Points], fields[Points], direct[Points];
            model.lossCurve(in, grid.begin(), Points, losses);
            model.fieldStrengthCurve(in, power, grid.begin(), Points, fields);
            model.lossOverKm(in, distances, Points, direct);
            faults += std::memcmp(direct, losses, sizeof direct) != 0;
            model.fieldStrengthOverKm(in, power, distances, Points, direct);
            faults += std::memcmp(direct, fields, sizeof direct) != 0;
            for (std::size_t k = 0; k < Points; ++k) {
                in.d = distances[k];
                ModelTermsRecord terms;
                faults += SameBits(model.loss(in, terms), losses[k]) ? 0 : 1;
                faults += SameBits(model.fieldStrength(in, power, terms), fields[k]) ? 0 : 1;
            }
        }
    }
    return faults;
}

TEST(Curves, HaveTheBitsOfSingleCalls) { EXPECT_EQ(CurveFaults(1, 25'000), 0); }

// With terms of its own each thread gets its own numbers.
TEST(Curves, OnEightThreads) {
    int faults[8] = {};
    std::thread threads[8];
    for (unsigned i = 0; i < 8; ++i)
        threads[i] = std::thread([i, &faults] { faults[i] = CurveFaults(i, 200); });
    for (std::thread& thread : threads) thread.join();
    for (const int f : faults) EXPECT_EQ(f, 0);
}

// New distances go by blocks: the graphs' are many, and the last is not full.
TEST(Curves, OfManyNewDistances) {
    const ModelInputs in{900, 0, 100, 1.5, "Suburban", "Small/Medium", 10, 90};
    std::vector<double> km;
    for (double d = 0.1; d <= 300.0; d = d + 0.1) km.push_back(d);
    const DistanceGrid grid(km.data(), km.size());
    std::vector<double> direct(km.size()), gridded(km.size());
    const Model& itu529 = ModelOf(ModelNumber::Itu529);
    itu529.fieldStrengthOverKm(in, 5.0, km.data(), km.size(), direct.data());
    itu529.fieldStrengthCurve(in, 5.0, grid.begin(), km.size(), gridded.data());
    EXPECT_EQ(direct, gridded);
}

// Each row holds its own model, in the order of the numbers: at 60 km and 250 m all differ.
TEST(Model, RowsHoldTheirOwn) {
    const ModelInputs in{900, 60, 250, 1.5, "Urban", "Small/Medium", 50, 50};
    const struct {
        const char* name;
        double loss, fieldStrength;
        bool inRange;
    } rows[] = {
        {"ITU 529", 175.1589, 23.2960, false},
        {"Davidson", 178.6871, 19.7578, true},
        {"Cost 231", 174.7747, 23.6701, false},
        {"US", 177.6327, 20.8122, false},
    };
    ASSERT_EQ(std::size(rows), Models.size());
    for (std::size_t i = 0; i < Models.size(); ++i) {
        ModelTermsRecord terms;
        EXPECT_STREQ(Models[i].name, rows[i].name);
        EXPECT_EQ(IndexOf(Models[i].number), i);
        EXPECT_NEAR(Models[i].loss(in, terms), rows[i].loss, 5e-5) << rows[i].name;
        EXPECT_NEAR(Models[i].fieldStrength(in, 1000.0, terms), rows[i].fieldStrength, 5e-5);
        EXPECT_EQ(InRange(Models[i], in), rows[i].inRange) << rows[i].name;
    }
}

}  // namespace
}  // namespace vardel
