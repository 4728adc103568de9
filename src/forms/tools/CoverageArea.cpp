#include "forms/tools/CoverageArea.h"

#include <algorithm>
#include <cmath>
#include <thread>

#include "coverage/CoverageValues.h"
#include "engine/Units.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

constexpr double FarthestKm = 300.0;

std::string Coordinate(double degrees, char positive, char negative) {
    return FormatNumber(std::fabs(degrees), "0.0000") + ' ' + (degrees < 0.0 ? negative : positive);
}

CoverageGrid GridAround(const Place& site, double radiusKm, std::size_t size) {
    const double half = radiusKm * 1000.0;
    const double side = 2.0 * half / static_cast<double>(size);
    return {site,
            GridSystemAround(site),
            {static_cast<int>(size), static_cast<int>(size), {-half, side, 0.0, half, 0.0, -side}}};
}

}  // namespace

CoverageStation StationOf(const ContourTable& table, const AreaGoal& goal,
                          std::vector<ModelNumber> models) {
    return {table.heights.mast.site,
            table.path,
            table.goal.powerWatts,
            AzimuthHeights(table.heights),
            goal.wanted.quantity,
            {table.path.f, goal.wanted.antennaGainDbi, goal.wanted.cableLossDb},
            std::move(models),
            FarthestKm};
}

AreaPicture PictureOf(const ContourTable& table, const AreaGoal& goal, ModelNumber model,
                      double radiusKm, std::size_t size) {
    const CoverageStation station = StationOf(table, goal, {model});
    const CoverageGrid grid = GridAround(station.site, radiusKm, size);
    const int side = static_cast<int>(size);
    std::vector<double> values(size * size);
    CoverageBuffers buffers;
    buffers.values[0] = values.data();
    ComputeCoverageOn(std::max(1U, std::thread::hardware_concurrency()), station, grid,
                      {0, 0, side, side}, buffers);
    const CoverageColors colors = goal.Colors();
    AreaPicture picture{size, radiusKm, std::vector<PixelColor>(values.size()),
                        std::string(ModelOf(model).name) + ", " + UnitOf(station.quantity),
                        colors.Steps()};
    std::transform(values.begin(), values.end(), picture.pixels.begin(),
                   [&](double value) { return colors.Of(value); });
    return picture;
}

std::string TextAt(const ContourTable& table, const AreaGoal& goal, const PlaceAround& place,
                   double metres, Units units) {
    const CoverageStation station =
        StationOf(table, goal, {ComparedModels.begin(), ComparedModels.end()});
    const double angle = place.azimuth * std::acos(-1.0) / 180.0;
    const double east = place.km * 1000.0 * std::sin(angle);
    const double north = place.km * 1000.0 * std::cos(angle);
    Place at{};
    GridSystemAround(station.site)->ToPlaces(&east, &north, 1, &at);
    const auto height = [&](double m) {
        return FormatNumber(m / MetresPerHeight(units), "0.0") + ' ' + HeightUnit(units);
    };
    std::string text = Coordinate(at.latitude, 'N', 'S') + ", " +
                       Coordinate(at.longitude, 'E', 'W') + ": " +
                       FormatNumber(place.km / KmPerDistance(units), "0.00") + ' ' +
                       DistanceUnit(units) + " at " + FormatNumber(place.azimuth, "0.0") + "°";
    if (!std::isnan(metres)) text += ", ground " + height(metres);
    const double effective = station.heights.At(place.azimuth);
    if (std::isnan(effective)) return text + ". The effective height there is unknown.";
    text += ", effective height " + height(effective) + ". ";
    ModelInputs in = table.path;
    in.d = place.km;
    in.hb = effective;
    for (const ModelNumber number : ComparedModels) {
        const Model& model = ModelOf(number);
        ModelTermsRecord terms;
        double value = station.quantity == ServiceQuantity::PathLoss
                           ? model.loss(in, terms)
                           : model.fieldStrength(in, station.powerWatts, terms);
        if (station.quantity == ServiceQuantity::ReceivedPower)
            value = ReceivedPower(station.receiver, value);
        text += std::string(model.name) + ' ' + FormatNumber(value, "0.0") + ' ' +
                UnitOf(station.quantity) + (InRange(model, in) ? "" : " (out of range)") +
                (number == ComparedModels.back() ? "" : ", ");
    }
    return text;
}

}  // namespace vardel
