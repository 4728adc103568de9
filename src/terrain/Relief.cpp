#include "terrain/Relief.h"

#include <GeographicLib/AzimuthalEquidistant.hpp>
#include <algorithm>
#include <cmath>
#include <limits>

namespace vardel {

namespace {

constexpr float Unknown = std::numeric_limits<float>::quiet_NaN();

// The difference of two cells per cell; of the one that is known and the middle where the other is
// not.
float Slope(float before, float middle, float after) {
    if (std::isnan(before)) return std::isnan(after) ? 0.0F : after - middle;
    return std::isnan(after) ? middle - before : (after - before) / 2.0F;
}

// The slope that nineteen of twenty cells keep below.
float UsualSteepness(std::vector<float> slopes) {
    if (slopes.empty()) return 0.0F;
    const auto at = slopes.begin() + static_cast<std::ptrdiff_t>(slopes.size() * 19 / 20);
    std::nth_element(slopes.begin(), at, slopes.end());
    return *at;
}

}  // namespace

double Relief::MetresAt(double eastKm, double northKm) const {
    const auto cell = [this](double km) {
        return std::floor((km / radiusKm + 1.0) / 2.0 * static_cast<double>(size));
    };
    const double column = cell(eastKm), row = cell(-northKm);
    const auto isInside = [this](double at) { return at >= 0.0 && at < static_cast<double>(size); };
    if (IsEmpty() || !isInside(column) || !isInside(row))
        return std::numeric_limits<double>::quiet_NaN();
    return static_cast<double>(
        metres[static_cast<std::size_t>(row) * size + static_cast<std::size_t>(column)]);
}

Relief ReliefAround(Elevations& elevations, const Place& site, double radiusKm, std::size_t size,
                    const std::function<bool(std::size_t done)>& goOn) {
    Relief relief{size, radiusKm, std::vector<float>(size * size, Unknown)};
    const GeographicLib::AzimuthalEquidistant plane;
    const double cell = 2000.0 * radiusKm / static_cast<double>(size);
    const auto metresFromMiddle = [&](std::size_t i) {
        return (static_cast<double>(i) + 0.5) * cell - 1000.0 * radiusKm;
    };
    std::vector<Place> places(size);
    std::vector<double> metres(size);
    for (std::size_t row = 0; row < size && goOn(row); ++row) {
        for (std::size_t column = 0; column < size; ++column)
            plane.Reverse(site.latitude, site.longitude, metresFromMiddle(column),
                          -metresFromMiddle(row), places[column].latitude,
                          places[column].longitude);
        elevations.At(places.data(), size, metres.data());
        std::transform(metres.begin(), metres.end(),
                       relief.metres.begin() + static_cast<std::ptrdiff_t>(row * size),
                       [](double x) { return static_cast<float>(x); });
    }
    return relief;
}

std::vector<float> ShadeOf(const Relief& relief) {
    const std::size_t size = relief.size;
    const auto at = [&](std::size_t row, std::size_t column) {
        return row < size && column < size ? relief.metres[row * size + column] : Unknown;
    };
    std::vector<float> east(relief.metres.size()), south(relief.metres.size()), steepness;
    for (std::size_t row = 0; row < size; ++row)
        for (std::size_t column = 0; column < size; ++column) {
            const std::size_t i = row * size + column;
            const float middle = at(row, column);
            if (std::isnan(middle)) continue;
            east[i] = Slope(at(row, column - 1), middle, at(row, column + 1));
            south[i] = Slope(at(row - 1, column), middle, at(row + 1, column));
            steepness.push_back(std::hypot(east[i], south[i]));
        }
    const float usual = UsualSteepness(std::move(steepness));
    const float drawnOut = usual > 0.0F ? 1.0F / usual : 0.0F;
    std::vector<float> shades(relief.metres.size(), Unknown);
    for (std::size_t i = 0; i < shades.size(); ++i) {
        if (std::isnan(relief.metres[i])) continue;
        // The ground's normal on the direction of the sun: (-1, -1, sqrt 2) / 2.
        const float x = drawnOut * east[i], y = drawnOut * south[i];
        const float toSun = (x + y + std::sqrt(2.0F)) / 2.0F;
        shades[i] = std::clamp(toSun / std::sqrt(1.0F + x * x + y * y), 0.0F, 1.0F);
    }
    return shades;
}

}  // namespace vardel
