#include "text/NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <locale>
#include <sstream>

namespace vardel {

namespace {

constexpr int SignificantDigits = 15;

// A number as decimal digits: 0.d1 d2 d3 ... times ten to the exponent. Zero has no digits.
struct Decimal {
    bool negative = false;
    std::string digits;
    int exponent = 0;

    explicit Decimal(double x) : negative(std::signbit(x)) {
        if (x == 0.0) return;
        std::array<char, 40> buffer{};
        const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(x),
                                       std::chars_format::scientific, SignificantDigits - 1)
                             .ptr;
        const std::string_view text(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
        const std::size_t e = text.find('e');
        digits = text[0];
        digits += text.substr(2, e - 2);
        std::string_view power = text.substr(e + 1);
        if (power.front() == '+') power.remove_prefix(1);
        std::from_chars(power.data(), power.data() + power.size(), exponent);
        ++exponent;
        DropTrailingZeros();
    }

    void DropTrailingZeros() {
        while (!digits.empty() && digits.back() == '0') digits.pop_back();
    }

    // Keeps so many places behind the point, halves going away from zero.
    void RoundToPlaces(int places) {
        const int keep = exponent + places;
        if (keep >= static_cast<int>(digits.size())) return;
        if (keep < 0) {
            digits.clear();
            return;
        }
        const auto cut = static_cast<std::size_t>(keep);
        const bool up = digits[cut] >= '5';
        digits.resize(cut);
        if (up) {
            while (!digits.empty() && digits.back() == '9') digits.pop_back();
            if (digits.empty()) {
                digits = "1";
                ++exponent;
            } else {
                ++digits.back();
            }
        }
        DropTrailingZeros();
    }

    std::string WholePart() const {
        if (digits.empty() || exponent <= 0) return {};
        const auto length = static_cast<std::size_t>(exponent);
        std::string whole = digits.substr(0, length);
        whole.resize(length, '0');
        return whole;
    }

    std::string Fraction() const {
        if (digits.empty()) return {};
        if (exponent <= 0) return std::string(static_cast<std::size_t>(-exponent), '0') + digits;
        const auto whole = static_cast<std::size_t>(exponent);
        return whole < digits.size() ? digits.substr(whole) : std::string();
    }
};

std::string NotFiniteText(double x) {
    if (std::isnan(x)) return "nan";
    return x < 0 ? "-inf" : "inf";
}

struct NumberPattern {
    std::size_t wholeZeros = 0;
    int places = 0;
    std::size_t placeZeros = 0;
    bool percent = false;

    explicit NumberPattern(std::string_view pattern) {
        bool behindPoint = false;
        for (const char c : pattern) {
            if (c == '.') behindPoint = true;
            if (c == '%') percent = true;
            if (c != '0' && c != '#') continue;
            if (behindPoint) ++places;
            if (c == '0') ++(behindPoint ? placeZeros : wholeZeros);
        }
    }
};

std::string WithoutBlanks(std::string_view text) {
    std::string result(text);
    std::erase_if(result, [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; });
    return result;
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// How many characters at the start of text are a number: sign, digits with a point, exponent.
std::size_t NumberLength(std::string_view text) {
    std::size_t i = 0;
    const auto skipDigits = [&] {
        const std::size_t from = i;
        while (i < text.size() && IsDigit(text[i])) ++i;
        return i - from;
    };
    const auto skipSign = [&] {
        if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
    };
    skipSign();
    std::size_t digits = skipDigits();
    if (i < text.size() && text[i] == '.') {
        ++i;
        digits += skipDigits();
    }
    if (digits == 0) return 0;
    const std::size_t mantissa = i;
    if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
        ++i;
        skipSign();
        if (skipDigits() > 0) return i;
    }
    return mantissa;
}

// text is a number as NumberLength has it.
double NumberOf(std::string_view text) {
    if (text.front() == '+') text.remove_prefix(1);
    double x = 0.0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), x);
    if (result.ec != std::errc::result_out_of_range) return x;
    // A long row of zeros may outweigh the exponent, which from_chars does not see. The stream
    // gives the largest number for what is too large.
    std::istringstream stream{std::string(text)};
    stream.imbue(std::locale::classic());
    stream >> x;
    return x;
}

}  // namespace

std::string ShortestText(double x) {
    if (!std::isfinite(x)) return NotFiniteText(x);
    const Decimal decimal(x);
    if (decimal.digits.empty()) return "0";
    std::string text = decimal.negative ? "-" : "";
    const std::string whole = decimal.WholePart();
    text += whole.empty() ? "0" : whole;
    if (const std::string fraction = decimal.Fraction(); !fraction.empty()) text += '.' + fraction;
    return text;
}

std::string FormatNumber(double x, std::string_view pattern) {
    const NumberPattern places(pattern);
    if (!std::isfinite(x)) return NotFiniteText(x);
    Decimal decimal(x);
    if (places.percent) decimal.exponent += 2;
    decimal.RoundToPlaces(places.places);
    std::string text = decimal.negative && !decimal.digits.empty() ? "-" : "";
    const std::string whole = decimal.WholePart();
    if (whole.size() < places.wholeZeros) text.append(places.wholeZeros - whole.size(), '0');
    text += whole;
    std::string fraction = decimal.Fraction();
    if (fraction.size() < places.placeZeros) fraction.resize(places.placeZeros, '0');
    if (places.places > 0 && (!fraction.empty() || pattern.find('.') != pattern.npos))
        text += '.' + fraction;
    if (places.percent) text += '%';
    return text;
}

std::string FormatText(std::string_view text, std::string_view pattern) {
    const auto places = static_cast<std::size_t>(std::count(pattern.begin(), pattern.end(), '@'));
    std::string result(text);
    if (result.size() < places) result.resize(places, ' ');
    return result;
}

std::string FormatDateTime(const CalendarTime& time) {
    const auto twoDigits = [](int n) { return FormatNumber(n, "00"); };
    const int hour = time.hour % 12 == 0 ? 12 : time.hour % 12;
    return twoDigits(time.month) + '/' + twoDigits(time.day) + '/' +
           FormatNumber(time.year, "0000") + ' ' + twoDigits(hour) + ':' + twoDigits(time.minute) +
           (time.hour < 12 ? " am" : " pm");
}

std::string FixedWidthNumber(std::string_view text) {
    const double x = LeadingNumber(text);
    std::size_t width = text.size();
    if (x < 0.0 && width > 0) --width;
    std::string number = ShortestText(x);
    if (number.size() > width) return number.substr(0, width);
    return number.insert(0, width - number.size(), ' ');
}

double LeadingNumber(std::string_view text) {
    const std::string packed = WithoutBlanks(text);
    const std::size_t length = NumberLength(packed);
    return length == 0 ? 0.0 : NumberOf(std::string_view(packed).substr(0, length));
}

double Finite(double x) {
    constexpr double Largest = std::numeric_limits<double>::max();
    return std::clamp(x, -Largest, Largest);
}

std::string_view Trimmed(std::string_view text) {
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return text;
}

std::optional<double> WholeTextNumber(std::string_view text) {
    text = Trimmed(text);
    if (text.empty() || NumberLength(text) != text.size()) return std::nullopt;
    return NumberOf(text);
}

}  // namespace vardel
