#include "terrain/GeodesicRadial.h"

#include <GeographicLib/Geodesic.hpp>
#include <GeographicLib/GeodesicLine.hpp>
#include <algorithm>
#include <cmath>
#include <vector>

namespace vardel {

namespace {

// Between nodes so close, and not near a pole, a cubic through four of them is within 0.1 mm.
constexpr double NodeKm = 2.5;
constexpr double HighestLatitude = 75.0;

// Places on the geodesic, with longitudes that run on.
std::vector<Place> NodesOn(const GeographicLib::GeodesicLine& line, double fromKm, double stepKm,
                           std::size_t count) {
    std::vector<Place> nodes(count);
    for (std::size_t i = 0; i < count; ++i) {
        Place& node = nodes[i];
        line.Position((fromKm + static_cast<double>(i) * stepKm) * 1000.0, node.latitude,
                      node.longitude);
        if (i > 0)
            node.longitude = nodes[i - 1].longitude +
                             std::remainder(node.longitude - nodes[i - 1].longitude, 360.0);
    }
    return nodes;
}

// On the cubic through four equally spaced places, at so many spaces from the first.
Place OnCubic(const Place* nodes, double at) {
    const double a = at, b = at - 1.0, c = at - 2.0, d = at - 3.0;
    const double w0 = -b * c * d / 6.0, w1 = a * c * d / 2.0;
    const double w2 = -a * b * d / 2.0, w3 = a * b * c / 6.0;
    return {w0 * nodes[0].latitude + w1 * nodes[1].latitude + w2 * nodes[2].latitude +
                w3 * nodes[3].latitude,
            w0 * nodes[0].longitude + w1 * nodes[1].longitude + w2 * nodes[2].longitude +
                w3 * nodes[3].longitude};
}

double OnMap(double longitude) {
    if (longitude > 180.0) return longitude - 360.0;
    return longitude < -180.0 ? longitude + 360.0 : longitude;
}

}  // namespace

void PlacesAlong(const Place& from, double azimuth, double fromKm, double toKm, std::size_t count,
                 Place* places) {
    const auto line = GeographicLib::Geodesic::WGS84().Line(
        from.latitude, from.longitude, azimuth,
        GeographicLib::Geodesic::LATITUDE | GeographicLib::Geodesic::LONGITUDE |
            GeographicLib::Geodesic::DISTANCE_IN);
    const double length = toKm - fromKm;
    const auto spaces =
        std::max<std::size_t>(3, static_cast<std::size_t>(std::ceil(length / NodeKm)));
    const auto last = static_cast<double>(count - 1);
    std::vector<Place> nodes;
    if (spaces + 1 < count)
        nodes = NodesOn(line, fromKm, length / static_cast<double>(spaces), spaces + 1);
    const bool isSmooth =
        !nodes.empty() && std::all_of(nodes.begin(), nodes.end(), [](const Place& node) {
            return std::fabs(node.latitude) <= HighestLatitude;
        });
    for (std::size_t i = 0; i < count; ++i) {
        const double part = static_cast<double>(i) / last;
        if (isSmooth) {
            const double at = part * static_cast<double>(spaces);
            const std::size_t space = std::max<std::size_t>(static_cast<std::size_t>(at), 1);
            const std::size_t first = std::min(space - 1, spaces - 3);
            places[i] = OnCubic(&nodes[first], at - static_cast<double>(first));
            places[i].longitude = OnMap(places[i].longitude);
        } else {
            line.Position((fromKm + part * length) * 1000.0, places[i].latitude,
                          places[i].longitude);
        }
    }
}

}  // namespace vardel
