#include <pybind11/numpy.h>
#include <pybind11/stl.h>

#include <cmath>

#include "Parts.h"
#include "map/GeodesicCircle.h"
#include "terrain/EffectiveHeights.h"
#include "terrain/RasterMosaic.h"

namespace vardel::python {

namespace {

namespace py = pybind11;

using Raster = py::array_t<float, py::array::c_style | py::array::forcecast>;

// A raster's coordinates by a function of the user's, which takes arrays of longitudes and
// latitudes and gives back arrays of x and y.
class CallersProjection : public MapProjection {
public:
    explicit CallersProjection(py::object project) : project_(std::move(project)) {}

    void ToMap(const Place* places, std::size_t count, double* x, double* y) override {
        const auto size = static_cast<py::ssize_t>(count);
        py::array_t<double> longitudes(size), latitudes(size);
        for (std::size_t i = 0; i < count; ++i) {
            longitudes.mutable_data()[i] = places[i].longitude;
            latitudes.mutable_data()[i] = places[i].latitude;
        }
        const auto [eastings, northings] =
            project_(longitudes, latitudes)
                .cast<std::pair<py::array_t<double>, py::array_t<double>>>();
        if (eastings.size() != size || northings.size() != size)
            throw py::value_error("project must return as many x and y as it is given places");
        for (py::ssize_t i = 0; i < size; ++i) {
            x[i] = eastings.data()[i];
            y[i] = northings.data()[i];
        }
    }
    bool IsGeographic() const override { return false; }

private:
    py::object project_;
};

// Azimuth, average terrain, height above it, effective height and seen, an array each, and the
// ground at the site.
py::tuple Heights(const Raster& raster, const std::array<double, 6>& toMap,
                  const py::object& project, const Mast& mast, const HeightDefinition& definition,
                  std::size_t azimuths) {
    const RasterGrid grid{static_cast<int>(raster.shape(1)), static_cast<int>(raster.shape(0)),
                          toMap};
    std::vector<float> metres(raster.data(), raster.data() + raster.size());
    std::shared_ptr<MapProjection> projection;
    if (project.is_none())
        projection = std::make_shared<Geographic>();
    else
        projection = std::make_shared<CallersProjection>(project);
    EffectiveHeightTable table{mast, definition, 0.0, {}};
    try {
        const auto elevations = ElevationsOfArray(grid, std::move(metres), projection);
        if (project.is_none()) {
            const py::gil_scoped_release release;
            table = EffectiveHeights(*elevations, mast, definition, azimuths);
        } else {
            table = EffectiveHeights(*elevations, mast, definition, azimuths);
        }
    } catch (const ElevationError& error) {
        throw py::value_error(error.what());
    }
    const auto column = [&](double RadialHeight::*field) {
        py::array_t<double> values(static_cast<py::ssize_t>(table.radials.size()));
        for (std::size_t i = 0; i < table.radials.size(); ++i)
            values.mutable_data()[i] = table.radials[i].*field;
        return values;
    };
    return py::make_tuple(column(&RadialHeight::azimuth), column(&RadialHeight::averageTerrain),
                          column(&RadialHeight::aboveAverage),
                          column(&RadialHeight::effectiveHeight), column(&RadialHeight::seen),
                          table.ground);
}

py::tuple EffectiveHeightArrays(const Raster& raster, const std::array<double, 6>& toMap,
                                const py::object& project, double latitude, double longitude,
                                double antenna, std::optional<double> ground,
                                const std::string& definition,
                                std::optional<std::pair<double, double>> bounds,
                                std::size_t azimuths) {
    const Mast mast{{latitude, longitude}, antenna, ground};
    if (!IsValid(mast.site)) throw py::value_error("the site is not a place on the earth");
    if (!(antenna > 0.0) || !std::isfinite(antenna) || (ground && !std::isfinite(*ground)))
        throw py::value_error(
            "antenna must be a height in m above zero, ground a height in m or None");
    if (azimuths < FewestAzimuths || azimuths > MostAzimuths)
        throw py::value_error("azimuths must be a number from 8 to 3600");
    if (raster.ndim() != 2) throw py::value_error("elevation must be an array of rows and columns");
    if (bounds) {
        const auto [from, to] = *bounds;
        if (!(0.0 <= from && from < to && to <= FarthestBound))
            throw py::value_error("bounds must be from 0 to 300 km, the nearer first");
        return Heights(raster, toMap, project, mast, OwnHeightDefinition(from, to), azimuths);
    }
    const HeightDefinition* const known = FindHeightDefinition(definition);
    if (known == nullptr)
        throw py::value_error(
            "definition must be '3-16', '3-15', '3.2-16.1', 'p1546' or two bounds in km");
    return Heights(raster, toMap, project, mast, *known, azimuths);
}

// Rings of longitudes and latitudes.
std::vector<std::vector<std::pair<double, double>>> Outline(double latitude, double longitude,
                                                            const std::vector<double>& km) {
    std::vector<std::vector<std::pair<double, double>>> rings;
    for (const PolygonRing& ring : GeodesicOutline({latitude, longitude}, km)) {
        auto& corners = rings.emplace_back();
        for (const Position& position : ring)
            corners.emplace_back(static_cast<double>(position.longitude) / PositionsPerDegree,
                                 static_cast<double>(position.latitude) / PositionsPerDegree);
    }
    return rings;
}

}  // namespace

void AddGround(py::module_& module) {
    module.def("effective_height_arrays", EffectiveHeightArrays);
    module.def("outline", Outline);
}

}  // namespace vardel::python
