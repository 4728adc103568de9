#pragma once

#include <memory>
#include <mutex>
#include <optional>

#include "map/GeodesicCircle.h"
#include "terrain/EffectiveHeights.h"

namespace vardel::cli {

// Finds the effective heights of paths, for many threads at once.
class PathGround {
public:
    // antenna: in m above the ground, for paths that do not give it.
    PathGround(std::unique_ptr<Elevations> elevations, const HeightDefinition& definition,
               std::optional<double> antenna);

    const std::optional<double>& Antenna() const { return antenna_; }

    // Of an antenna in m above the ground at the base, along the way to the mobile. Throws
    // ElevationError where the ground is not known or cannot be read.
    RadialHeight Along(const Place& base, double antenna, const GeodesicWay& way) const;

private:
    std::unique_ptr<Elevations> elevations_;
    HeightDefinition definition_;
    std::optional<double> antenna_;
    mutable std::mutex reading_;
};

}  // namespace vardel::cli
