#include "engine/Explanation.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "text/NumberText.h"
#include "text/Utf8.h"

namespace vardel {

namespace {

// So many digits that the terms as they stand add up to the result as it is shown.
constexpr const char* TermPattern = "0.000000";

struct Line {
    std::array<std::string, 4> cells;  // name, formula, value with unit, source
    bool sum = false;                  // stands below a rule
};

std::size_t Width(std::string_view text) {
    std::size_t width = 0;
    for (; !text.empty(); ++width) TakeUtf8(text);
    return width;
}

std::string Value(double x) {
    return std::isfinite(x) ? FormatNumber(x, TermPattern) : "no number";
}

std::vector<Line> LinesOf(const FormulaTerms& terms, const char* unit) {
    std::vector<Line> lines;
    double total = 0.0;
    for (const FormulaTerm& term : terms) {
        const bool summand = term.role != FormulaTerm::Role::Quantity;
        if (summand) total += term.value;
        const char* sign = !summand                                     ? "  "
                           : term.role == FormulaTerm::Role::Subtracted ? "− "
                                                                        : "+ ";
        lines.push_back({{term.text.name, (sign + std::string(term.text.formula)),
                          Value(term.value) + ' ' + term.unit, term.text.source}});
    }
    lines.push_back({{"Sum", "", Value(total) + ' ' + unit,
                      std::isfinite(total) ? "shown as " + FormatNumber(total, "###0.00") : ""},
                     true});
    return lines;
}

std::string LaidOut(const std::vector<Line>& lines) {
    std::array<std::size_t, 4> widths{};
    for (const Line& line : lines)
        for (std::size_t i = 0; i < widths.size(); ++i)
            widths.at(i) = std::max(widths.at(i), Width(line.cells.at(i)));
    // Values stand to the right, so that their points do.
    std::size_t unitWidth = 0;
    const auto unitOf = [](const std::string& value) {
        return value.substr(std::min(value.size(), value.rfind(' ')));
    };
    for (const Line& line : lines) unitWidth = std::max(unitWidth, Width(unitOf(line.cells[2])));
    std::string text;
    for (const Line& line : lines) {
        const auto& [name, formula, value, source] = line.cells;
        const std::string unit = unitOf(value);
        const std::string number = value.substr(0, value.size() - unit.size());
        if (line.sum)
            text +=
                std::string(widths[0] + widths[1] + widths[2] + widths[3] + 6 + unitWidth, '-') +
                '\n';
        text += name + std::string(widths[0] - Width(name) + 2, ' ') + formula +
                std::string(widths[1] - Width(formula) + 2, ' ') +
                std::string(widths[2] - Width(number), ' ') + number + unit +
                std::string(unitWidth - Width(unit) + 2, ' ') + source;
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
