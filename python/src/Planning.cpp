#include <pybind11/stl.h>

#include <array>
#include <string>

#include "Broadcast.h"
#include "Names.h"
#include "Parts.h"
#include "engine/LinkBudget.h"
#include "engine/PowerUnits.h"
#include "engine/Reach.h"

namespace vardel::python {

namespace {

// In the order of Reach::Outcome.
constexpr std::array<const char*, 5> OutcomeNames = {"invalid", "never", "ends", "everywhere",
                                                     "late"};

const char* OutcomeOf(const Reach& reach) {
    return OutcomeNames.at(static_cast<std::size_t>(reach.outcome));
}

std::vector<std::pair<double, double>> ServedBy(const Reach& reach) {
    std::vector<std::pair<double, double>> served;
    for (const Stretch& stretch : reach.served) served.emplace_back(stretch.from, stretch.to);
    return served;
}

Goal GoalOf(std::optional<double> loss, std::optional<double> fieldStrength, double power) {
    if (loss.has_value() == fieldStrength.has_value())
        throw py::type_error("reach takes either loss or field_strength");
    return loss ? Goal::AllowedLoss(*loss) : Goal::FieldStrength(*fieldStrength, power);
}

Reach ReachValue(const py::object& name, double frequency, double baseHeight, double mobileHeight,
                 const py::object& area, const py::object& city, std::optional<double> loss,
                 std::optional<double> fieldStrength, double power, double percentTime,
                 double percentLocations) {
    const Model& model = ModelNamed(name);
    const Goal goal = GoalOf(loss, fieldStrength, power);
    const ModelInputs in{.f = frequency,
                         .hb = baseHeight,
                         .hm = mobileHeight,
                         .area = AreaNames[PlaceOf(area, AreaList)],
                         .city = CityNames[PlaceOf(city, CityList)],
                         .pctTime = percentTime,
                         .pctLoc = percentLocations};
    Reach reach;
    {
        const py::gil_scoped_release release;
        reach = ReachOf(model, in, goal);
    }
    if (reach.outcome == Reach::Outcome::Invalid)
        throw py::value_error(
            "reach takes finite numbers, with a frequency, heights and a power above zero");
    return reach;
}

// function(values...) of each element of its two arguments.
template <class Function>
py::object ForEachPair(const char* first, const py::object& firstValue, const char* second,
                       const py::object& secondValue, Function function) {
    return Broadcast({Numbers(firstValue, first), Numbers(secondValue, second)})
        .Compute<double>([&](const Columns& columns, std::size_t count, double* values) {
            for (std::size_t i = 0; i < count; ++i)
                values[i] = function(columns[0][i], columns[1][i]);
        });
}

PowerUnit UnitNamed(const py::object& unit) {
    return static_cast<PowerUnit>(PlaceOf(unit, UnitList));
}

template <class Function>
py::object ForEachNumber(const char* name, const py::object& value, Function function) {
    return Broadcast({Numbers(value, name)})
        .Compute<double>([&](const Columns& columns, std::size_t count, double* values) {
            for (std::size_t i = 0; i < count; ++i) values[i] = function(columns[0][i]);
        });
}

void AddReach(py::module_& module) {
    using py::arg;
    py::class_<Reach>(module, "Reach", "How far a station reaches, as reach gives it.")
        .def_property_readonly("outcome", OutcomeOf,
                               "'ends': the goal is met from 0.1 km to km; 'everywhere': up to "
                               "300 km;\n'late': not near the station, but farther out up to km; "
                               "'never'.")
        .def_readonly("km", &Reach::km, "Where service ends for the first time; 0 for 'never'.")
        .def_readonly("in_range", &Reach::inRange,
                      "Whether the model covers that distance; for 'never' 0.1 km.")
        .def_property_readonly("served", ServedBy,
                               "All of the service: pairs of distances in km, to a millimetre. "
                               "There is more\nthan one where the loss falls again.")
        .def("__repr__", [](const Reach& reach) {
            return "Reach(outcome=" + std::string(py::repr(py::cast(OutcomeOf(reach)))) +
                   ", km=" + std::string(py::repr(py::float_(reach.km))) +
                   ", in_range=" + (reach.inRange ? "True" : "False") +
                   ", served=" + std::string(py::repr(py::cast(ServedBy(reach)))) + ')';
        });
    module.def("reach", ReachValue, arg("model"), arg("frequency"),
               arg("base_height") = FirstStart::BaseHeight,
               arg("mobile_height") = FirstStart::MobileHeight, arg("area") = FirstStart::Area,
               arg("city") = FirstStart::City, py::kw_only(), arg("loss") = py::none(),
               arg("field_strength") = py::none(), arg("power") = FirstStart::Power,
               arg("percent_time") = FirstStart::Percent,
               arg("percent_locations") = FirstStart::Percent,
               "reach(model, frequency, base_height=100.0, mobile_height=1.5, area='Urban',\n"
               "    city='Small/Medium', *, loss=None, field_strength=None, power=1000.0,\n"
               "    percent_time=50.0, percent_locations=50.0)\n\n"
               "How far a station reaches, looked at from 0.1 to 300 km: where the path loss is\n"
               "at most loss, in dB, or where the field strength of power, in W e.r.p., is at\n"
               "least field_strength, in dB(µV/m). One of the two must be given.\n\n"
               "model is 'itu529', 'davidson', 'cost231' or 'us'; the path's arguments are single\n"
               "values as those of itu529_loss. Raises ValueError for what is not finite or not\n"
               "above zero where it must be.");
}

void AddPower(py::module_& module) {
    using py::arg;
    module.def(
        "to_watts",
        [](const py::object& power, const py::object& unit) {
            return ForEachNumber("power", power,
                                 [u = UnitNamed(unit)](double x) { return WattsOf(x, u); });
        },
        arg("power"), arg("unit"),
        "to_watts(power, unit)\n\n"
        "A power, or an array of them, in 'W', 'kW', 'dBm' or 'dBW', as watts.");
    module.def(
        "from_watts",
        [](const py::object& watts, const py::object& unit) {
            return ForEachNumber("watts", watts,
                                 [u = UnitNamed(unit)](double x) { return FromWatts(x, u); });
        },
        arg("watts"), arg("unit"),
        "from_watts(watts, unit)\n\n"
        "Watts, or an array of them, in 'W', 'kW', 'dBm' or 'dBW'.");
}

void AddLinkBudget(py::module_& module) {
    using py::arg;
    module.def(
        "field_strength_for_received_power",
        [](const py::object& dBm, const py::object& frequency, double gain, double loss) {
            return ForEachPair("received_power", dBm, "frequency", frequency,
                               [=](double power, double f) {
                                   return FieldStrengthForReceivedPower({f, gain, loss}, power);
                               });
        },
        arg("received_power"), arg("frequency"), arg("antenna_gain") = 0.0, arg("cable_loss") = 0.0,
        "field_strength_for_received_power(received_power, frequency, antenna_gain=0.0,\n"
        "    cable_loss=0.0)\n\n"
        "The field strength in dB(µV/m) that gives a receiver a power in dBm, at a\n"
        "frequency in MHz, with the antenna's gain in dBi and the loss of its cable in dB.\n\n"
        "Source: ITU-R Recommendation P.525.");
    module.def(
        "received_power",
        [](const py::object& dBuVm, const py::object& frequency, double gain, double loss) {
            return ForEachPair("field_strength", dBuVm, "frequency", frequency,
                               [=](double e, double f) {
                                   return ReceivedPower({f, gain, loss}, e);
                               });
        },
        arg("field_strength"), arg("frequency"), arg("antenna_gain") = 0.0, arg("cable_loss") = 0.0,
        "received_power(field_strength, frequency, antenna_gain=0.0, cable_loss=0.0)\n\n"
        "The power in dBm that a receiver gets of a field strength in dB(µV/m): the\n"
        "inverse of field_strength_for_received_power.");
}

}  // namespace

void AddPlanning(py::module_& module) {
    AddReach(module);
    AddPower(module);
    AddLinkBudget(module);
}

}  // namespace vardel::python
