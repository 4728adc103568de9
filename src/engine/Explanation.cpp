#include "engine/Explanation.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "text/NumberText.h"
#include "text/Utf8.h"

namespace vardel {

namespace {

// So many digits that the terms as they stand add up to the result as it is shown.
constexpr const char* TermPattern = "0.000000";

struct Line {
    std::string name, formula, number, unit, source;
    bool sum = false;    // stands below a rule
    bool first = false;  // of the terms, which stand apart from the quantities
};

std::size_t Width(std::string_view text) {
    std::size_t width = 0;
    for (; !text.empty(); ++width) TakeUtf8(text);
    return width;
}

std::string Number(double x) {
    return std::isfinite(x) ? FormatNumber(x, TermPattern) : "no number";
}

// A sum as a term of another stands in brackets.
std::string AsTerm(const std::string& formula) {
    int depth = 0;
    for (std::size_t i = 0; i + 1 < formula.size(); ++i) {
        if (formula[i] == '(') ++depth;
        if (formula[i] == ')') --depth;
        const std::string_view rest = std::string_view(formula).substr(i);
        if (depth == 0 && (rest.starts_with(" + ") || rest.starts_with(" − ")))
            return '(' + formula + ')';
    }
    return formula;
}

std::string FormulaText(const FormulaTerm& term) {
    switch (term.role) {
        case FormulaTerm::Role::Added:
            return "+ " + AsTerm(term.text.formula);
        case FormulaTerm::Role::Subtracted:
            return "− " + AsTerm(term.text.formula);
        case FormulaTerm::Role::Quantity:
            break;
    }
    return std::string("  ") + term.text.formula;
}

std::vector<Line> LinesOf(const FormulaTerms& terms, const char* unit) {
    std::vector<Line> lines;
    double total = 0.0;
    bool inTerms = false;
    for (const FormulaTerm& term : terms) {
        const bool isTerm = term.role != FormulaTerm::Role::Quantity;
        if (isTerm) total += term.value;
        lines.push_back({term.text.name, FormulaText(term), Number(term.value), term.unit,
                         term.text.source, false, isTerm && !inTerms});
        inTerms = isTerm;
    }
    const std::string shown =
        std::isfinite(total) ? "shown as " + FormatNumber(total, "###0.00") : "";
    lines.push_back({"Sum", "", Number(total), unit, shown, true});
    return lines;
}

// Numbers stand to the right, so that their points do.
std::string LaidOut(const std::vector<Line>& lines) {
    constexpr std::size_t Gap = 2;
    const auto widest = [&lines](std::string Line::*cell) {
        std::size_t width = 0;
        for (const Line& line : lines) width = std::max(width, Width(line.*cell));
        return width;
    };
    const std::size_t name = widest(&Line::name) + Gap, formula = widest(&Line::formula) + Gap,
                      number = widest(&Line::number), unit = widest(&Line::unit) + Gap,
                      source = widest(&Line::source);
    const auto blanks = [](std::size_t width, const std::string& text) {
        return std::string(width - Width(text), ' ');
    };
    std::string text;
    for (const Line& line : lines) {
        if (line.first && !text.empty()) text += '\n';
        if (line.sum) text += std::string(name + formula + number + 1 + unit + source, '-') + '\n';
        text += line.name + blanks(name, line.name) + line.formula + blanks(formula, line.formula) +
                blanks(number, line.number) + line.number + ' ' + line.unit +
                blanks(unit, line.unit) + line.source;
        text.erase(text.find_last_not_of(' ') + 1);
        text += '\n';
    }
    return text;
}

std::string Bounds(const BrokenLimit& limit) {
    if (std::isinf(limit.low)) return "up to " + ShortestText(limit.high);
    return ShortestText(limit.low) + " to " + ShortestText(limit.high);
}

std::string RangeText(const Model& model, const ModelInputs& in) {
    const auto broken = BrokenLimits(model.number, in);
    if (broken.empty()) return "The inputs are in the model's range.\n";
    std::string text = "Out of the model's range:\n";
    for (const BrokenLimit& limit : broken)
        text += std::string("  ") + limit.quantity + ' ' + ShortestText(Finite(limit.value)) + ' ' +
                limit.unit + ", where the model covers " + Bounds(limit) + ' ' + limit.unit + '\n';
    return text;
}

}  // namespace

std::string ExplanationText(const Model& model, const ModelInputs& in, double powerWatts) {
    return "Path loss\n\n" + LaidOut(LinesOf(model.lossTerms(in), "dB")) +
           "\n\nField strength\n\n" +
           LaidOut(LinesOf(model.fieldStrengthTerms(in, powerWatts), "dB(µV/m)")) + "\n\n" +
           RangeText(model, in);
}

}  // namespace vardel
