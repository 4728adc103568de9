#include "cli/batch/PathGround.h"

namespace vardel::cli {

PathGround::PathGround(std::unique_ptr<Elevations> elevations, const HeightDefinition& definition,
                       std::optional<double> antenna)
    : elevations_(std::move(elevations)), definition_(definition), antenna_(antenna) {}

RadialHeight PathGround::Along(const Place& base, double antenna, const GeodesicWay& way) const {
    const std::lock_guard lock(reading_);
    const Mast mast{base, antenna, {}};
    const double ground = GroundAt(*elevations_, mast);
    const RadialHeight radial = EffectiveHeightToward(*elevations_, mast, ground, definition_,
                                                      BoundsFor(definition_, way.km), way.azimuth);
    if (radial.seen == 0.0) throw ElevationError("the elevation data do not cover the path");
    return radial;
}

}  // namespace vardel::cli
