#include "forms/shared/BoxRule.h"

#include "services/Platform.h"
#include "text/NumberText.h"

namespace vardel {

void ApplyBoxRule(TextBox& box, const BoxRule& rule, Form& form) {
    double x = LeadingNumber(box.Text());
    if (x < rule.lowest || x > rule.highest) {
        form.GetPlatform().windows.ShowMessage({.text = rule.message});
        x = rule.replacement;
    }
    box.SetText(rule.pattern != nullptr ? FormatNumber(x, rule.pattern) : ShortestText(x));
}

std::string TrimmedText(const TextBox& box) { return std::string(Trimmed(box.Text())); }

bool IsUrban(const ComboBox& area) { return area.Text() == "Urban"; }

void ApplyAreaRule(const ComboBox& area, ComboBox& city) {
    city.SetEnabled(IsUrban(area));
    if (!IsUrban(area)) city.SetText("Small/Medium");
}

namespace {

std::nullopt_t Refuse(const TextBox& box, const Label& caption, const char* demand, Form& form) {
    form.GetPlatform().windows.ShowMessage(
        {.text = caption.Caption() + demand + ", not \"" + box.Text() + "\""});
    return std::nullopt;
}

}  // namespace

std::optional<double> ReadNumberBox(const TextBox& box, const Label& caption, Form& form) {
    if (const auto number = WholeTextNumber(box.Text())) return number;
    return Refuse(box, caption, " must be a number", form);
}

std::optional<double> ReadPositiveBox(const TextBox& box, const Label& caption, Form& form) {
    const auto number = ReadNumberBox(box, caption, form);
    if (!number || *number > 0.0) return number;
    return Refuse(box, caption, " must be above zero", form);
}

std::optional<double> ReadPositiveBoxQuietly(const TextBox& box, const Label&, Form&) {
    const auto number = WholeTextNumber(box.Text());
    return number && *number > 0.0 ? number : std::nullopt;
}

}  // namespace vardel
