#include "qt/map/GroundPictures.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace vardel {

namespace {

// share: 0 for the lowest ground, 1 for the highest.
QColor Tint(double share) {
    constexpr std::array<std::array<double, 3>, 4> Steps = {
        {{206, 224, 196}, {240, 236, 206}, {226, 204, 172}, {250, 250, 250}}};
    const double at = std::clamp(share, 0.0, 1.0) * (Steps.size() - 1);
    const auto step = std::min(static_cast<std::size_t>(at), Steps.size() - 2);
    const double part = at - static_cast<double>(step);
    const auto mixed = [&](std::size_t i) {
        return static_cast<int>(Steps[step][i] + part * (Steps[step + 1][i] - Steps[step][i]));
    };
    return {mixed(0), mixed(1), mixed(2)};
}

}  // namespace

QImage PictureOf(const Relief& relief) {
    if (relief.IsEmpty()) return {};
    const int size = static_cast<int>(relief.size);
    QImage picture(size, size, QImage::Format_RGB32);
    picture.fill(UnseenGround);
    const std::vector<float> shades = ShadeOf(relief);
    float low = HUGE_VALF, high = -HUGE_VALF;
    for (const float metres : relief.metres) {
        if (std::isnan(metres)) continue;
        low = std::min(low, metres);
        high = std::max(high, metres);
    }
    const double span = std::max(1.0, static_cast<double>(high) - static_cast<double>(low));
    for (int y = 0; y < size; ++y) {
        auto* line = reinterpret_cast<QRgb*>(picture.scanLine(y));
        for (int x = 0; x < size; ++x) {
            const std::size_t i =
                static_cast<std::size_t>(y) * relief.size + static_cast<std::size_t>(x);
            if (std::isnan(shades[i])) continue;
            const QColor tint = Tint((static_cast<double>(relief.metres[i]) - low) / span);
            const double light = 0.55 + 0.5 * static_cast<double>(shades[i]);
            const auto lit = [light](int c) { return std::min(255, static_cast<int>(c * light)); };
            line[x] = qRgb(lit(tint.red()), lit(tint.green()), lit(tint.blue()));
        }
    }
    return picture;
}

QImage PictureOf(const AreaPicture& area) {
    if (area.IsEmpty()) return {};
    const int size = static_cast<int>(area.size);
    QImage picture(size, size, QImage::Format_ARGB32);
    for (int y = 0; y < size; ++y) {
        auto* line = reinterpret_cast<QRgb*>(picture.scanLine(y));
        const PixelColor* pixels = area.pixels.data() + static_cast<std::size_t>(y) * area.size;
        for (int x = 0; x < size; ++x)
            line[x] = qRgba(pixels[x].red, pixels[x].green, pixels[x].blue, pixels[x].alpha);
    }
    return picture;
}

}  // namespace vardel
