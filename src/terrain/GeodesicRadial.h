#pragma once

#include <cstddef>

#include "map/Coordinates.h"

namespace vardel {

// Fills in count places, equally spaced from one distance in km to another along the geodesic of
// the WGS 84 ellipsoid that sets out from a valid place on the azimuth in degrees; both ends are
// among them. They are within a millimetre of the geodesic's. count is at least 2.
void PlacesAlong(const Place& from, double azimuth, double fromKm, double toKm, std::size_t count,
                 Place* places);

}  // namespace vardel
