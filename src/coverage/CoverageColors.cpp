#include "coverage/CoverageColors.h"

#include <algorithm>
#include <cmath>

#include "text/NumberText.h"

namespace vardel {

namespace {

constexpr int Missing = 2;  // colours of what does not meet the goal; they come first
constexpr std::array<PixelColor, 8> Colors = {{{226, 226, 226, 255},
                                               {190, 190, 190, 255},
                                               {253, 231, 37, 255},
                                               {144, 215, 67, 255},
                                               {53, 183, 121, 255},
                                               {33, 145, 140, 255},
                                               {49, 104, 142, 255},
                                               {68, 57, 131, 255}}};
constexpr PixelColor Clear{0, 0, 0, 0};

std::string Escaped(const std::string& text) {
    std::string escaped;
    for (const char c : text)
        if (c == '<')
            escaped += "&lt;";
        else if (c == '&')
            escaped += "&amp;";
        else
            escaped += c;
    return escaped;
}

std::string Hex(const PixelColor& color) {
    constexpr const char* Digits = "0123456789abcdef";
    std::string text = "#";
    for (const unsigned part : {color.red, color.green, color.blue})
        text += {Digits[part >> 4U], Digits[part & 15U]};
    return text;
}

}  // namespace

PixelColor CoverageColors::Of(double value) const {
    if (std::isnan(value)) return Clear;
    const bool isLoss = quantity_ == ServiceQuantity::PathLoss;
    const double steps = std::floor((isLoss ? goal_ - value : value - goal_) / step_);
    if (steps < -Missing) return Clear;
    const double last = static_cast<double>(Colors.size()) - 1.0;
    return Colors[static_cast<std::size_t>(std::min(steps + Missing, last))];
}

std::vector<double> CoverageColors::Breaks() const {
    const double better = quantity_ == ServiceQuantity::PathLoss ? -step_ : step_;
    std::vector<double> breaks;
    breaks.reserve(Colors.size());
    for (int i = 0; i < static_cast<int>(Colors.size()); ++i)
        breaks.push_back(goal_ + (i - Missing) * better);
    std::sort(breaks.begin(), breaks.end());
    return breaks;
}

std::vector<CoverageColors::Step> CoverageColors::Steps() const {
    const bool isLoss = quantity_ == ServiceQuantity::PathLoss;
    std::vector<Step> steps;
    steps.reserve(Colors.size());
    for (int i = static_cast<int>(Colors.size()) - 1; i >= 0; --i) {
        const double value = goal_ + (i - Missing) * (isLoss ? -step_ : step_);
        steps.push_back({Colors[static_cast<std::size_t>(i)],
                         (isLoss ? "up to " : "from ") + ShortestText(value), i == Missing});
    }
    return steps;
}

std::string CoverageColors::Legend(const std::string& title) const {
    constexpr int Box = 22, Head = 62, Width = 260;
    const std::vector<Step> steps = Steps();
    const std::string height = std::to_string(Head + static_cast<int>(steps.size()) * Box + 12);
    std::string svg = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + std::to_string(Width) +
                      "\" height=\"" + height +
                      "\" font-family=\"Liberation Sans, Arial, sans-serif\" font-size=\"13\">\n"
                      "<rect width=\"100%\" height=\"100%\" fill=\"white\"/>\n"
                      "<text x=\"12\" y=\"24\" font-weight=\"bold\">" +
                      Escaped(title) + "</text>\n<text x=\"12\" y=\"46\">" + NameOf(quantity_) +
                      " in " + UnitOf(quantity_) + "</text>\n";
    int top = Head;
    for (const Step& step : steps) {
        svg += "<rect x=\"12\" y=\"" + std::to_string(top) +
               "\" width=\"34\" height=\"18\" fill=\"" + Hex(step.color) +
               "\" stroke=\"#666\" stroke-width=\"0.5\"/>\n<text x=\"56\" y=\"" +
               std::to_string(top + 14) + "\"" + (step.isWanted ? " font-weight=\"bold\"" : "") +
               ">" + step.text + (step.isWanted ? ", as wanted" : "") + "</text>\n";
        top += Box;
    }
    return svg + "</svg>\n";
}

}  // namespace vardel
