#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

namespace vardel {

// The value of a parameter; std::monostate is the empty value.
using GlobalValue = std::variant<std::monostate, std::string, double, std::int16_t, bool>;

// One parameter that is shared with the host application.
class QuorneGlobal {
public:
    void SetID(std::string id) { id_ = std::move(id); }
    const std::string& ID() const { return id_; }
    void SetValue(GlobalValue value) { value_ = std::move(value); }
    const GlobalValue& Value() const { return value_; }

private:
    std::string id_;
    GlobalValue value_;
};

// Numbers in their shortest form, booleans as True and False.
std::string GlobalText(const GlobalValue& value);

// The new value in the type of the old one; nothing when it does not fit that type.
std::optional<GlobalValue> ConvertLikeDefault(const GlobalValue& old, const GlobalValue& value);

}  // namespace vardel
