#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

#include "Check.h"
#include "text/NumberText.h"

namespace {

using namespace vardel;

constexpr double Largest = std::numeric_limits<double>::max();

struct Pattern {
    const char* text;
    int places;
};

constexpr Pattern Patterns[] = {{"#####0.0###", 4}, {"###0.00", 2}, {"00000.00", 2}, {"#0", 0},
                                {"000000.0", 1},    {"###.##", 2},  {"00000000", 0}};

// As far apart as the 15 digits of a text allow, and a half of its last place besides.
bool Near(double x, double y, double half) {
    return std::fabs(x - y) <= std::fabs(x) * 1e-14 + half * (1 + 1e-9);
}

void CheckShortest(double x) {
    const std::string text = ShortestText(x);
    const auto back = WholeTextNumber(text);
    Check(back && std::isfinite(*back) && Near(x, *back, 0.0));
    Check(ShortestText(*back) == text);
    Check(text == "0" || (text.back() != '.' && text.find('e') == text.npos));
}

void CheckField(const std::string& text) {
    const double x = LeadingNumber(text);
    const std::size_t width = text.size() - (x < 0.0 ? 1 : 0);
    const std::string field = FixedWidthNumber(text);
    Check(field.size() == width);
    if (ShortestText(x).size() <= width) Check(LeadingNumber(field) == x);
}

// A shown number, when the user leaves its box again, is shown the same.
void CheckPattern(double x, const Pattern& pattern) {
    const std::string text = FormatNumber(x, pattern.text);
    const double shown = LeadingNumber(text);
    Check(Near(x, shown, 0.5 * std::pow(10.0, -pattern.places)));
    Check(FormatNumber(shown, pattern.text) == text);
    Check((text[0] == '-') == (shown < 0.0));
    CheckField(text);
}

void CheckPercent(double x) {
    const std::string text = FormatNumber(x, "00%");
    Check(text.back() == '%');
    if (std::fabs(x) < Largest / 1000.0) Check(Near(x * 100.0, LeadingNumber(text), 0.5));
}

// The C library's reading is the reference, for it knows no other point in the "C" locale.
void CheckReading(const std::string& text, double x) {
    const double reference = std::strtod(std::string(Trimmed(text)).c_str(), nullptr);
    Check(x == (std::isinf(reference) ? std::copysign(Largest, reference) : reference));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const double x = LeadingNumber(text);
    Check(std::isfinite(x));
    if (const auto whole = WholeTextNumber(text)) {
        Check(*whole == x);
        CheckReading(text, x);
    }
    CheckShortest(x);
    for (const Pattern& pattern : Patterns) CheckPattern(x, pattern);
    CheckPercent(x);
    return 0;
}
