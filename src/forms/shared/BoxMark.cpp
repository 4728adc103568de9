#include "forms/shared/BoxMark.h"

#include "forms/shared/Palette.h"
#include "text/NumberText.h"

namespace vardel {

bool MarkBox(TextBox& box, bool good, const char* what) {
    box.SetBackColor(good ? White : OutOfRangePink);
    box.SetStateText(good ? "" : what);
    return good;
}

std::optional<double> ReadMarked(TextBox& box, double low, double high, const char* rule) {
    const auto number = WholeTextNumber(box.Text());
    if (MarkBox(box, number && low <= *number && *number <= high, rule)) return number;
    return std::nullopt;
}

}  // namespace vardel
