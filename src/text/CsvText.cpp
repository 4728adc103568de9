#include "text/CsvText.h"

#include <algorithm>

namespace vardel {

void AppendCsvField(std::string& row, std::string_view text, char delimiter) {
    const bool plain = std::none_of(text.begin(), text.end(), [delimiter](char c) {
        return c == delimiter || c == '"' || c == '\r' || c == '\n';
    });
    if (plain) {
        row += text;
        return;
    }
    row += '"';
    for (const char c : text) {
        if (c == '"') row += '"';
        row += c;
    }
    row += '"';
}

}  // namespace vardel
