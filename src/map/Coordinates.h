#pragma once

#include <optional>
#include <string_view>

namespace vardel {

// A place on the WGS 84 ellipsoid, in degrees: north and east are positive.
struct Place {
    double latitude;   // -90 to 90
    double longitude;  // -180 to 180
};

// Whether both numbers are finite and within these limits.
bool IsValid(const Place& place) noexcept;

// A coordinate as people type it, in degrees: decimal (52.5, -0.12, 52.5 N, W0.12), or degrees and
// minutes, and seconds, with their marks or without (52 30 12 N, 52°30'12", 52d30'12", 52:30:12).
// The sign comes first, the letter instead of it first or last, in either case. The decimal point
// is a point. Nothing for any other text, in UTF-8, and for a value beyond the limits.
std::optional<double> ParseLatitude(std::string_view text);
std::optional<double> ParseLongitude(std::string_view text);

// Both, latitude first, with a comma or a semicolon between them, or with blanks where only one
// parting can be meant: "49.8 6.1", "52 30 N 13 24 E", "52 30, 13 24".
std::optional<Place> ParsePlace(std::string_view text);

}  // namespace vardel
