#include "workbench/BoxRule.h"

#include "platform/Platform.h"
#include "workbench/NumberText.h"

namespace vardel {

void ApplyBoxRule(TextBox& box, const BoxRule& rule, Form& form) {
    double x = LeadingNumber(box.Text());
    if (x < rule.lowest || x > rule.highest) {
        form.GetPlatform().windows.ShowMessage({.text = rule.message});
        x = rule.replacement;
    }
    box.SetText(rule.pattern != nullptr ? FormatNumber(x, rule.pattern) : ShortestText(x));
}

void ApplyAreaRule(const ComboBox& area, ComboBox& city) {
    const bool urban = area.Text() == "Urban";
    city.SetEnabled(urban);
    if (!urban) city.SetText("Small/Medium");
}

std::optional<double> ReadNumberBox(const TextBox& box, const Label& caption, Form& form) {
    const auto number = WholeTextNumber(box.Text());
    if (!number)
        form.GetPlatform().windows.ShowMessage(
            {.text = caption.Caption() + " must be a number, not \"" + box.Text() + "\""});
    return number;
}

}  // namespace vardel
