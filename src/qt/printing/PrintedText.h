#pragma once

#include <QString>

class QPagedPaintDevice;

namespace vardel {

struct TextFont;

// Prints the text on pages of the device, each line of it on a line of the page. Where lines are
// wider than the page, the font shrinks, but stays readable; what is wider still is continued on
// the next line. Throws std::runtime_error where the device fails.
void PrintPlainText(QPagedPaintDevice& device, const QString& text, const TextFont& font);

}  // namespace vardel
