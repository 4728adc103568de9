#include "models/Distances.h"

namespace vardel {

DistanceGrid::Point::Point(double km)
    : km_(km),
      log_(Log10(km)),
      time_(TimeGrowth(km)),
      exponent_(km <= 20.0 ? 0.0 : ExponentGrowth(km)),
      logOfInverse_(Log10(9.98 / km)) {}

DistanceGrid::DistanceGrid(const double* km, std::size_t count) {
    points_.reserve(count);
    for (std::size_t i = 0; i < count; ++i) points_.emplace_back(km[i]);
}

}  // namespace vardel
