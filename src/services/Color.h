#pragma once

#include <cstdint>

namespace vardel {

// Of sRGB, opaque.
struct Color {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    friend constexpr bool operator==(const Color&, const Color&) = default;
};

constexpr Color Black{0, 0, 0};
constexpr Color White{255, 255, 255};

}  // namespace vardel
