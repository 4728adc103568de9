#pragma once

#include <array>
#include <string_view>

#include "Primitives.h"

// The statistics that move a median loss to other percentages of time and of locations: a loss
// gains TimeVariability and gives up LocationVariability, a field strength the other way about.
// Both are 0 at 50 %. What is no number gives none.
//
// The standard deviations follow the curves of Y. Okumura et al., "Field Strength and its
// Variability in VHF and UHF Land-Mobile Radio Service", Review of the Electrical Communication
// Laboratory 16 (1968).

namespace vardel {

struct SigmaRow {
    double f;      // MHz
    double sigma;  // dB
};

using SigmaTable = std::array<SigmaRow, 13>;

extern const std::array<double, 50> QuantileTable;  // normal deviates of 1 % to 50 %
extern const SigmaTable SigmaTableUrban;
extern const SigmaTable SigmaTableSuburban;  // for open areas as well

// In dB, for d in km. pct is clipped to 1 to 99.
double TimeVariability(double d, double pct) noexcept;
// The part of it that the percentage makes: times TimeGrowth of the distance it is TimeVariability.
double TimeLevel(double pct) noexcept;

// In dB, for f in MHz. pct counts in whole percents, 1 to 99. An area that is not one of the three
// words (in any case, but with no blank around it) gives 0.
double LocationVariability(double f, double pct, std::string_view area) noexcept;
// For an area that is recognised already, as AreaOfUntrimmed does it.
double LocationVariability(double f, double pct, Area area) noexcept;

// The standard deviation in dB at f in MHz: interpolated on frequency, the first or last row's
// beyond the table.
double DeviationSigma(const SigmaTable& table, double f) noexcept;

double LinearInterpolate(double x0, double x1, double y0, double y1, double x) noexcept;

}  // namespace vardel
