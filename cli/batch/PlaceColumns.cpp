#include "cli/batch/PlaceColumns.h"

#include <algorithm>

#include "cli/batch/RowReader.h"
#include "cli/options/PathFields.h"
#include "cli/output/Records.h"
#include "map/Coordinates.h"

namespace vardel::cli {

namespace {

struct KnownPlaceColumn {
    const char* name;
    std::size_t which;
    double factor = 1.0;
};

constexpr std::size_t AntennaIndex = 4;
constexpr std::array<KnownPlaceColumn, 6> Known = {{
    {"base_lat", 0},
    {"base_lon", 1},
    {"mobile_lat", 2},
    {"mobile_lon", 3},
    {"antenna_above_ground_m", AntennaIndex},
    {"antenna_above_ground_ft", AntennaIndex, MetresPerFoot},
}};

}  // namespace

bool PlaceColumns::Take(std::size_t column, const std::string& name, const std::string& place) {
    const auto known =
        std::find_if(Known.begin(), Known.end(), [&](const auto& one) { return name == one.name; });
    if (known == Known.end()) return false;
    if (columns_.at(known->which))
        throw InputError(place + "a second column gives the same as " + name);
    columns_.at(known->which) = column;
    if (known->which == Antenna) antennaFactor_ = known->factor;
    return true;
}

void PlaceColumns::Check(const char* distanceColumn, const char* baseHeightColumn) const {
    const auto given = std::count_if(columns_.begin(), columns_.begin() + Antenna,
                                     [](const auto& column) { return column.has_value(); });
    if (given != 0 && given != Antenna)
        throw InputError(
            "line 1: base_lat, base_lon, mobile_lat and mobile_lon go together, and one is "
            "missing");
    if (given != 0 && distanceColumn != nullptr)
        throw InputError(std::string("line 1: ") + distanceColumn +
                         " and the places are the same input");
    if (ground_ == nullptr) {
        if (columns_[Antenna]) throw InputError("line 1: antenna_above_ground needs --elevation");
        return;
    }
    if (given == 0)
        throw InputError(
            "line 1: --elevation needs the columns base_lat, base_lon, mobile_lat and mobile_lon");
    if (baseHeightColumn != nullptr)
        throw InputError(std::string("line 1: with --elevation the base height is found; ") +
                         baseHeightColumn + " gives it, too");
    if (!columns_[Antenna] && !ground_->Antenna())
        throw InputError(
            "line 1: --elevation needs the column antenna_above_ground_m, or --antenna");
}

bool PlaceColumns::Has(std::size_t column) const {
    return std::find(columns_.begin(), columns_.end(), column) != columns_.end();
}

std::vector<std::string> PlaceColumns::AddedNames(Units units) const {
    std::vector<std::string> names;
    if (!HasPlaces()) return names;
    names.push_back(DistanceColumn("distance", units));
    if (ground_ != nullptr)
        names.insert(names.end(), {HeightColumn("effective_height", units), "terrain_seen"});
    return names;
}

std::optional<std::string> PlaceColumns::ReadAntenna(const std::vector<CsvField>& fields,
                                                     const std::vector<std::string>& names,
                                                     double& metres) const {
    if (!columns_[Antenna]) {
        metres = ground_->Antenna().value();
        return std::nullopt;
    }
    std::optional<std::string> wrong;
    const std::string text = fields[*columns_[Antenna]].Text();
    const auto number = NumberOrFault(text, wrong);
    if (number && !(*number > 0.0)) wrong = Shown(text) + " is not above zero";
    if (wrong) return "column " + names[*columns_[Antenna]] + ": " + *wrong;
    metres = *number * antennaFactor_;
    return std::nullopt;
}

std::optional<std::string> PlaceColumns::Read(const std::vector<CsvField>& fields,
                                              const std::vector<std::string>& names,
                                              PathInputs& path, FoundValues& found) const {
    if (!HasPlaces()) return std::nullopt;
    std::array<double, Antenna> degrees{};
    for (std::size_t i = 0; i < degrees.size(); ++i) {
        const std::size_t column = *columns_.at(i);
        const bool isLatitude = i == BaseLatitude || i == MobileLatitude;
        const std::string text = fields[column].Text();
        const auto angle = isLatitude ? ParseLatitude(text) : ParseLongitude(text);
        if (!angle)
            return "column " + names[column] + ": " + Shown(text) + " is no " +
                   (isLatitude ? "latitude" : "longitude") + " in degrees";
        degrees.at(i) = *angle;
    }
    const Place base{degrees[BaseLatitude], degrees[BaseLongitude]};
    const GeodesicWay way = WayBetween(base, {degrees[MobileLatitude], degrees[MobileLongitude]});
    if (!(way.km > 0.0)) return std::string("base and mobile are at the same place");
    path.distance = way.km / KmPerDistance(path.units);
    found[0] = path.distance;
    if (ground_ == nullptr) return std::nullopt;
    double antenna = 0.0;
    if (auto wrong = ReadAntenna(fields, names, antenna)) return wrong;
    try {
        const RadialHeight radial = ground_->Along(base, antenna, way);
        path.hb = radial.effectiveHeight / MetresPerHeight(path.units);
        found[1] = path.hb;
        found[2] = radial.seen;
    } catch (const ElevationError& error) {
        return std::string(error.what());
    }
    return std::nullopt;
}

std::string KnownPlaceColumns() {
    std::string names;
    for (const KnownPlaceColumn& column : Known)
        names += (names.empty() ? "" : ", ") + std::string(column.name);
    return names;
}

}  // namespace vardel::cli
