#pragma once

#include <string>
#include <string_view>

namespace vardel::cli {

// A string of JSON with its quotes, in UTF-8 whatever the text is.
void AppendJsonString(std::string& out, std::string_view text);

// One object on a line of its own.
class JsonLine {
public:
    explicit JsonLine(std::string& out) : out_(out) {}

    void Text(std::string_view name, std::string_view value);
    void Number(std::string_view name, double value);  // null where it is not finite
    void YesNo(std::string_view name, bool value) { Raw(name, value ? "true" : "false"); }
    void Null(std::string_view name) { Raw(name, "null"); }
    void End() { out_ += first_ ? "{}\n" : "}\n"; }

private:
    void Name(std::string_view name);
    void Raw(std::string_view name, std::string_view value);

    std::string& out_;
    bool first_ = true;
};

}  // namespace vardel::cli
