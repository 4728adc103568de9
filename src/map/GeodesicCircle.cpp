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

Position RoundedPlace(double latitude, double longitude) {
    // A pole itself has no longitude, so an outline passes it by a centimetre.
    return {Rounded(longitude), std::clamp(Rounded(latitude), 1 - Pole, Pole - 1)};
}

// The end of a reach on one of count azimuths.
Position EndOf(const Place& place, std::size_t azimuth, std::size_t count, double km) {
    double latitude = 0.0, longitude = 0.0;
    GeographicLib::Geodesic::WGS84().Direct(
        place.latitude, place.longitude,
        360.0 * static_cast<double>(azimuth) / static_cast<double>(count), km * 1000.0, latitude,
        longitude);
    return RoundedPlace(latitude, longitude);
}

// The same positions with longitudes that run on beyond the antimeridian. The last position is the
// first again, a turn on for a ring round a pole.
PolygonRing Running(PolygonRing ring) {
    for (std::size_t i = 1; i < ring.size(); ++i)
        ring[i].longitude =
            ring[i - 1].longitude + ShortWay(ring[i - 1].longitude, ring[i].longitude);
    return ring;
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

// A part of a ring that lies to one side of a meridian, from where it comes in to where it leaves.
struct Arc {
    PolygonRing positions;
    bool joined = false;
};

// The arcs of a ring to one side of a meridian, east for side 1 and west for -1; none for a ring
// that does not cross it.
std::vector<Arc> ArcsOf(const PolygonRing& ring, std::int64_t meridian, int side) {
    const std::size_t count = ring.size() - 1;
    const auto isInside = [&](std::size_t i) {
        return side * (ring[i % count].longitude - meridian) >= 0;
    };
    std::size_t first = 0;
    while (first < count && (isInside(first) || !isInside(first + 1))) ++first;
    std::vector<Arc> arcs;
    if (first == count) return arcs;
    for (std::size_t i = first; i < first + count; ++i) {
        const Position &a = ring[i % count], &b = ring[(i + 1) % count];
        if (!isInside(i) && isInside(i + 1)) arcs.push_back({{CutBetween(a, b, meridian)}});
        if (isInside(i + 1)) Add(arcs.back().positions, b);
        if (isInside(i) && !isInside(i + 1)) Add(arcs.back().positions, CutBetween(a, b, meridian));
    }
    return arcs;
}

// The parts of a ring to one side of a meridian. Where an arc leaves, the outline goes on along the
// meridian, what it encloses to its left, to the next arc that comes in.
std::vector<PolygonRing> Sides(const PolygonRing& ring, std::int64_t meridian, int side) {
    std::vector<Arc> arcs = ArcsOf(ring, meridian, side);
    if (arcs.empty()) {
        const bool isInside = side * (ring.front().longitude - meridian) >= 0;
        return isInside ? std::vector<PolygonRing>{ring} : std::vector<PolygonRing>{};
    }
    std::vector<PolygonRing> parts;
    for (Arc& start : arcs) {
        if (start.joined) continue;
        PolygonRing part;
        Arc* next = &start;
        while (next != nullptr) {
            next->joined = true;
            for (const Position& position : next->positions) Add(part, position);
            const std::int64_t from = part.back().latitude;
            const auto way = [&](const Arc& arc) {
                return side * (from - arc.positions.front().latitude);
            };
            next = nullptr;
            for (Arc& arc : arcs)
                if (way(arc) >= 0 && (next == nullptr || way(arc) < way(*next))) next = &arc;
            if (next != nullptr && next->joined) next = nullptr;
        }
        Add(part, part.front());
        parts.push_back(std::move(part));
    }
    return parts;
}

bool HasWidth(const PolygonRing& ring) {
    return std::any_of(ring.begin(), ring.end(), [&](const Position& position) {
        return position.longitude != ring.front().longitude;
    });
}

// What lies on the map, and what lies on the maps west and east of it.
std::vector<PolygonRing> CutAtAntimeridian(const PolygonRing& ring) {
    std::vector<PolygonRing> parts;
    for (const std::int64_t map : {-Turn, std::int64_t{0}, Turn})
        for (const PolygonRing& east : Sides(ring, map - HalfTurn, 1))
            for (PolygonRing& part : Sides(east, map + HalfTurn, -1)) {
                for (Position& position : part) position.longitude -= map;
                if (HasWidth(part)) parts.push_back(std::move(part));
            }
    return parts;
}

// The map, counted from the one about Greenwich, that a running longitude lies on.
std::int64_t MapOf(std::int64_t longitude) {
    const std::int64_t from = longitude + HalfTurn;
    return from >= 0 ? from / Turn : -((Turn - 1 - from) / Turn);
}

// A ring round a pole, from one side of the map to the other and back along the pole. It is opened
// where it crosses the antimeridian nearest to the pole, so that the way there crosses nothing.
PolygonRing OpenedAtAntimeridian(const PolygonRing& ring) {
    const std::int64_t turn = ring.back().longitude - ring.front().longitude;
    const std::int64_t direction = turn > 0 ? 1 : -1;
    const std::size_t count = ring.size() - 1;
    std::size_t before = count;
    Position cut{};
    for (std::size_t i = 0; i < count; ++i) {
        const Position &a = ring[i], &b = ring[i + 1];
        const std::int64_t map = std::max(MapOf(a.longitude), MapOf(b.longitude));
        if (MapOf(a.longitude) == MapOf(b.longitude)) continue;
        const Position at = CutBetween(a, b, map * Turn - HalfTurn);
        if (before < count && direction * at.latitude <= direction * cut.latitude) continue;
        before = i;
        cut = at;
    }
    const std::int64_t start = -direction * HalfTurn;  // the side of the map where it comes in
    const std::int64_t shift = start - cut.longitude;
    const std::int64_t pole = direction * Pole;
    PolygonRing opened{{start, cut.latitude}};
    for (std::size_t i = before + 1; i <= before + count; ++i) {
        const Position& at = ring[i % count];
        Add(opened, {at.longitude + shift + (i >= count ? turn : 0), at.latitude});
    }
    for (const Position& corner : {Position{-start, cut.latitude}, Position{-start, pole},
                                   Position{start, pole}, Position{start, cut.latitude}})
        Add(opened, corner);
    return opened;
}

// Polygons on the map of a ring that is closed but for a turn.
void AddPolygons(std::vector<PolygonRing>& polygons, const PolygonRing& ring) {
    const PolygonRing running = Running(ring);
    const bool isClosed = running.front() == running.back();
    for (PolygonRing& part : CutAtAntimeridian(isClosed ? running : OpenedAtAntimeridian(running)))
        polygons.push_back(std::move(part));
}

}  // namespace

