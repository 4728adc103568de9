#pragma once

#include <string>
#include <string_view>

namespace vardel {

// A string of JSON with its quotes, in UTF-8 whatever the text is.
void AppendJsonString(std::string& out, std::string_view text);

// One object.
class JsonObject {
public:
    explicit JsonObject(std::string& out) : out_(out) {}

    void Text(std::string_view name, std::string_view value);
    void Number(std::string_view name, double value);  // null where it is not finite
    void YesNo(std::string_view name, bool value) { Raw(name, value ? "true" : "false"); }
    void Null(std::string_view name) { Raw(name, "null"); }
    void Raw(std::string_view name, std::string_view value);  // JSON as it stands
    void End(std::string_view behind = {}) { (out_ += first_ ? "{}" : "}") += behind; }

private:
    void Name(std::string_view name);

    std::string& out_;
    bool first_ = true;
};

}  // namespace vardel
