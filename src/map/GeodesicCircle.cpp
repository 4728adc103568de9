#include "map/GeodesicCircle.h"

#include <GeographicLib/Geodesic.hpp>
#include <algorithm>
#include <cmath>

namespace vardel {

namespace {

constexpr std::int64_t HalfTurn = 1'800'000'000;
constexpr std::int64_t Turn = 2 * HalfTurn;
constexpr std::int64_t Pole = 900'000'000;

std::int64_t Rounded(double degrees) { return std::llround(degrees * PositionsPerDegree); }

// The way from one longitude to another, the shorter one about the earth.
std::int64_t ShortWay(std::int64_t from, std::int64_t to) {
    const std::int64_t way = (to - from) % Turn;
    if (way > HalfTurn) return way - Turn;
    return way <= -HalfTurn ? way + Turn : way;
}

// The circle against the clock, its longitudes running on beyond the antimeridian. The last
// position is the first again, a turn on for a circle round a pole.
PolygonRing RunningCircle(const Place& place, double km) {
    const auto& earth = GeographicLib::Geodesic::WGS84();
    PolygonRing circle;
    for (int azimuth = 360; azimuth >= 0; --azimuth) {
        double latitude = 0.0, longitude = 0.0;
        // The same call for both ends, so that they meet.
        earth.Direct(place.latitude, place.longitude, azimuth % 360, km * 1000.0, latitude,
                     longitude);
        // A pole itself has no longitude, so the circle passes it by a centimetre.
        Position position{Rounded(longitude), std::clamp(Rounded(latitude), 1 - Pole, Pole - 1)};
        if (!circle.empty())
            position.longitude =
                circle.back().longitude + ShortWay(circle.back().longitude, position.longitude);
        circle.push_back(position);
    }
    return circle;
}

Position CutBetween(const Position& a, const Position& b, std::int64_t meridian) {
    const double part = static_cast<double>(meridian - a.longitude) /
                        static_cast<double>(b.longitude - a.longitude);
    return {meridian,
            a.latitude + std::llround(part * static_cast<double>(b.latitude - a.latitude))};
}

void Add(PolygonRing& ring, const Position& position) {
    if (ring.empty() || ring.back() != position) ring.push_back(position);
}

// The part of a ring to one side of a meridian, east for side 1 and west for -1.
PolygonRing Side(const PolygonRing& ring, std::int64_t meridian, int side) {
    const auto isInside = [&](const Position& at) { return side * (at.longitude - meridian) >= 0; };
    PolygonRing part;
    for (std::size_t i = 0; i + 1 < ring.size(); ++i) {
        const Position &a = ring[i], &b = ring[i + 1];
        if (isInside(a)) Add(part, a);
        if (isInside(a) != isInside(b)) Add(part, CutBetween(a, b, meridian));
    }
    if (!part.empty()) Add(part, part.front());
    return part;
}

bool HasWidth(const PolygonRing& ring) {
    return std::any_of(ring.begin(), ring.end(), [&](const Position& position) {
        return position.longitude != ring.front().longitude;
    });
}

// What lies on the map, and what lies on the maps west and east of it.
std::vector<PolygonRing> CutAtAntimeridian(const PolygonRing& circle) {
    std::vector<PolygonRing> parts;
    for (const std::int64_t map : {-Turn, std::int64_t{0}, Turn}) {
        PolygonRing part = Side(Side(circle, map - HalfTurn, 1), map + HalfTurn, -1);
        for (Position& position : part) position.longitude -= map;
        if (HasWidth(part)) parts.push_back(std::move(part));
    }
    return parts;
}

// A circle round a pole, from one side of the map to the other and back along the pole.
PolygonRing OpenedAtAntimeridian(const PolygonRing& circle) {
    const std::int64_t turn = circle.back().longitude - circle.front().longitude;
    const std::int64_t direction = turn > 0 ? 1 : -1;
    const std::int64_t start = -direction * HalfTurn;  // the side of the map where it comes in
    const std::size_t count = circle.size() - 1;
    // How far on the turn each position is, from the antimeridian.
    const auto way = [&](std::size_t i) {
        const std::int64_t on = direction * (circle[i % count].longitude - start) % Turn;
        return on < 0 ? on + Turn : on;
    };
    std::size_t first = 0;
    for (std::size_t i = 1; i < count; ++i)
        if (way(i) < way(first)) first = i;

    PolygonRing ring;
    for (std::size_t i = first; i < first + count; ++i)
        ring.push_back({start + direction * way(i), circle[i % count].latitude});
    const Position beforeFirst{ring.back().longitude - turn, ring.back().latitude};
    const Position cut = CutBetween(beforeFirst, ring.front(), start);
    const std::int64_t pole = direction * Pole;
    for (const Position& corner : {Position{-start, cut.latitude}, Position{-start, pole},
                                   Position{start, pole}, cut, ring.front()})
        Add(ring, corner);
    return ring;
}

}  // namespace

std::vector<PolygonRing> GeodesicCircle(const Place& place, double km) {
    const PolygonRing circle = RunningCircle(place, km);
    if (circle.front() == circle.back()) return CutAtAntimeridian(circle);
    return {OpenedAtAntimeridian(circle)};
}

}  // namespace vardel
