#include "terrain/EffectiveHeights.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "terrain/GeodesicRadial.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

constexpr double Unknown = std::numeric_limits<double>::quiet_NaN();
// However fine the data are: closer points change no mean by a centimetre.
constexpr std::size_t MostPoints = 10'000;

std::string SiteText(const Place& site) {
    return "the site " + ShortestText(site.latitude) + ' ' + ShortestText(site.longitude);
}

// So many that neighbours are not farther apart than the data's cells.
std::size_t PointsOf(const HeightDefinition& definition, const AverageBounds& bounds,
                     double stepMetres) {
    const auto least = static_cast<std::size_t>(definition.points);
    if (!(stepMetres > 0.0)) return least;
    const double spaces = std::ceil((bounds.toKm - bounds.fromKm) * 1000.0 / stepMetres);
    return std::clamp(static_cast<std::size_t>(std::min(spaces, 1e9)) + 1, least,
                      std::max(least, MostPoints));
}

// Averages one radial after the other, with buffers that are used again.
class Averager {
public:
    Averager(Elevations& elevations, const Mast& mast, double ground,
             const HeightDefinition& definition, const AverageBounds& bounds)
        : elevations_(elevations),
          mast_(mast),
          ground_(ground),
          definition_(definition),
          bounds_(bounds),
          places_(PointsOf(definition, bounds, elevations.Step(mast.site))),
          metres_(places_.size()) {}

    RadialHeight Toward(double azimuth) {
        PlacesAlong(mast_.site, azimuth, bounds_.fromKm, bounds_.toKm, places_.size(),
                    places_.data());
        elevations_.At(places_.data(), places_.size(), metres_.data());
        double sum = 0.0;
        std::size_t seen = 0;
        for (const double metres : metres_) {
            if (std::isnan(metres)) continue;
            sum += metres;
            ++seen;
        }
        RadialHeight radial{azimuth, Unknown, Unknown, Unknown, 0.0};
        if (seen == 0) return radial;
        radial.averageTerrain = sum / static_cast<double>(seen);
        radial.aboveAverage = ground_ + mast_.antenna - radial.averageTerrain;
        radial.effectiveHeight = std::max(radial.aboveAverage, definition_.floor);
        radial.seen = static_cast<double>(seen) / static_cast<double>(metres_.size());
        return radial;
    }

private:
    Elevations& elevations_;
    const Mast& mast_;
    double ground_;
    const HeightDefinition& definition_;
    AverageBounds bounds_;
    std::vector<Place> places_;
    std::vector<double> metres_;
};

}  // namespace

double GroundAt(Elevations& elevations, const Mast& mast) {
    if (mast.ground) return *mast.ground;
    double metres = Unknown;
    elevations.At(&mast.site, 1, &metres);
    if (std::isnan(metres))
        throw ElevationError(SiteText(mast.site) +
                             " is outside the elevation data, or on a cell without data");
    return metres;
}

RadialHeight EffectiveHeightToward(Elevations& elevations, const Mast& mast, double ground,
                                   const HeightDefinition& definition, const AverageBounds& bounds,
                                   double azimuth) {
    return Averager(elevations, mast, ground, definition, bounds).Toward(azimuth);
}

EffectiveHeightTable EffectiveHeights(Elevations& elevations, const Mast& mast,
                                      const HeightDefinition& definition, std::size_t azimuths,
                                      const std::function<bool(std::size_t done)>& goOn) {
    EffectiveHeightTable table{mast, definition, GroundAt(elevations, mast), {}};
    table.radials.reserve(azimuths);
    Averager averager(elevations, mast, table.ground, definition,
                      {definition.fromKm, definition.toKm});
    for (std::size_t i = 0; i < azimuths; ++i) {
        if (!goOn(i)) return table;
        table.radials.push_back(
            averager.Toward(360.0 * static_cast<double>(i) / static_cast<double>(azimuths)));
    }
    if (std::all_of(table.radials.begin(), table.radials.end(),
                    [](const RadialHeight& radial) { return radial.seen == 0.0; }))
        throw ElevationError("the elevation data have nothing from " +
                             ShortestText(definition.fromKm) + " to " +
                             ShortestText(definition.toKm) + " km of " + SiteText(mast.site));
    return table;
}

}  // namespace vardel
