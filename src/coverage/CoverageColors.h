#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "coverage/CoverageStation.h"

// The colours of an area, in steps from the wanted value, which is their break: what meets it is in
// colours that differ for everyone's eyes (those of the viridis scale by S. van der Walt and N.
// Smith), what does not is grey, and what misses it by more than two steps is left clear.

namespace vardel {

struct PixelColor {
    std::uint8_t red, green, blue, alpha;

    friend bool operator==(const PixelColor&, const PixelColor&) = default;
};

class CoverageColors {
public:
    // step in dB, above zero.
    CoverageColors(ServiceQuantity quantity, double goal, double step)
        : quantity_(quantity), goal_(goal), step_(step) {}

    PixelColor Of(double value) const;
    // Where the colours change, from the lowest on.
    std::vector<double> Breaks() const;
    // What the colours stand for, from the best on.
    struct Step {
        PixelColor color;
        std::string text;  // such as "from 42"
        bool isWanted;     // begins at the wanted value
    };
    std::vector<Step> Steps() const;
    // The same as a picture in SVG; the title is plain text.
    std::string Legend(const std::string& title) const;

private:
    ServiceQuantity quantity_;
    double goal_;
    double step_;
};

}  // namespace vardel