std::vector<PolygonRing> GeodesicCircle(const Place& place, double km) {
    return GeodesicOutline(place, std::vector<double>(360, km));
}

std::vector<PolygonRing> GeodesicOutline(const Place& place, const std::vector<double>& km) {
    const std::size_t count = km.size();
    const auto isNothing = [&](std::size_t i) { return !(km[i % count] >= SmallestRing); };
    std::size_t first = 0;  // an azimuth of no reach, if there is one
    while (first < count && !isNothing(first)) ++first;
    const bool isWhole = first == count;
    const Position centre = RoundedPlace(place.latitude, place.longitude);
    std::vector<PolygonRing> polygons;
    PolygonRing ring;
    for (std::size_t i = first + count; i + 1 > first; --i) {  // against the clock
        if (!isNothing(i)) {
            if (ring.empty() && !isWhole) ring.push_back(centre);
            Add(ring, EndOf(place, i % count, count, km[i % count]));
            continue;
        }
        if (ring.size() > 2) {
            ring.push_back(centre);
            AddPolygons(polygons, ring);
        }
        ring.clear();
    }
    if (isWhole) AddPolygons(polygons, ring);
    return polygons;
}

GeodesicWay WayBetween(const Place& from, const Place& to) {
    GeodesicWay way{};
    double arrival = 0.0;
    GeographicLib::Geodesic::WGS84().Inverse(from.latitude, from.longitude, to.latitude,
                                             to.longitude, way.km, way.azimuth, arrival);
    way.km /= 1000.0;
    if (way.azimuth < 0.0) way.azimuth += 360.0;
    return way;
}

}  // namespace vardel
