#pragma once

#include <optional>
#include <string_view>

namespace vardel {

// A place on the WGS 84 ellipsoid, in degrees: north and east are positive.
struct Place {
    double latitude;   // -90 to 90
    double longitude;  // -180 to 180
};

bool IsValid(const Place& place) noexcept;

// A coordinate as people type it, in degrees: decimal (52.5, -0.12, 52.5 N, W0.12), or degrees and
// minutes, and seconds, with or without their marks (52 30 12 N, 52°30'12", 52d30m12s, 52:30:12).
// The sign or the letter comes first, or the letter last. The decimal point is a point. Nothing for
// any other text and for a value beyond the limits.
std::optional<double> ParseLatitude(std::string_view text);
std::optional<double> ParseLongitude(std::string_view text);

}  // namespace vardel
