#pragma once

#include <functional>
#include <vector>

// Where a curve meets what is asked of it.

namespace vardel {

// Between which distances in km, or heights in m, a goal is met. Its ends meet it, too.
struct Stretch {
    double from;
    double to;
};

// How much a goal is exceeded at some point of a line: met from 0 up.
struct MarginSample {
    double at;
    double margin;  // dB
};

// The stretches that meet a goal between the first sample and the last, in order, with ends within
// precision of the true ones. The samples are of the margin and ascend; between two of them the
// margin is continuous and turns once at the most. A dip or a peak is found between samples, too,
// unless a bend of the curve lies within a sample's distance of it.
std::vector<Stretch> MetStretches(const std::vector<MarginSample>& samples,
                                  const std::function<double(double)>& margin, double precision);

// Points every step from first to last, closer and closer to each bend and to the ends: there down
// to nearest, and the bend itself. next gives the point after one.
std::vector<double> PointsAround(double first, double last, const std::vector<double>& bends,
                                 double nearest, const std::function<double(double)>& next);

}  // namespace vardel
