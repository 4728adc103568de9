#include "forms/tools/SiteBoxes.h"

#include "forms/shared/BoxMark.h"
#include "text/NumberText.h"

namespace vardel {

SiteBoxes::SiteBoxes(Form& form)
    : lblLatitude(form, "lblLatitude", "Site latitude"),
      txtLatitude(form, "txtLatitude"),
      lblLongitude(form, "lblLongitude", "longitude"),
      txtLongitude(form, "txtLongitude") {
    txtLatitude.SetToolTipText("Such as 52.5 or 52 30 12 N");
    txtLongitude.SetToolTipText("Such as -0.12 or 0 7 12 W");
}

std::optional<Place> SiteBoxes::Read(std::string& problem) {
    const auto latitude = ParseLatitude(txtLatitude.Text());
    const auto longitude = ParseLongitude(txtLongitude.Text());
    const auto mark = [&](TextBox& box, bool good, const char* what) {
        if (!MarkBox(box, good || box.Text().empty(), what) && problem.empty()) problem = what;
    };
    mark(txtLatitude, latitude.has_value(), "The site latitude must be from -90 to 90.");
    mark(txtLongitude, longitude.has_value(), "The site longitude must be from -180 to 180.");
    if (!latitude || !longitude) return std::nullopt;
    return Place{*latitude, *longitude};
}

StoredTexts SiteBoxes::Texts() {
    return {{"Latitude", &txtLatitude}, {"Longitude", &txtLongitude}};
}

std::string FileNameAround(const Place& place, const std::string& what, const char* ending) {
    return what + ' ' + FormatNumber(place.latitude, "0.0####") + ' ' +
           FormatNumber(place.longitude, "0.0####") + ending;
}

}  // namespace vardel
