#include "coverage/CoverageGrid.h"

#include <GeographicLib/AzimuthalEquidistant.hpp>
#include <GeographicLib/Geodesic.hpp>
#include <GeographicLib/PolarStereographic.hpp>
#include <GeographicLib/PolygonArea.hpp>
#include <GeographicLib/TransverseMercator.hpp>
#include <GeographicLib/UTMUPS.hpp>
#include <algorithm>
#include <cmath>
#include <vector>

#include "text/NumberText.h"

namespace vardel {

namespace {

using GeographicLib::Geodesic;

constexpr double Unknown = std::numeric_limits<double>::quiet_NaN();
constexpr double DegreesPerRadian = 57.29577951308232;

double OnMap(double longitude) { return std::remainder(longitude, 360.0); }

class AroundSite : public GridSystem {
public:
    explicit AroundSite(const Place& site) : site_(site) {}

    std::string Definition() const override {
        return "+proj=aeqd +lat_0=" + ShortestText(site_.latitude) +
               " +lon_0=" + ShortestText(site_.longitude) + " +datum=WGS84 +units=m +type=crs";
    }
    bool IsAroundSite() const override { return true; }
    void ToMap(const Place* places, std::size_t count, double* x, double* y) const override {
        for (std::size_t i = 0; i < count; ++i)
            plane_.Forward(site_.latitude, site_.longitude, places[i].latitude, places[i].longitude,
                           x[i], y[i]);
    }
    void ToPlaces(const double* x, const double* y, std::size_t count,
                  Place* places) const override {
        for (std::size_t i = 0; i < count; ++i)
            plane_.Reverse(site_.latitude, site_.longitude, x[i], y[i], places[i].latitude,
                           places[i].longitude);
    }

private:
    Place site_;
    GeographicLib::AzimuthalEquidistant plane_;
};

class UtmZone : public GridSystem {
public:
    explicit UtmZone(const Place& site)
        : zone_(GeographicLib::UTMUPS::StandardZone(site.latitude, site.longitude)),
          meridian_(6.0 * zone_ - 183.0),
          falseNorthing_(site.latitude < 0.0 ? 10e6 : 0.0) {}

    std::string Definition() const override {
        const std::string zone = std::to_string(zone_);
        return std::string("EPSG:32") + (falseNorthing_ > 0.0 ? '7' : '6') +
               (zone_ < 10 ? "0" : "") + zone;
    }
    void ToMap(const Place* places, std::size_t count, double* x, double* y) const override {
        const auto& plane = GeographicLib::TransverseMercator::UTM();
        for (std::size_t i = 0; i < count; ++i) {
            plane.Forward(meridian_, places[i].latitude, places[i].longitude, x[i], y[i]);
            x[i] += FalseEasting;
            y[i] += falseNorthing_;
        }
    }
    void ToPlaces(const double* x, const double* y, std::size_t count,
                  Place* places) const override {
        const auto& plane = GeographicLib::TransverseMercator::UTM();
        for (std::size_t i = 0; i < count; ++i)
            plane.Reverse(meridian_, x[i] - FalseEasting, y[i] - falseNorthing_, places[i].latitude,
                          places[i].longitude);
    }

private:
    static constexpr double FalseEasting = 500e3;
    int zone_;
    double meridian_;
    double falseNorthing_;
};

class UpsZone : public GridSystem {
public:
    explicit UpsZone(const Place& site) : isNorth_(site.latitude > 0.0) {}

