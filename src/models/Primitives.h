#pragma once

#include <cmath>
#include <string_view>

// What the empirical models have in common.
//
// Sources: M. Hata, "Empirical Formula for Propagation Loss in Land Mobile Radio Services", IEEE
// Transactions on Vehicular Technology VT-29 (1980), for the antenna and area terms; ITU-R
// Recommendation P.529, for the exponent of the distance term beyond 20 km.

namespace vardel {

// The environment that an area text names.
enum class Area { Urban, Suburban, Open, Unknown };

// A city size text with its surrounding blanks removed; case counts.
enum class City { SmallMedium, Large, Unknown };

// Blanks around the text do not count, nor does case.
Area AreaOf(std::string_view area) noexcept;

// Case does not count, but a blank makes the text unknown: the location statistics are stricter
// about the text than the models are.
Area AreaOfUntrimmed(std::string_view area) noexcept;

City CityOf(std::string_view city) noexcept;

// The transmitted power in watts e.r.p., the only thing besides their inputs that models read.
extern double PowerWatts;
double GetPowerWatts() noexcept;

// The decimal logarithm of x > 0, as a quotient of natural logarithms.
inline double Log10(double x) noexcept { return std::log(x) / std::log(10.0); }

// What open surroundings take off the urban loss, in dB; 0 for an urban or unknown area. f in MHz.
inline double AreaCorrection(Area area, double f) noexcept {
    if (area == Area::Suburban) {
        const double l = Log10(f / 28.0);
        return 2.0 * (l * l) + 5.4;
    }
    if (area == Area::Open) {
        const double l = Log10(f);
        return 4.78 * (l * l) - 18.33 * l + 40.98;
    }
    return 0.0;
}

inline double AreaCorrection(std::string_view area, double f) noexcept {
    return AreaCorrection(AreaOf(area), f);
}

// The mobile antenna term a(hm) of a small or medium city, in dB. f in MHz, hm in m.
inline double SmallCityAntennaTerm(double f, double hm) noexcept {
    return (1.1 * Log10(f) - 0.7) * hm - (1.56 * Log10(f) - 0.8);
}

// a(hm) of a large city, in dB: one form up to and including 300 MHz, another above. hm in m.
inline double LargeCityAntennaTerm(double f, double hm) noexcept {
    if (f <= 300.0) {
        const double l = Log10(1.54 * hm);
        return 8.29 * (l * l) - 1.1;
    }
    const double l = Log10(11.75 * hm);
    return 3.2 * (l * l) - 4.97;
}

// Gives term the a(hm) of the Hata formula. In an urban area with a city size that is not known,
// term keeps its value.
inline void AssignHataAntennaTerm(double& term, Area area, std::string_view cityText, double f,
                                  double hm) noexcept {
    const City city = area == Area::Urban ? CityOf(cityText) : City::SmallMedium;
    if (city == City::SmallMedium)
        term = SmallCityAntennaTerm(f, hm);
    else if (city == City::Large)
        term = LargeCityAntennaTerm(f, hm);
}

// hb' of ITU-R P.529, in m.
inline double EffectiveBaseHeight(double hb) noexcept {
    return hb / std::sqrt(1.0 + 0.000007 * (hb * hb));
}

// The exponent b of ITU-R P.529 for log d: 1 up to and including 20 km, growing beyond. hb' goes
// into effectiveHb when it is needed, that is beyond 20 km. f in MHz, d in km, hb in m.
inline double PathExponent(double f, double d, double hb, double& effectiveHb) noexcept {
    if (d <= 20.0) return 1.0;
    effectiveHb = EffectiveBaseHeight(hb);
    return 1.0 + (0.14 + 0.000187 * f + 0.00107 * effectiveHb) * std::pow(Log10(d / 20.0), 0.8);
}

inline double PathExponent(double f, double d, double hb) noexcept {
    double effectiveHb = 0.0;
    return PathExponent(f, d, hb, effectiveHb);
}

// The distance term of Hata's median loss, in dB, with the exponent b. d in km, hb in m.
inline double DistanceTerm(double d, double hb, double b) noexcept {
    const double slope = 44.9 - 6.55 * Log10(hb);
    return b == 1.0 ? slope * Log10(d) : slope * std::pow(Log10(d), b);
}

}  // namespace vardel
