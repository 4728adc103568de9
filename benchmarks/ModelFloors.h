#pragma once

#include <algorithm>
#include <cmath>

#include "models/ModelInputs.h"
#include "models/Primitives.h"

// The floor of each model function: the bare log, exp, pow and sqrt calls that its formula needs,
// with the arguments of the formula, and nothing else. What they return has no meaning. A test sees
// that the model functions make the same calls.

namespace vardel {

// What the floors need of a path in the models' ranges. The texts are read beforehand: that is no
// part of a floor.
struct FloorInputs {
    explicit FloorInputs(const ModelInputs& in) noexcept
        : f(in.f),
          d(in.d),
          hb(in.hb),
          hm(in.hm),
          pctTime(in.pctTime),
          suburban(AreaOf(in.area) == Area::Suburban),
          largeCity(AreaOf(in.area) == Area::Urban && CityOf(in.city) == City::Large) {}

    double f, d, hb, hm;  // MHz, km, m, m
    double pctTime;       // 1 to 99
    bool suburban, largeCity;
};

using FloorFunction = double (*)(const FloorInputs&) noexcept;

// The time variability, and the area term.
inline double VariabilityAndAreaFloor(const FloorInputs& in) noexcept {
    const double sum =
        std::exp(-0.01 * in.d) + std::log(0.02 * std::min(in.pctTime, 100.0 - in.pctTime));
    return in.suburban ? sum + std::log(in.f / 28.0) : sum;
}

inline double HataAntennaFloor(const FloorInputs& in) noexcept {
    return in.largeCity ? std::log((in.f <= 300.0 ? 1.54 : 11.75) * in.hm) : 0.0;
}

inline double DavidsonFloor(const FloorInputs& in) noexcept {
    double sum = std::log(in.f) + std::log(in.hb) + std::log(in.d) + HataAntennaFloor(in) +
                 VariabilityAndAreaFloor(in);
    if (in.d > 20.0) sum += std::log(in.hb / 121.92);
    if (in.d > 40.238) sum += std::log(1500.0 / in.f);
    if (in.hb > 300.0) sum += std::log(9.98 / in.d);
    return sum;
}

// That of COST 231 has the antenna term of a small city everywhere, which needs no more than log f.
inline double Cost231Floor(const FloorInputs& in) noexcept {
    const double sum = std::log(in.f) + std::log(in.hb) + VariabilityAndAreaFloor(in);
    if (in.d <= 20.0) return sum + std::log(in.d);
    return sum + std::pow(Log10(in.d), PathExponent(in.f, in.d, in.hb));
}

inline double Itu529Floor(const FloorInputs& in) noexcept {
    return Cost231Floor(in) + HataAntennaFloor(in);
}

inline double UsFloor(const FloorInputs& in) noexcept {
    return std::log(in.f) + std::log(in.d) + std::log(in.hb * in.hm) + VariabilityAndAreaFloor(in);
}

// A field strength needs the logarithm of the power, too.
template <FloorFunction LossFloor>
double WithPower(const FloorInputs& in) noexcept {
    return LossFloor(in) + std::log(PowerWatts);
}

}  // namespace vardel
