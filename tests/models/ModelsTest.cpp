#include <gtest/gtest.h>

#include <cmath>
#include <tuple>
#include <utility>

#include "models/ModCalculations.h"
#include "models/ModelTerms.h"

namespace vardel {

namespace {

struct Tested {
    const char* name;
    ModelFunction loss, fieldStrength;
    double excess;  // dB, of the field strength over what the loss gives
};

const Tested Davidson = {"Davidson", DavidsonLoss, DavidsonFieldStrength, 0.0};
const Tested Itu529 = {"ITU-R P.529", Itu529Loss, Itu529FieldStrength, 0.01};
const Tested Cost231 = {"COST 231", Cost231Loss, Cost231FieldStrength, 0.0};
const Tested Us = {"US", UsLoss, UsFieldStrength, 0.0};

struct LossCase {
    const Tested& model;
    ModelInputs in;
    double loss;  // dB
};

constexpr const char* Medium = "Small/Medium";

// Computed outside of this program. Neighbours lie on the two sides of a threshold: 300 MHz, 20 km,
// 40.238 km, 64.38 km and a base height of 300 m.
const LossCase LossCases[] = {
    {Davidson, {900, 10, 50, 1.5, "Urban", Medium, 50, 50}, 157.109083},
    {Davidson, {450, 100, 500, 1.5, "Suburban", Medium, 10, 90}, 172.866288},
    {Davidson, {300, 19.9, 299, 3, "Urban", "Large", 50, 50}, 134.832378},
    {Davidson, {300.0001, 20.1, 301, 3, "Urban", "Large", 50, 50}, 134.796828},
    {Davidson, {900, 40.2375, 100, 3, "Urban", " Large ", 50, 50}, 173.655534},
    {Davidson, {900, 40.2385, 100, 3, "Open", "Large", 50, 50}, 143.959212},
    {Davidson, {1600, 64.375, 100, 3, "SUBURBAN", "Large", 1, 99}, 198.150923},
    {Davidson, {1600, 64.385, 100, 3, "open", "unknown", 99, 1}, 143.915089},
    {Davidson, {150, 5, 400, 2, " urban ", Medium, 70, 10}, 108.964194},
    {Davidson, {150, 9.98, 400, 2, "Rural", "Large", 50, 10}, 117.555667},
    {Itu529, {900, 10, 50, 1.5, "Urban", Medium, 50, 50}, 157.109083},
    {Itu529, {450, 60, 100, 1.5, "Urban", "Large", 50, 50}, 174.081154},
    {Itu529, {900, 0.5, 50, 2, "suburban", "Large", 20, 30}, 97.620888},
    {Itu529, {900, 20.1, 50, 2, "Open", Medium, 20, 30}, 133.093877},
    {Itu529, {200, 100, 150, 2, " Urban", "Large", 80, 30}, 173.032043},
    {Cost231, {1800, 10, 50, 1.5, "Urban", Medium, 50, 50}, 166.902744},
    {Cost231, {1800, 10, 50, 1.5, " urban ", " Large ", 50, 50}, 169.902744},
    {Cost231, {1800, 10, 50, 1.5, "Urban", "large", 50, 50}, 166.902744},
    {Cost231, {1800, 60, 100, 1.5, "Open", "Large", 90, 10}, 154.655584},
    {Cost231, {1700, 20.1, 100, 3, "Suburban", "Large", 25, 75}, 159.615550},
    {Us, {900, 10, 50, 1.5, "Urban", Medium, 50, 50}, 160.486050},
    {Us, {900, 10, 1.5, 50, "Urban", "Large", 50, 50}, 160.486050},
    {Us, {100, 200, 50, 2, "Open", "Large", 10, 90}, 161.412185},
    {Us, {700, 90, 20, 9, "suburban", "unknown", 95, 5}, 168.814315},
};

TEST(Models, Loss) {
    for (const LossCase& c : LossCases)
        EXPECT_NEAR(c.model.loss(c.in), c.loss, 1e-6) << c.model.name << " at " << c.in.d << " km";
}

TEST(Models, FieldStrength) {
    PowerWatts = 0.2;
    for (const LossCase& c : LossCases) {
        const double fieldStrength =
            109.36 + 10.0 * std::log10(0.2) + 20.0 * std::log10(c.in.f) - c.loss + c.model.excess;
        EXPECT_NEAR(c.model.fieldStrength(c.in), fieldStrength, 1e-6)
            << c.model.name << " at " << c.in.d << " km";
    }
    PowerWatts = 1000.0;
    const ModelInputs at900 = {900, 10, 50, 1.5, "Urban", Medium, 50, 50};
    EXPECT_NEAR(DavidsonFieldStrength(at900), 41.336, 0.0005);
    EXPECT_NEAR(Itu529FieldStrength(at900), 41.346, 0.0005);
    EXPECT_NEAR(UsFieldStrength(at900), 37.959, 0.0005);
    EXPECT_NEAR(Cost231FieldStrength({1800, 10, 50, 1.5, "Urban", Medium, 50, 50}), 37.563, 0.0005);
}

// For an urban area with an unknown city size, a function goes by the antenna term of its own last
// call, 0 at first. Only Davidson's two functions are one in this.
TEST(Models, WhatIsNoNumberGivesNone) {
    for (const Tested* model : {&Davidson, &Itu529, &Cost231, &Us})
        for (double ModelInputs::*input :
             {&ModelInputs::f, &ModelInputs::d, &ModelInputs::hb, &ModelInputs::hm,
              &ModelInputs::pctTime, &ModelInputs::pctLoc}) {
            ModelInputs in{900, 10, 50, 1.5, "Urban", Medium, 50, 50};
            in.*input = std::nan("");
            EXPECT_TRUE(std::isnan(model->loss(in))) << model->name;
        }
}

TEST(Models, UnknownCityKeepsTheAntennaTerm) {
    const struct {
        ModelFunction function;
        int group;  // of functions with a common term
        double atFirst, afterSuburban;
    } functions[] = {{DavidsonLoss, 1, 157.124965, 135.436916},
                     {DavidsonFieldStrength, 1, 41.319885, 63.007934},
                     {Itu529Loss, 2, 157.124965, 135.436916},
                     {Itu529FieldStrength, 3, 41.329885, 63.017934}};
    const ModelInputs unknown = {900, 10, 50, 3, "Urban", "small/medium", 50, 50};
    const ModelInputs suburban = {900, 10, 50, 10, "Suburban", "small/medium", 50, 50};
    PowerWatts = 1000.0;
    for (const auto& reader : functions) {
        for (const auto& writer : functions) {
            ModelTerms = {};
            EXPECT_NEAR(reader.function(unknown), reader.atFirst, 1e-6);
            writer.function(suburban);
            EXPECT_NEAR(reader.function(unknown),
                        reader.group == writer.group ? reader.afterSuburban : reader.atFirst, 1e-6);
        }
    }
}

TEST(Variability, Time) {
    const std::tuple<double, double, double> cases[] = {
        {40.3, 0, -1.869154}, {40.3, 10, -0.768985}, {40.3, 50, 0.0},       {40.3, 50.05, 0.000478},
        {40.3, 90, 0.768985}, {40.3, 100, 1.869154}, {200, 25.5, -2.186337}};
    for (const auto& [d, pct, result] : cases)
        EXPECT_NEAR(TimeVariability(d, pct), result, 1e-6) << d << " km, " << pct << " %";
}

TEST(Variability, LocationPercent) {
    const std::pair<double, double> halvesToEven[] = {
        {-1, 2.321},    {0.4, 2.321},   {1.5, 2.321}, {2.5, 1.889},   {3.5, 1.889},
        {48.6, 0.025},  {49.5, 0.025},  {50.4, 0.0},  {50.5, -0.025}, {51.5, -0.025},
        {97.5, -1.889}, {98.5, -2.321}, {100, -2.321}};
    for (const auto& [pct, deviate] : halvesToEven)
        EXPECT_NEAR(LocationVariability(100, pct, "Urban"), 5.3 * deviate, 1e-9) << pct;
    double checksum = 0.0;
    for (int pct = 1; pct <= 99; ++pct) checksum += pct * LocationVariability(100, pct, "Urban");
    EXPECT_NEAR(checksum, 5.3 * -2667.124, 1e-9);
}

TEST(Variability, LocationArea) {
    EXPECT_NEAR(LocationVariability(583, 10, "Open"), 10.037016, 1e-6);
    EXPECT_NEAR(LocationVariability(583, 10, "suburban"), 10.037016, 1e-6);
    EXPECT_NEAR(LocationVariability(583, 10, "urban"), 7.867816, 1e-6);
    for (const char* unknown : {" Urban", "Open ", "Rural"})
        EXPECT_EQ(LocationVariability(583, 10, unknown), 0.0) << unknown;
}

TEST(Variability, Sigma) {
    const std::tuple<double, double, double> cases[] = {
        {50, 5.3, 6.8},    {100, 5.3, 6.8},   {150, 5.35, 6.9},   {200, 5.4, 7},
        {250, 5.55, 7.1},  {350, 5.8, 7.35},  {450, 5.95, 7.6},   {550, 6.1, 7.8},
        {650, 6.25, 7.95}, {750, 6.375, 8.1}, {850, 6.525, 8.25}, {950, 6.65, 8.35},
        {1250, 6.9, 8.7},  {1750, 7.3, 9.2},  {1900, 7.42, 9.32}, {2500, 7.75, 9.7},
        {3000, 8, 10},     {9000, 8, 10}};
    for (const auto& [f, urban, suburban] : cases) {
        EXPECT_NEAR(DeviationSigma(SigmaTableUrban, f), urban, 1e-9) << f;
        EXPECT_NEAR(DeviationSigma(SigmaTableSuburban, f), suburban, 1e-9) << f;
    }
}

TEST(ModelRanges, Edges) {
    const struct Case {
        int model;
        double f, hb, hm, d;
    } inside[] = {{0, 150, 30, 1, 0.5},     {0, 1500, 200, 10, 100}, {1, 30, 20, 1, 0.1},
                  {1, 1500, 2500, 10, 300}, {2, 1500, 30, 1, 0.1},   {2, 2000, 200, 10, 100},
                  {3, 30, 300, 1, 0.1},     {3, 1000, 0.1, 10, 600}, {3, 900, 100, 3, 10}},
      outside[] = {{0, 149.9, 100, 2, 10},   {0, 1500.1, 100, 2, 10},   {0, 900, 29.99, 2, 10},
                   {0, 900, 200.1, 2, 10},   {0, 900, 100, 0.99, 10},   {0, 900, 100, 10.01, 10},
                   {0, 900, 100, 2, 100.01}, {1, 29.9, 100, 2, 10},     {1, 1500.1, 100, 2, 10},
                   {1, 900, 19.99, 2, 10},   {1, 900, 2500.1, 2, 10},   {1, 900, 100, 0.99, 10},
                   {1, 900, 100, 10.01, 10}, {1, 900, 100, 2, 300.01},  {2, 1499.9, 100, 2, 10},
                   {2, 2000.1, 100, 2, 10},  {2, 1800, 29.99, 2, 10},   {2, 1800, 200.1, 2, 10},
                   {2, 1800, 100, 0.99, 10}, {2, 1800, 100, 10.01, 10}, {2, 1800, 100, 2, 100.01},
                   {3, 29.9, 100, 2, 10},    {3, 1000.1, 100, 2, 10},   {3, 900, 100, 3.001, 10},
                   {3, 900, 5000, 0.06, 10}, {3, 900, 10, 10.01, 10},   {3, 900, 100, 2, 600.01},
                   {4, 900, 100, 2, 10},     {-1, 900, 100, 2, 10}};
    for (const Case& c : inside)
        EXPECT_TRUE(ModelInRange(c.model, c.f, c.hb, c.hm, c.d, "Rural")) << &c - inside;
    for (const Case& c : outside)
        EXPECT_FALSE(ModelInRange(c.model, c.f, c.hb, c.hm, c.d, "Open")) << &c - outside;
}

TEST(ModelRanges, TellWhichLimitIsBroken) {
    const auto text = [](ModelNumber model, const ModelInputs& in) {
        std::string all;
        for (const BrokenLimit& limit : BrokenLimits(model, in))
            all += limit.quantity + (' ' + std::to_string(std::lround(limit.value))) + limit.unit +
                   " over " + std::to_string(std::lround(limit.high)) + '\n';
        return all;
    };
    EXPECT_EQ(text(ModelNumber::Us, {900, 700, 100, 3.5, "Open", ""}),
              "Product of the heights 350m² over 300\nDistance 700km over 600\n");
    EXPECT_EQ(text(ModelNumber::Itu529, {900, 50, 210, 11, "Open", ""}),
              "Height of base antenna 210m over 200\nHeight of mobile antenna 11m over 10\n");
}

TEST(FormulaTerms, AddUpToTheResult) {
    for (const Model& model : Models) {
        for (const double d : {5.0, 50.0, 120.0}) {
            for (const char* area : {"Urban", "Suburban", "Open"}) {
                const ModelInputs in{200, d, 400, 1.5, area, "Large", 90, 10};
                const auto total = [](const FormulaTerms& terms) {
                    double sum = 0.0;
                    for (const FormulaTerm& term : terms)
                        if (term.role != FormulaTerm::Role::Quantity) sum += term.value;
                    return sum;
                };
                ModelTermsRecord own;
                EXPECT_EQ(total(model.lossTerms(in)), model.loss(in, own)) << model.name << d;
                EXPECT_EQ(total(model.fieldStrengthTerms(in, 5)), model.fieldStrength(in, 5, own));
            }
        }
    }
}

TEST(FormulaTerms, OfAPathByHand) {
    std::string text;
    for (const FormulaTerm& term :
         ModelOf(ModelNumber::Itu529)
             .lossTerms({900, 60, 250, 1.5, "Urban", "Small/Medium", 10, 90}))
        text += term.text.name + std::string(" = ") +
                std::to_string(std::lround(term.value * 1000)) + term.unit + '\n';
    EXPECT_EQ(text,
              "Effective base height hb' = 208514m\nDistance exponent b = 1294\n"
              "Standard deviation of locations σ = 6600dB\nNormal deviate z = -1276\n"
              "Constant = 69550dB\nFrequency = 77283dB\nBase antenna = -33140dB\n"
              "Mobile antenna a(hm) = -16dB\nUrban area = 0dB\nDistance = 61481dB\n"
              "Percent of time = -1423dB\nPercent of locations = 8422dB\n");
}

}  // namespace

}  // namespace vardel
