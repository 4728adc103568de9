#include "models/Distances.h"

namespace vardel {

DistanceGrid::Point::Point(double km)
    : km_(km),
      log_(Log10(km)),
      logOfLog_(LongLogOf(log_)),
      time_(TimeGrowth(km)),
      exponent_(km <= 20.0 ? 0.0 : ExponentGrowth(km)),
      logOfInverse_(Log10(9.98 / km)) {}

DistanceGrid::DistanceGrid(const double* km, std::size_t count) {
    points_.reserve(count);
    for (std::size_t i = 0; i < count; ++i) points_.emplace_back(km[i]);
}

void FreshPoint::Compute(const double* km, std::size_t count, bool time,
                         FreshPoint* points) noexcept {
    for (std::size_t i = 0; i < count; ++i) points[i].km_ = km[i];
    for (std::size_t i = 0; i < count; ++i) points[i].log_ = Log10(km[i]);
    for (std::size_t i = 0; i < count; ++i) points[i].time_ = time ? TimeGrowth(km[i]) : 0.0;
    for (std::size_t i = 0; i < count; ++i)
        points[i].exponent_ = km[i] <= 20.0 ? 0.0 : Log10(km[i] / 20.0);
    for (std::size_t i = 0; i < count; ++i)
        if (!(km[i] <= 20.0)) points[i].exponent_ = std::pow(points[i].exponent_, 0.8);
}

}  // namespace vardel
