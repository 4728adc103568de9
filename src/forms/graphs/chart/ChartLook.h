#pragma once

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <vector>

namespace vardel {

struct AxisRange {
    double From;
    double To;
    bool operator==(const AxisRange&) const = default;
};

// Of the distance and of the value.
using ChartRanges = std::array<AxisRange, 2>;

// What a user has changed in how a chart is drawn; at first, nothing.
struct ChartLook {
    bool LogDistance = false;
    std::optional<ChartRanges> Ranges{};  // instead of those that the form gives
    std::vector<std::string> Off{};       // names of curves that are not drawn

    bool IsOff(const std::string& curve) const {
        return std::find(Off.begin(), Off.end(), curve) != Off.end();
    }
    bool operator==(const ChartLook&) const = default;
};

// What of a chart goes into a file, and how large.
struct ChartFrame {
    bool AsZoomed = false;  // as the screen shows it, instead of the whole graph
    int Width = 0;          // of a picture, in pixels; 0: as large as its kind is otherwise
    int Height = 0;
};

enum class ChartFileKind { Png, Svg, Pdf };

}  // namespace vardel