    std::string Definition() const override { return isNorth_ ? "EPSG:5041" : "EPSG:5042"; }
    void ToMap(const Place* places, std::size_t count, double* x, double* y) const override {
        const auto& plane = GeographicLib::PolarStereographic::UPS();
        for (std::size_t i = 0; i < count; ++i) {
            plane.Forward(isNorth_, places[i].latitude, places[i].longitude, x[i], y[i]);
            x[i] += FalseOrigin;
            y[i] += FalseOrigin;
        }
    }
    void ToPlaces(const double* x, const double* y, std::size_t count,
                  Place* places) const override {
        const auto& plane = GeographicLib::PolarStereographic::UPS();
        for (std::size_t i = 0; i < count; ++i)
            plane.Reverse(isNorth_, x[i] - FalseOrigin, y[i] - FalseOrigin, places[i].latitude,
                          places[i].longitude);
    }

private:
    static constexpr double FalseOrigin = 2000e3;
    bool isNorth_;
};

constexpr int EdgePoints = 360;

std::vector<Place> EdgeOf(const Place& site, const CoverageExtent& extent) {
    std::vector<Place> edge;
    if (!extent.bounds) {
        for (int i = 0; i < EdgePoints; ++i) {
            Place& place = edge.emplace_back();
            Geodesic::WGS84().Direct(site.latitude, site.longitude, i * 360.0 / EdgePoints,
                                     extent.radiusKm * 1000.0, place.latitude, place.longitude);
        }
        return edge;
    }
    const auto& [south, west, north, east] = *extent.bounds;
    const double width = east > west ? east - west : east - west + 360.0;
    for (int i = 0; i <= EdgePoints; ++i) {
        const double part = static_cast<double>(i) / EdgePoints;
        for (const double latitude : {south, north})
            edge.push_back({latitude, OnMap(west + part * width)});
        for (const double longitude : {west, east})
            edge.push_back({south + part * (north - south), longitude});
    }
    return edge;
}

struct Span {
    double low = HUGE_VAL, high = -HUGE_VAL;

