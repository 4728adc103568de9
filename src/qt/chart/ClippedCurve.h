#pragma once

#include <vector>

namespace vardel {

struct CurvePoint {
    double x;
    double y;
};

struct ClipFrame {
    double left, right;
    double bottom, top;

    bool Holds(const CurvePoint& p) const {
        return p.x >= left && p.x <= right && p.y >= bottom && p.y <= top;
    }
};

// The parts of a line through the points that lie within the frame, for devices that clip nothing
// themselves. Between two parts stands a point whose y is NaN.
std::vector<CurvePoint> Clipped(const std::vector<CurvePoint>& line, const ClipFrame& frame);

}  // namespace vardel
