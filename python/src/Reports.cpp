#include <pybind11/numpy.h>
#include <pybind11/stl.h>

#include <array>
#include <string>
#include <vector>

#include "Names.h"
#include "Parts.h"
#include "engine/Calculation.h"
#include "engine/LogLine.h"
#include "engine/measured/MeasuredFit.h"
#include "map/CoverageRings.h"

// What the program writes of paths and stations, for one at a time.

namespace vardel::python {

namespace {

// In the order of FormulaTerm::Role.
constexpr std::array<const char*, 3> RoleNames = {"quantity", "added", "subtracted"};

const Model& ModelNamed(py::handle name) { return Models.at(PlaceOf(name, ModelList)); }

// Name, formula, value, unit, source and role of each term.
std::vector<py::tuple> Explanation(const py::object& model, const py::tuple& values,
                                   bool isFieldStrength) {
    const PathInputs path = PathOf(values);
    const ModelInputs in = MetricInputs(path);
    const Model& one = ModelNamed(model);
    std::vector<py::tuple> terms;
    for (const FormulaTerm& term :
         isFieldStrength ? one.fieldStrengthTerms(in, path.powerWatts) : one.lossTerms(in))
        terms.push_back(py::make_tuple(term.text.name, term.text.formula, term.value, term.unit,
                                       term.text.source,
                                       RoleNames.at(static_cast<std::size_t>(term.role))));
    return terms;
}

// time: year to second. A path that the program would not calculate is a ValueError.
std::string LogLineOf(const py::tuple& values, const std::array<int, 6>& time, bool english) {
    PathInputs path = PathOf(values);
    if (english) path.units = Units::English;
    const ModelInputs in = MetricInputs(path);
    if (const auto refusal = RefusalOf(in)) throw py::value_error(*refusal);
    std::string line;
    for (const LogPiece& piece : LogLine(path, Calculation(in, path.powerWatts),
                                         {time[0], time[1], time[2], time[3], time[4], time[5]}))
        line += piece.text;
    return line;
}

// A GeoJSON or KML text.
std::string CoverageText(const Place& station, const py::tuple& values, double wanted,
                         bool isFieldStrength, const std::vector<double>& percentages, bool kml) {
    const PathInputs path = PathOf(values);
    Coverage coverage{
        station,
        MetricInputs(path),
        isFieldStrength ? Goal::FieldStrength(wanted, path.powerWatts) : Goal::AllowedLoss(wanted),
        {}};
    std::optional<std::string> text;
    {
        const py::gil_scoped_release release;
        for (const ModelNumber model : ComparedModels)
            for (const double percentage : percentages) {
                ModelInputs in = coverage.path;
                in.pctLoc = percentage;
                const Reach reach = ReachOf(ModelOf(model), in, coverage.goal);
                if (!reach.served.empty())
                    coverage.rings.push_back({model, percentage, reach.km, reach.inRange});
            }
        text = kml ? CoverageKml(coverage) : CoverageGeoJson(coverage);
    }
    if (!text)
        throw py::value_error("coverage_rings takes finite numbers and a place on the earth");
    return *text;
}

py::tuple StatisticsTuple(const FitStatistics& fit) {
    return py::make_tuple(fit.points, fit.mean, fit.deviation, fit.rms);
}

// Of a column that the table has, a tuple for each model and percentage: model, percentage,
// distances, measured, predicted and in range of the points, statistics of those in range, by band,
// and of the others.
std::vector<py::tuple> Fits(const py::tuple& values, const MeasuredSegment& table, int column,
                            const std::vector<double>& percentages) {
    std::vector<py::tuple> fits;
    for (const MeasuredFit& fit : FitsOf(PathOf(values), table, column, percentages)) {
        const auto size = static_cast<py::ssize_t>(fit.points.size());
        py::array_t<double> km(size), measured(size), predicted(size);
        py::array_t<bool> inRange(size);
        for (py::ssize_t i = 0; i < size; ++i) {
            const MeasuredFit::Point& point = fit.points[static_cast<std::size_t>(i)];
            km.mutable_at(i) = point.km;
            measured.mutable_at(i) = point.measured;
            predicted.mutable_at(i) = point.predicted;
            inRange.mutable_at(i) = point.inRange;
        }
        std::vector<py::tuple> bands;
        for (const FitStatistics& band : fit.bands) bands.push_back(StatisticsTuple(band));
        fits.push_back(py::make_tuple(ModelNames.at(IndexOf(fit.model)), fit.pctLoc, km, measured,
                                      predicted, inRange, StatisticsTuple(fit.all), bands,
                                      StatisticsTuple(fit.outOfRange)));
    }
    return fits;
}

}  // namespace

PathInputs PathOf(const py::tuple& values) {
    const auto number = [&](std::size_t i) { return values[i].cast<double>(); };
    return {.distance = number(1),
            .frequency = number(0),
            .hb = number(2),
            .hm = number(3),
            .area = AreaNames.at(PlaceOf(values[4], AreaList)),
            .city = CityNames.at(PlaceOf(values[5], CityList)),
            .pctTime = number(6),
            .pctLoc = number(7),
            .powerWatts = number(8)};
}

void AddReports(py::module_& module) {
    module.def("explanation", Explanation);
    module.def("log_line", LogLineOf);
    module.attr("LOG_HEADS") = LogColumnHeader;
    module.def("coverage_text",
               [](double latitude, double longitude, const py::tuple& values, double wanted,
                  bool isFieldStrength, const std::vector<double>& percentages, bool kml) {
                   return CoverageText({latitude, longitude}, values, wanted, isFieldStrength,
                                       percentages, kml);
               });
    module.def("fits", Fits);
    module.attr("FIT_BANDS") = py::cast(FitBands);
}

}  // namespace vardel::python
