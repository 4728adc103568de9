#include <pybind11/stl.h>

#include <utility>
#include <vector>

#include "Parts.h"
#include "Paths.h"
#include "engine/PowerUnits.h"
#include "engine/reach/LinkBudget.h"
#include "engine/reach/Reach.h"

namespace vardel::python {

namespace {

// A goal that a path of some model shall meet: the columns of reach and base_height_for, which
// differ in the third alone.
constexpr std::string_view GoalArguments = "cnnnccnnncn";
constexpr std::size_t GoalValue = 8;
constexpr std::size_t GoalQuantity = 9;
constexpr std::size_t GoalPower = 10;
constexpr PathPlaces ReachPlaces = PlacesFrom(1, &PathPlaces::distance);
constexpr PathPlaces HeightPlaces = PlacesFrom(1, &PathPlaces::baseHeight);

constexpr std::string_view PowerArguments = "cnnnnccnnn";
constexpr std::size_t WantedFieldStrength = 9;
constexpr PathPlaces PowerPlaces = PlacesFrom(1);

const Model* ModelAt(const Columns& columns, std::size_t i) {
    const auto place = static_cast<std::size_t>(columns[0].Code(i));
    return place < Models.size() ? &Models[place] : nullptr;
}

Goal GoalAt(const Columns& columns, std::size_t i) {
    return {static_cast<Quantity>(columns[GoalQuantity].Code(i)), columns[GoalValue].Number(i),
            columns[GoalPower].Number(i)};
}

// value(model, in, i) of each path of the columns; missing where its model, area or city is.
template <class Value, class Function>
FillRow<Value> ForEachPath(const PathPlaces& places, Value missing, Function value) {
    return [=](const Columns& columns, std::size_t count, Value* values) {
        PathReader paths(places);
        for (std::size_t i = 0; i < count; ++i) {
            const Model* const model = ModelAt(columns, i);
            const ModelInputs* const in = paths.Read(columns, i);
            values[i] =
                model != nullptr && in != nullptr ? value(*model, *in, columns, i) : missing;
        }
    };
}

// nan for Never and Invalid.
double ReachKm(const Model& model, const ModelInputs& in, const Columns& columns, std::size_t i) {
    const Reach reach = ReachOf(model, in, GoalAt(columns, i));
    return reach.served.empty() ? NoNumber : reach.km;
}

std::int8_t ReachOutcome(const Model& model, const ModelInputs& in, const Columns& columns,
                         std::size_t i) {
    return static_cast<std::int8_t>(ReachOf(model, in, GoalAt(columns, i)).outcome);
}

double NeededMetres(const Model& model, const ModelInputs& in, const Columns& columns,
                    std::size_t i) {
    const NeededHeight height = BaseHeightFor(model, in, GoalAt(columns, i));
    return height.served.empty() ? NoNumber : height.metres;
}

double NeededWatts(const Model& model, const ModelInputs& in, const Columns& columns,
                   std::size_t i) {
    const auto power = PowerForFieldStrength(model, in, columns[WantedFieldStrength].Number(i));
    return power ? power->watts : NoNumber;
}

// Outcome, km, in_range and served of one path.
py::tuple ReachOfOne(const py::object& model, const PathInputs& path, double value,
                     bool isFieldStrength) {
    const Goal goal =
        isFieldStrength ? Goal::FieldStrength(value, path.powerWatts) : Goal::AllowedLoss(value);
    const Model& one = Models.at(PlaceOf(model, ModelList));
    Reach reach;
    {
        const py::gil_scoped_release release;
        reach = ReachOf(one, MetricInputs(path), goal);
    }
    if (reach.outcome == Reach::Outcome::Invalid)
        throw py::value_error(
            "reach takes finite numbers, with a frequency, heights and a power above zero");
    std::vector<std::pair<double, double>> served;
    for (const Stretch& stretch : reach.served) served.emplace_back(stretch.from, stretch.to);
    return py::make_tuple(Reach::OutcomeNames.at(static_cast<std::size_t>(reach.outcome)), reach.km,
                          reach.inRange, served);
}

void AddGoals(py::module_& module) {
    AddUfunc<double>(module, "reach_km", GoalArguments,
                     ForEachPath(ReachPlaces, NoNumber, ReachKm));
    AddUfunc<std::int8_t>(module, "reach_outcome", GoalArguments,
                          ForEachPath(ReachPlaces, std::int8_t{0}, ReachOutcome));
    AddUfunc<double>(module, "base_height_m", GoalArguments,
                     ForEachPath(HeightPlaces, NoNumber, NeededMetres));
    AddUfunc<double>(module, "power_w", PowerArguments,
                     ForEachPath(PowerPlaces, NoNumber, NeededWatts));
    module.def("reach_of_one", [](const py::object& model, const py::tuple& path, double value,
                                  bool isFieldStrength) {
        return ReachOfOne(model, PathOf(path), value, isFieldStrength);
    });
    module.attr("OUTCOMES") = py::cast(Reach::OutcomeNames);
}

// function(number, unit) of a column of powers and one of units.
template <class Function>
FillRow<double> ForEachPower(Function function) {
    return [function](const Columns& columns, std::size_t count, double* values) {
        for (std::size_t i = 0; i < count; ++i) {
            const int unit = columns[1].Code(i);
            values[i] = unit == MissingCode
                            ? NoNumber
                            : function(columns[0].Number(i), static_cast<PowerUnit>(unit));
        }
    };
}

// function(receiver, value) of the columns value, frequency, antenna gain and cable loss.
template <class Function>
FillRow<double> ForEachReceiver(Function function) {
    return [function](const Columns& columns, std::size_t count, double* values) {
        for (std::size_t i = 0; i < count; ++i)
            values[i] = function({columns[1].Number(i), columns[2].Number(i), columns[3].Number(i)},
                                 columns[0].Number(i));
    };
}

}  // namespace

void AddPlanning(py::module_& module) {
    AddGoals(module);
    AddUfunc<double>(module, "to_watts", "nc", ForEachPower(WattsOf));
    AddUfunc<double>(module, "from_watts", "nc", ForEachPower(FromWatts));
    AddUfunc<double>(module, "field_strength_for_received_power", "nnnn",
                     ForEachReceiver(FieldStrengthForReceivedPower));
    AddUfunc<double>(module, "received_power", "nnnn", ForEachReceiver(ReceivedPower));
}

}  // namespace vardel::python
