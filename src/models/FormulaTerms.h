#pragma once

#include <vector>

// What a formula consists of. A formula adds its terms, in the order in which it is written, to a
// sum: to a PlainSum for its value alone, which costs nothing more than the additions, or to a
// ListedSum for a reader who wants to see how the value comes about.

namespace vardel {

// f is the frequency in MHz, d the distance in km, hb and hm are the heights in m, P is the power
// in watts, pt and pl are the percentages of time and of locations; log is the decimal logarithm.
struct TermText {
    const char* name;
    const char* formula;
    const char* source;  // its publication
};

// One line of an explanation.
struct FormulaTerm {
    // A quantity is no summand; summands are made of it.
    enum class Role { Quantity, Added, Subtracted };

    TermText text;
    double value;      // of what is subtracted, with the sign turned
    const char* unit;  // "dB", "m" or ""
    Role role;
};

// The quantities, then the summands. The plain sum of these, from the first to the last, is the
// formula's value to the last bit.
using FormulaTerms = std::vector<FormulaTerm>;

// The value alone, in dB.
class PlainSum {
public:
    explicit PlainSum(double head = 0.0) noexcept : total_(head) {}

    void Add(const TermText&, double term) noexcept { total_ += term; }
    void Subtract(const TermText&, double term) noexcept { total_ -= term; }
    double Total() const noexcept { return total_; }

private:
    double total_;
};

// The terms, with quantities noted before them. Throws std::bad_alloc.
class ListedSum {
public:
    void Add(const TermText& text, double term) {
        terms_.push_back({text, term, "dB", FormulaTerm::Role::Added});
    }
    void Subtract(const TermText& text, double term) {
        terms_.push_back({text, -term, "dB", FormulaTerm::Role::Subtracted});
    }
    void Note(const TermText& text, double value, const char* unit) {
        terms_.push_back({text, value, unit, FormulaTerm::Role::Quantity});
    }
    const FormulaTerms& Terms() const noexcept { return terms_; }

private:
    FormulaTerms terms_;
};

// Publications that several models draw on; the headers of these have their full titles.
namespace source {
inline constexpr const char* Hata = "Hata 1980";
inline constexpr const char* Okumura = "Okumura 1968";
inline constexpr const char* P529 = "ITU-R P.529-3";
inline constexpr const char* None = "no publication known";
}  // namespace source

}  // namespace vardel
