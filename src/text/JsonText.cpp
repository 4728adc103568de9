#include "text/JsonText.h"

#include <cmath>

#include "text/NumberText.h"
#include "text/Utf8.h"

namespace vardel {

void AppendJsonString(std::string& out, std::string_view text) {
    constexpr std::string_view Hex = "0123456789abcdef";
    out += '"';
    while (!text.empty()) {
        const auto byte = static_cast<unsigned char>(text.front());
        if (byte >= 0x80) {
            AppendUtf8(out, TakeUtf8(text));
            continue;
        }
        text.remove_prefix(1);
        if (byte < 0x20) {
            out += "\\u00";
            out += Hex[byte / 16U];
            out += Hex[byte % 16U];
            continue;
        }
        if (byte == '"' || byte == '\\') out += '\\';
        out += static_cast<char>(byte);
    }
    out += '"';
}

void JsonObject::Text(std::string_view name, std::string_view value) {
    Name(name);
    AppendJsonString(out_, value);
}

void JsonObject::Number(std::string_view name, double value) {
    if (std::isfinite(value))
        Raw(name, ShortestText(value));
    else
        Null(name);
}

void JsonObject::Name(std::string_view name) {
    out_ += first_ ? '{' : ',';
    first_ = false;
    AppendJsonString(out_, name);
    out_ += ':';
}

void JsonObject::Raw(std::string_view name, std::string_view value) {
    Name(name);
    out_ += value;
}

}  // namespace vardel
