#pragma once

#include <optional>
#include <string>

#include "forms/shared/StoredTexts.h"
#include "map/Coordinates.h"

namespace vardel {

// Where a station stands, as the user enters it: a part of each form that needs its place.
class SiteBoxes {
public:
    explicit SiteBoxes(Form& form);

    // Nothing while a box holds no coordinate. One that is not empty is marked, and what is wrong
    // with it becomes the problem, unless there is one.
    std::optional<Place> Read(std::string& problem);
    StoredTexts Texts();

    Label lblLatitude;
    TextBox txtLatitude;
    Label lblLongitude;
    TextBox txtLongitude;
};

// For what lies around a place: "contours 50.5 10.25.geojson".
std::string FileNameAround(const Place& place, const std::string& what, const char* ending);

}  // namespace vardel
