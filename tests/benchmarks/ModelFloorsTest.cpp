#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <tuple>
#include <vector>

#include "benchmarks/ModelFloors.h"
#include "models/ModCalculations.h"

// The linker leads every call of log, exp and pow here, those of the model library as well.

namespace {

std::vector<std::tuple<char, double, double>> calls;  // the function, and its arguments

}  // namespace

extern "C" {
double __real_log(double);
double __real_exp(double);
double __real_pow(double, double);
double __wrap_log(double x) { return calls.emplace_back('l', x, 0.0), __real_log(x); }
double __wrap_exp(double x) { return calls.emplace_back('e', x, 0.0), __real_exp(x); }
double __wrap_pow(double x, double y) { return calls.emplace_back('p', x, y), __real_pow(x, y); }
}

namespace vardel {

template <class Inputs>
auto CallsOf(double (*function)(const Inputs&) noexcept, const Inputs& in) {
    calls.clear();
    const volatile double result = function(in);
    static_cast<void>(result);
    std::sort(calls.begin(), calls.end());
    return calls;
}

// A floor with a call too many would hide one that a model wastes.
TEST(ModelFloors, AreTheCallsOfTheModels) {
    const std::tuple<const char*, ModelFunction, FloorFunction> pairs[] = {
        {"DavidsonLoss", DavidsonLoss, DavidsonFloor},
        {"DavidsonFieldStrength", DavidsonFieldStrength, WithPower<DavidsonFloor>},
        {"Itu529Loss", Itu529Loss, Itu529Floor},
        {"Itu529FieldStrength", Itu529FieldStrength, WithPower<Itu529Floor>},
        {"Cost231Loss", Cost231Loss, Cost231Floor},
        {"Cost231FieldStrength", Cost231FieldStrength, WithPower<Cost231Floor>},
        {"UsLoss", UsLoss, UsFloor},
        {"UsFieldStrength", UsFieldStrength, WithPower<UsFloor>},
    };
    std::mt19937 random(1);
    const auto uniform = [&random](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random);
    };
    PowerWatts = 250.0;
    for (const auto& [name, model, floor] : pairs)
        for (int i = 0; i < 20; ++i)
            for (const char* area : {"Urban", "Suburban", "Open"})
                for (const char* city : {"Small/Medium", "Large"})
                    for (const double d : {5.0, 30.0, 100.0}) {
                        const ModelInputs in = {uniform(150, 2000),
                                                d,
                                                uniform(30, 500),
                                                uniform(1, 10),
                                                area,
                                                city,
                                                uniform(1, 99),
                                                uniform(1, 99)};
                        EXPECT_EQ(CallsOf(model, in), CallsOf(floor, FloorInputs(in)))
                            << name << ": " << area << ", " << city << ", " << in.f << " MHz, " << d
                            << " km, " << in.hb << " m";
                    }
}

}  // namespace vardel
