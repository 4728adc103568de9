#pragma once

#include <array>
#include <cfloat>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>

// std::pow of a number that is raised again and again, bit for bit, in a third of its time: x^y is
// exp(y · ln x), with ln x kept in two doubles. The sum that this ends in is known to 0.01 units of
// its last place, and the library's own result is within 0.512 units of the truth. So where the sum
// lies farther than both from the middle between two doubles, the library can only have rounded it
// to the same one. Elsewhere, for one number in twenty, the library is called.

namespace vardel {

// Of a library whose pow keeps that bound (glibc from 2.28 on, see its e_pow.c), with a long double
// that the second part of ln x can come from.
#if defined(__GLIBC__) && LDBL_MANT_DIG >= 64
#if __GLIBC__ > 2 || __GLIBC_MINOR__ >= 28
#define VARDEL_FAST_POWER
#endif
#endif

// ln x as a sum. The first part has 26 bits, so that its product with another such is exact.
struct LongLog {
    double high, low;
};

// The first 26 bits of a double.
inline double FirstHalf(double x) noexcept {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &x, sizeof bits);
    bits &= ~((std::uint64_t{1} << 27) - 1);
    std::memcpy(&x, &bits, sizeof x);
    return x;
}

// Of x above zero.
inline LongLog LongLogOf(double x) noexcept {
    const long double log = std::log(static_cast<long double>(x));
    const double high = FirstHalf(static_cast<double>(log));
    return {high, static_cast<double>(log - static_cast<long double>(high))};
}

// 2^(i/256): a double, and what is missing to the truth, relative to it.
class TwoToPartsTable {
public:
    struct Row {
        double power = 0.0, rest = 0.0;
    };
    static constexpr int Parts = 256;

    constexpr TwoToPartsTable() {
        for (int i = 0; i < Parts; ++i) {
            const long double x = 0.693147180559945309417232121458176568L * i / Parts;
            long double power = 1.0L;  // the series of exp from its far end
            for (int n = 24; n > 0; --n) power = 1.0L + x / n * power;
            const auto nearest = static_cast<double>(power);
            rows_[static_cast<std::size_t>(i)] = {nearest,
                                                  static_cast<double>((power - nearest) / nearest)};
        }
    }

    const Row& operator[](std::size_t i) const noexcept { return rows_[i]; }

private:
    std::array<Row, Parts> rows_{};
};

inline constexpr TwoToPartsTable TwoToParts;

// std::pow(x, y), where ln is LongLogOf(x).
inline double FastPower(double x, const LongLog& ln, double y) noexcept {
#ifdef VARDEL_FAST_POWER
    constexpr double PartsInOne = 0x1.71547652b82fep+8;  // 256 / ln 2
    constexpr double PartHigh = 0x1.62e42fefap-9;        // ln 2 / 256: the first bits,
    constexpr double PartLow = 0x1.cf79abc9e3b3ap-48;    // and the others
    constexpr double ToWhole = 0x1.8p52;                 // rounds what it is added to
    const double yHalf = FirstHalf(y);
    const double high = yHalf * ln.high;
    const double low = (y - yHalf) * ln.high + y * ln.low;
    const double shifted = high * PartsInOne + ToWhole;
    const double parts = shifted - ToWhole;
    const double r = (high - parts * PartHigh) + (low - parts * PartLow);
    std::uint64_t n = 0, bits = 0;
    std::memcpy(&n, &shifted, sizeof n);
    const TwoToPartsTable::Row& row = TwoToParts[n % TwoToPartsTable::Parts];
    std::memcpy(&bits, &row.power, sizeof bits);
    bits += (n / TwoToPartsTable::Parts) << 52;
    double scale = 0.0;
    std::memcpy(&scale, &bits, sizeof scale);
    const double series =
        r + (r * r) * (0.5 + r * (1.0 / 6.0 + r * (1.0 / 24.0 + r * (1.0 / 120.0))));
    const double more = scale * (row.rest + series);
    const double result = scale + more;
    const double rest = more - (result - scale);
    // Nearer than half a unit less 0.024, and no number of parts that does not fit.
    if (std::fabs(high) < 2.7 && result + rest * 1.05 == result) return result;
#else
    static_cast<void>(ln);
#endif
    return std::pow(x, y);
}

}  // namespace vardel
