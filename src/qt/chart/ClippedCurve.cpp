#include "qt/chart/ClippedCurve.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>

namespace vardel {

namespace {

CurvePoint At(const CurvePoint& from, const CurvePoint& to, double t) {
    if (t <= 0.0) return from;
    if (t >= 1.0) return to;
    return {from.x + t * (to.x - from.x), from.y + t * (to.y - from.y)};
}

// The part of a segment within the frame, as the shares of its length where that begins and ends:
// Y.-D. Liang, B. A. Barsky, "A New Concept and Method for Line Clipping", ACM Transactions on
// Graphics 3 (1984).
std::optional<std::pair<double, double>> Within(const CurvePoint& from, const CurvePoint& to,
                                                const ClipFrame& frame) {
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    double begin = 0.0;
    double end = 1.0;
    for (const auto& [toward, room] :
         {std::pair(-dx, from.x - frame.left), std::pair(dx, frame.right - from.x),
          std::pair(-dy, from.y - frame.bottom), std::pair(dy, frame.top - from.y)}) {
        if (toward == 0.0 && room < 0.0) return std::nullopt;
        if (toward < 0.0) begin = std::max(begin, room / toward);
        if (toward > 0.0) end = std::min(end, room / toward);
    }
    if (!(begin <= end)) return std::nullopt;
    return std::pair(begin, end);
}

}  // namespace

std::vector<CurvePoint> Clipped(const std::vector<CurvePoint>& line, const ClipFrame& frame) {
    std::vector<CurvePoint> parts;
    bool goesOn = false;  // the part before ends where the next segment begins
    for (std::size_t i = 1; i < line.size(); ++i) {
        const auto within = Within(line[i - 1], line[i], frame);
        if (!within) {
            goesOn = false;
            continue;
        }
        const auto [begin, end] = *within;
        if (!goesOn || begin > 0.0) {
            if (!parts.empty())
                parts.push_back({parts.back().x, std::numeric_limits<double>::quiet_NaN()});
            parts.push_back(At(line[i - 1], line[i], begin));
        }
        parts.push_back(At(line[i - 1], line[i], end));
        goesOn = end >= 1.0;
    }
    return parts;
}

}  // namespace vardel
