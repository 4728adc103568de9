#include <pybind11/numpy.h>
#include <pybind11/stl.h>

#include <algorithm>
#include <array>
#include <vector>

#include "Names.h"
#include "Parts.h"
#include "coverage/CoverageValues.h"

// Areas: any part of a grid is computed from its station alone.

namespace vardel::python {

namespace {

// In the order of ServiceQuantity.
constexpr std::array<const char*, 3> QuantityNames = {"field_strength", "received_power", "loss"};
constexpr NameList QuantityList{"quantity", QuantityNames};
constexpr std::array<const char*, 2> SystemNames = {"site", "utm"};
constexpr NameList ComparedList{"models", std::span(ModelNames).first<ComparedModels.size()>()};
constexpr NameList SystemList{"grid", SystemNames};

// Of the coordinates in a place's neighbourhood.
std::shared_ptr<const GridSystem> SystemOf(const py::handle& name, const Place& place) {
    if (!IsValid(place)) throw py::value_error("the site is not a place on the earth");
    return PlaceOf(name, SystemList) == 0 ? GridSystemAround(place) : UtmSystemOf(place);
}

// Columns, rows, the affine transform and the definition of the coordinates.
py::tuple Grid(const py::object& system, std::pair<double, double> site, double metres,
               double radiusKm, std::optional<std::array<double, 4>> bounds) {
    const Place place{site.first, site.second};
    CoverageExtent extent{radiusKm};
    if (bounds) extent.bounds = {(*bounds)[0], (*bounds)[1], (*bounds)[2], (*bounds)[3]};
    const auto coordinates = SystemOf(system, place);
    try {
        const CoverageGrid grid =
            MakeCoverageGrid(place, coordinates, PatternOf(*coordinates, place, metres), extent);
        return py::make_tuple(grid.cells.columns, grid.cells.rows, grid.cells.toMap,
                              coordinates->Definition());
    } catch (const CoverageError& error) {
        throw py::value_error(error.what());
    }
}

// Values of each model, whether it covers the pixel (1 or 0), and the heights: of the rows and
// columns of a rectangle. A tuple stands for what Python keeps of an area: the system's name and
// the place that it is around, columns, rows and transform of the grid; the site, the path, the
// heights by azimuth or one, quantity, antenna gain and cable loss, models, the farthest distance
// in km.
py::array_t<double> Cells(const py::tuple& area, std::array<int, 4> rectangle) {
    const auto around = area[1].cast<std::pair<double, double>>();
    const auto site = area[5].cast<std::pair<double, double>>();
    const CoverageGrid grid{
        {site.first, site.second},
        SystemOf(area[0], {around.first, around.second}),
        {area[2].cast<int>(), area[3].cast<int>(), area[4].cast<std::array<double, 6>>()}};
    const PathInputs path = PathOf(area[6]);
    const auto heights = area[7].cast<std::vector<double>>();
    CoverageStation station{
        grid.site,
        MetricInputs(path),
        path.powerWatts,
        heights.size() == 1 ? AzimuthHeights(heights.front()) : AzimuthHeights(heights),
        static_cast<ServiceQuantity>(PlaceOf(area[8], QuantityList)),
        {path.frequency, area[9].cast<double>(), area[10].cast<double>()},
        {},
        area[12].cast<double>()};
    for (const py::handle model : area[11])
        station.models.push_back(Models.at(PlaceOf(model, ComparedList)).number);

    if (station.models.empty() || station.models.size() > ComparedModels.size())
        throw py::value_error("models are one to three");

    const auto [row, column, rows, columns] = rectangle;
    const std::size_t models = station.models.size();
    const std::size_t size = static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns);
    py::array_t<double> bands(
        {static_cast<py::ssize_t>(2 * models + 1), py::ssize_t{rows}, py::ssize_t{columns}});
    double* const first = bands.mutable_data();
    {
        const py::gil_scoped_release release;
        std::vector<std::uint8_t> inRange(models * size);
        CoverageBuffers buffers;
        buffers.heights = first + 2 * models * size;
        for (std::size_t i = 0; i < models; ++i) {
            buffers.values[i] = first + i * size;
            buffers.inRange[i] = inRange.data() + i * size;
        }
        ComputeCoverage(station, grid, {column, row, columns, rows}, buffers);
        std::copy(inRange.begin(), inRange.end(), first + models * size);
    }
    return bands;
}

}  // namespace

void AddAreas(py::module_& module) {
    module.def("coverage_grid", Grid);
    module.def("coverage_cells", Cells);
}

}  // namespace vardel::python
