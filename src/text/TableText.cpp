#include "text/TableText.h"

#include <algorithm>

#include "text/CsvText.h"

namespace vardel {

std::string TabbedText(const Cells& cells) {
    std::string text;
    for (const auto& line : cells) {
        for (std::size_t i = 0; i < line.size(); ++i) text += (i == 0 ? "" : "\t") + line[i];
        text += '\n';
    }
    return text;
}

std::string CsvText(const Cells& cells) {
    std::string text;
    for (const auto& line : cells) {
        for (std::size_t i = 0; i < line.size(); ++i) {
            if (i > 0) text += ',';
            AppendCsvField(text, line[i]);
        }
        text += "\r\n";
    }
    return text;
}

std::string AlignedText(const Cells& cells) {
    std::vector<std::size_t> widths;
    for (const auto& line : cells) {
        widths.resize(std::max(widths.size(), line.size()));
        for (std::size_t i = 0; i < line.size(); ++i)
            widths[i] = std::max(widths[i], line[i].size());
    }
    std::string text;
    for (const auto& line : cells) {
        for (std::size_t i = 0; i < line.size(); ++i) {
            const std::string room(widths[i] - line[i].size(), ' ');
            text += i == 0 ? line[i] + room : "  " + room + line[i];
        }
        text += "\r\n";
    }
    return text;
}

}  // namespace vardel