    void Take(double x) {
        low = std::min(low, x);
        high = std::max(high, x);
    }
};

// Whole cells over the span, as their first and last edge counted from the pattern's; a sliver of
// rounding takes no cell.
struct Edges {
    double first, last;
};
Edges EdgesOver(const Span& span, double origin, double size) {
    constexpr double Sliver = 1e-6;
    return {std::floor((span.low - origin) / size + Sliver),
            std::ceil((span.high - origin) / size - Sliver)};
}

// The coordinates of the centres.
void MapOfCells(const CoverageGrid& grid, int row, int column, std::size_t count, double* x,
                double* y) {
    const auto& toMap = grid.cells.toMap;
    for (std::size_t i = 0; i < count; ++i)
        x[i] = toMap[0] + (column + static_cast<double>(i) + 0.5) * toMap[1];
    std::fill_n(y, count, toMap[3] + (row + 0.5) * toMap[5]);
}

void WaysAroundSite(const double* x, const double* y, std::size_t count, double* km,
                    double* azimuths) {
    for (std::size_t i = 0; i < count; ++i) km[i] = std::sqrt(x[i] * x[i] + y[i] * y[i]) * 0.001;
    if (azimuths == nullptr) return;
    for (std::size_t i = 0; i < count; ++i) azimuths[i] = std::atan2(x[i], y[i]) * DegreesPerRadian;
    for (std::size_t i = 0; i < count; ++i) azimuths[i] += azimuths[i] < 0.0 ? 360.0 : 0.0;
}

void WayTo(const Place& site, const Place& place, double& km, double& azimuth) {
    km = azimuth = Unknown;
    if (!IsValid(place)) return;
    double metres = 0.0, atEnd = 0.0;
    Geodesic::WGS84().Inverse(site.latitude, site.longitude, place.latitude, place.longitude,
                              metres, azimuth, atEnd);
    km = metres * 0.001;
    if (azimuth < 0.0) azimuth += 360.0;
}

}  // namespace

std::shared_ptr<const GridSystem> GridSystemAround(const Place& site) {
    return std::make_shared<AroundSite>(site);
}

std::shared_ptr<const GridSystem> UtmSystemOf(const Place& site) {
    if (GeographicLib::UTMUPS::StandardZone(site.latitude, site.longitude) ==
        GeographicLib::UTMUPS::UPS)
        return std::make_shared<UpsZone>(site);
    return std::make_shared<UtmZone>(site);
}

CellPattern PatternOf(const GridSystem& system, const Place& site, double metres) {
    if (!system.IsGeographic()) return {metres, metres};
    constexpr double MetresPerDegree = 111'195.0;
    // Near a pole the degrees of longitude shrink without end.
    const double shrink = std::max(std::cos(site.latitude / DegreesPerRadian), 0.01);
    return {metres / (MetresPerDegree * shrink), metres / MetresPerDegree};
}

CoverageGrid MakeCoverageGrid(const Place& site, std::shared_ptr<const GridSystem> system,
                              const CellPattern& pattern, const CoverageExtent& extent) {
    const std::vector<Place> edge = EdgeOf(site, extent);
    std::vector<double> x(edge.size()), y(edge.size());
    system->ToMap(edge.data(), edge.size(), x.data(), y.data());
    double siteX = 0.0, siteY = 0.0;
    system->ToMap(&site, 1, &siteX, &siteY);
    Span across, up;
    for (std::size_t i = 0; i < edge.size(); ++i) {
        if (!std::isfinite(x[i]) || !std::isfinite(y[i]))
            throw CoverageError("the area reaches beyond what the coordinate system can show");
        across.Take(system->IsGeographic() ? siteX + OnMap(x[i] - siteX) : x[i]);
        up.Take(y[i]);
    }
    const Edges columns = EdgesOver(across, pattern.x, pattern.width);
    const Edges rows = EdgesOver(up, pattern.y, pattern.height);
    const double width = columns.last - columns.first, height = rows.last - rows.first;
    if (!(width >= 1.0 && height >= 1.0 && width <= MostCoverageSide && height <= MostCoverageSide))
        throw CoverageError("the raster would have " + ShortestText(width) + " x " +
                            ShortestText(height) + " pixels, and at most " +
                            std::to_string(MostCoverageSide) + " each way are calculated");
    CoverageGrid grid{site, std::move(system), {}};
    grid.cells = {static_cast<int>(width),
                  static_cast<int>(height),
                  {pattern.x + columns.first * pattern.width, pattern.width, 0.0,
                   pattern.y + rows.last * pattern.height, 0.0, -pattern.height}};
    return grid;
}

void PlacesOfCells(const CoverageGrid& grid, int row, int column, std::size_t count,
                   Place* places) {
    std::vector<double> x(count), y(count);
    MapOfCells(grid, row, column, count, x.data(), y.data());
    if (grid.system->IsGeographic()) std::transform(x.begin(), x.end(), x.begin(), OnMap);
    grid.system->ToPlaces(x.data(), y.data(), count, places);
}

void WaysToCells(const CoverageGrid& grid, int row, int column, std::size_t count, double* km,
                 double* azimuths) {
    if (grid.system->IsAroundSite()) {
        constexpr std::size_t Block = 64;
        std::array<double, Block> x, y;
        for (std::size_t done = 0; done < count; done += Block) {
            const std::size_t size = std::min(Block, count - done);
            MapOfCells(grid, row, column + static_cast<int>(done), size, x.data(), y.data());
            WaysAroundSite(x.data(), y.data(), size, km + done,
                           azimuths == nullptr ? nullptr : azimuths + done);
        }
        return;
    }
    std::vector<Place> places(count);
    PlacesOfCells(grid, row, column, count, places.data());
    double unused = 0.0;
    for (std::size_t i = 0; i < count; ++i)
        WayTo(grid.site, places[i], km[i], azimuths == nullptr ? unused : azimuths[i]);
}

double CellAreaNear(const CoverageGrid& grid, const CellRectangle& square) {
    const auto& toMap = grid.cells.toMap;
    const double left = toMap[0] + square.column * toMap[1];
    const double right = left + square.columns * toMap[1];
    const double top = toMap[3] + square.row * toMap[5];
    const double bottom = top + square.rows * toMap[5];
    const std::array<double, 4> x{left, right, right, left}, y{bottom, bottom, top, top};
    std::array<Place, 4> corners{};
    grid.system->ToPlaces(x.data(), y.data(), x.size(), corners.data());
    GeographicLib::PolygonArea polygon(Geodesic::WGS84());
    for (const Place& corner : corners) polygon.AddPoint(corner.latitude, corner.longitude);
    double perimeter = 0.0, squareMetres = 0.0;
    polygon.Compute(false, true, perimeter, squareMetres);
    return std::fabs(squareMetres) * 1e-6 / square.columns / square.rows;
}

}  // namespace vardel
