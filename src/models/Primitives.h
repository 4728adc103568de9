#pragma once

#include <cmath>
#include <string_view>

#include "FormulaTerms.h"

// What the empirical models have in common.
//
// Sources: M. Hata, "Empirical Formula for Propagation Loss in Land Mobile Radio Services", IEEE
// Transactions on Vehicular Technology VT-29 (1980), for the antenna and area terms; ITU-R
// Recommendation P.529, for the exponent of the distance term beyond 20 km.

namespace vardel {

// The environment that an area text names.
enum class Area { Urban, Suburban, Open, Unknown };

// The city size that a text names.
enum class City { SmallMedium, Large, Unknown };

// Blanks around the text do not count, nor does case.
Area AreaOf(std::string_view area) noexcept;

// Case does not count, but a blank makes the text unknown: the location statistics are stricter
// about the text than the models are.
Area AreaOfUntrimmed(std::string_view area) noexcept;

// Blanks around the text do not count, but case does.
City CityOf(std::string_view city) noexcept;

// The transmitted power in watts e.r.p., the only thing besides their inputs that models read. 0,
// with which a field strength is minus infinity, until it is set; not to be shared by threads.
extern double PowerWatts;
double GetPowerWatts() noexcept;

// The decimal logarithm of x > 0, as a quotient of natural logarithms.
inline double Log10(double x) noexcept { return std::log(x) / std::log(10.0); }

// What open surroundings take off the urban loss, in dB; 0 for an urban or unknown area. f in MHz.
// logF, the decimal logarithm of f, is taken as given.
inline double AreaCorrection(Area area, double f, double logF) noexcept {
    if (area == Area::Suburban) {
        const double l = Log10(f / 28.0);
        return 2.0 * (l * l) + 5.4;
    }
    if (area == Area::Open) return 4.78 * (logF * logF) - 18.33 * logF + 40.98;
    return 0.0;
}

// How that is explained.
inline constexpr TermText AreaCorrectionText(Area area) noexcept {
    if (area == Area::Suburban) return {"Suburban area", "2 (log(f / 28))² + 5.4", source::Hata};
    if (area == Area::Open)
        return {"Open area", "4.78 (log f)² − 18.33 log f + 40.98", source::Hata};
    return {"Urban area", "0", source::Hata};
}

inline double AreaCorrection(Area area, double f) noexcept {
    return AreaCorrection(area, f, area == Area::Open ? Log10(f) : 0.0);
}

inline double AreaCorrection(std::string_view area, double f) noexcept {
    return AreaCorrection(AreaOf(area), f);
}

// The mobile antenna term a(hm) of a small or medium city, in dB, from the decimal logarithm of the
// frequency in MHz. hm in m.
inline double SmallCityAntennaTermOfLog(double logF, double hm) noexcept {
    return (1.1 * logF - 0.7) * hm - (1.56 * logF - 0.8);
}

// The same from the frequency f in MHz.
inline double SmallCityAntennaTerm(double f, double hm) noexcept {
    return SmallCityAntennaTermOfLog(Log10(f), hm);
}

// a(hm) of a large city, in dB: one form up to and including 300 MHz, another above. f in MHz, hm
// in m.
inline double LargeCityAntennaTerm(double f, double hm) noexcept {
    if (f <= 300.0) {
        const double l = Log10(1.54 * hm);
        return 8.29 * (l * l) - 1.1;
    }
    const double l = Log10(11.75 * hm);
    return 3.2 * (l * l) - 4.97;
}

// Which form of a(hm) the Hata formula takes.
enum class AntennaForm { SmallCity, LargeCity, Kept };

// In an urban area with a city size that is not known, the term keeps its value.
inline AntennaForm HataAntennaForm(Area area, std::string_view cityText) noexcept {
    const City city = area == Area::Urban ? CityOf(cityText) : City::SmallMedium;
    if (city == City::Unknown) return AntennaForm::Kept;
    return city == City::Large ? AntennaForm::LargeCity : AntennaForm::SmallCity;
}

// Gives term the a(hm) of a form, from f and its decimal logarithm.
inline void AssignHataAntennaTerm(double& term, AntennaForm form, double logF, double f,
                                  double hm) noexcept {
    if (form == AntennaForm::SmallCity)
        term = SmallCityAntennaTermOfLog(logF, hm);
    else if (form == AntennaForm::LargeCity)
        term = LargeCityAntennaTerm(f, hm);
}

// How that is explained, for f in MHz.
inline constexpr TermText HataAntennaText(AntennaForm form, double f) noexcept {
    if (form == AntennaForm::Kept)
        return {"Mobile antenna, a city size not known", "0", source::Hata};
    if (form == AntennaForm::SmallCity)
        return {"Mobile antenna a(hm)", "(1.1 log f − 0.7) hm − (1.56 log f − 0.8)", source::Hata};
    if (f <= 300.0)
        return {"Mobile antenna a(hm), large city", "8.29 (log(1.54 hm))² − 1.1", source::Hata};
    return {"Mobile antenna a(hm), large city", "3.2 (log(11.75 hm))² − 4.97", source::Hata};
}

// hb' of ITU-R P.529, in m, as is hb.
inline double EffectiveBaseHeight(double hb) noexcept {
    return hb / std::sqrt(1.0 + 0.000007 * (hb * hb));
}

// How the exponent b of ITU-R P.529 grows with (log d/20)^0.8. f in MHz, effectiveHb in m.
inline double ExponentSlope(double f, double effectiveHb) noexcept {
    return 0.14 + 0.000187 * f + 0.00107 * effectiveHb;
}

// (log d/20)^0.8 for d in km, beyond 20.
inline double ExponentGrowth(double d) noexcept { return std::pow(Log10(d / 20.0), 0.8); }

// The exponent b of ITU-R P.529 for log d: 1 up to and including 20 km, growing beyond. f in MHz, d
// in km, hb in m.
inline double PathExponent(double f, double d, double hb) noexcept {
    if (d <= 20.0) return 1.0;
    return 1.0 + ExponentSlope(f, EffectiveBaseHeight(hb)) * ExponentGrowth(d);
}

}  // namespace vardel
