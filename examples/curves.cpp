// The greatest distance at which a 900 MHz base station of 1 kW gives 20 dB(uV/m), by each model on
// a thread of its own, from a curve of 3000 distances that all share.
//
//     c++ -std=c++20 -pthread curves.cpp $(pkg-config --cflags --libs vardel-models) -o curves

#include <vardel/models/ModCalculations.h>
#include <array>
#include <cstdio>
#include <thread>
#include <vector>

namespace {

struct Answer {
    double km = 0.0;
    double loss = 0.0;  // dB, there
};

Answer Farthest(const vardel::Model& model, vardel::ModelInputs in,
                const vardel::DistanceGrid& distances) {
    std::vector<double> values(distances.Size());
    model.fieldStrengthCurve(in, 1000.0, distances.begin(), distances.Size(), values.data());
    for (std::size_t i = 0; i < values.size(); ++i)
        if (values[i] >= 20.0) in.d = distances.Km(i);
    vardel::ModelTermsRecord terms;  // of this thread alone
    return {in.d, model.loss(in, terms)};
}

}  // namespace

int main() {
    std::vector<double> km;
    for (int i = 1; i <= 3000; ++i) km.push_back(i / 10.0);
    const vardel::DistanceGrid distances(km.data(), km.size());
    const vardel::ModelInputs in{.f = 900,
                                 .hb = 45,
                                 .hm = 1.5,
                                 .area = "Suburban",
                                 .city = "Small/Medium",
                                 .pctTime = 50,
                                 .pctLoc = 95};
    std::array<Answer, vardel::Models.size()> answers;
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < answers.size(); ++i)
        threads.emplace_back([&, i] { answers[i] = Farthest(vardel::Models[i], in, distances); });
    for (std::thread& thread : threads) thread.join();
    for (std::size_t i = 0; i < answers.size(); ++i)
        std::printf("%-8s  %4.1f km  %.2f dB\n", vardel::Models[i].name, answers[i].km,
                    answers[i].loss);
}
