#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

#include "Broadcast.h"
#include "Names.h"
#include "Parts.h"
#include "engine/Curves.h"
#include "models/Model.h"

namespace vardel::python {

namespace {

// Where an argument stands among the columns.
enum Place : std::uint8_t {
    Frequency,
    Distance,
    BaseHeight,
    MobileHeight,
    AreaPlace,
    CityPlace,
    PercentTime,
    PercentLocations,
    Power
};
constexpr std::size_t Places = Power + 1;

using Given = std::array<py::object, Places>;

constexpr std::array<const char*, Places> ArgumentNames = {
    "frequency", "distance",     "base_height",       "mobile_height", "area",
    "city",      "percent_time", "percent_locations", "power"};

bool IsText(std::size_t place) { return place == AreaPlace || place == CityPlace; }

double ValueOf(const Model& model, Quantity quantity, const ModelInputs& in, double power) {
    ModelTermsRecord terms;
    return quantity == Quantity::Loss ? model.loss(in, terms)
                                      : model.fieldStrength(in, power, terms);
}

void FillOverDistances(const Model& model, Quantity quantity, const ModelInputs& in, double power,
                       const double* km, std::size_t count, double* values) {
    if (quantity == Quantity::Loss)
        model.lossOverKm(in, km, count, values);
    else
        model.fieldStrengthOverKm(in, power, km, count, values);
}

void ReadInputs(const Columns& columns, std::size_t i, ModelInputs& in) {
    in.f = columns[Frequency][i];
    in.d = columns[Distance][i];
    in.hb = columns[BaseHeight][i];
    in.hm = columns[MobileHeight][i];
    in.area = AreaNames[static_cast<std::size_t>(columns[AreaPlace][i])];
    in.city = CityNames[static_cast<std::size_t>(columns[CityPlace][i])];
    in.pctTime = columns[PercentTime][i];
    in.pctLoc = columns[PercentLocations][i];
}

bool OnlyDistanceVaries(const Columns& columns) {
    for (std::size_t place = 0; place < Places; ++place)
        if (place != Distance && columns[place].stride != 0) return false;
    return true;
}

void FillRow(const Model& model, Quantity quantity, const Columns& columns, std::size_t count,
             double* values) {
    ModelInputs in;
    if (!OnlyDistanceVaries(columns)) {
        for (std::size_t i = 0; i < count; ++i) {
            ReadInputs(columns, i, in);
            values[i] = ValueOf(model, quantity, in, columns[Power][i]);
        }
        return;
    }
    ReadInputs(columns, 0, in);
    const double power = columns[Power][0];
    std::array<double, 512> km;
    for (std::size_t done = 0; done < count; done += km.size()) {
        const std::size_t size = std::min(km.size(), count - done);
        for (std::size_t i = 0; i < size; ++i) km[i] = columns[Distance][done + i];
        FillOverDistances(model, quantity, in, power, km.data(), size, values + done);
    }
}

// Without arrays: nothing where one of the arguments may be one.
std::optional<double> SingleValue(const Model& model, Quantity quantity, const Given& given) {
    std::array<double, Places> numbers{};
    for (std::size_t place = 0; place < Places; ++place) {
        if (IsText(place)) {
            if (!PyUnicode_Check(given[place].ptr())) return std::nullopt;
        } else {
            const auto number = PlainNumber(given[place]);
            if (!number) return std::nullopt;
            numbers[place] = *number;
        }
    }
    const ModelInputs in{.f = numbers[Frequency],
                         .d = numbers[Distance],
                         .hb = numbers[BaseHeight],
                         .hm = numbers[MobileHeight],
                         .area = AreaNames[PlaceOf(given[AreaPlace], AreaList)],
                         .city = CityNames[PlaceOf(given[CityPlace], CityList)],
                         .pctTime = numbers[PercentTime],
                         .pctLoc = numbers[PercentLocations]};
    return ValueOf(model, quantity, in, numbers[Power]);
}

py::object ModelValue(const Model& model, Quantity quantity, const Given& given) {
    if (const auto value = SingleValue(model, quantity, given)) return py::float_(*value);
    std::vector<py::array> arguments;
    for (std::size_t place = 0; place < Places; ++place)
        arguments.push_back(place == AreaPlace   ? PlacesOf(given[place], AreaList)
                            : place == CityPlace ? PlacesOf(given[place], CityList)
                                                 : Numbers(given[place], ArgumentNames[place]));
    return Broadcast(arguments).Compute<double>(
        [&](const Columns& columns, std::size_t count, double* values) {
            FillRow(model, quantity, columns, count, values);
        });
}

py::object InRangeValue(const py::object& name, const py::object& frequency,
                        const py::object& distance, const py::object& baseHeight,
                        const py::object& mobileHeight) {
    const Model& model = ModelNamed(name);
    const Broadcast arguments({Numbers(frequency, "frequency"), Numbers(distance, "distance"),
                               Numbers(baseHeight, "base_height"),
                               Numbers(mobileHeight, "mobile_height")});
    return arguments.Compute<bool>([&](const Columns& columns, std::size_t count, bool* values) {
        ModelInputs in;
        for (std::size_t i = 0; i < count; ++i) {
            in.f = columns[Frequency][i];
            in.d = columns[Distance][i];
            in.hb = columns[BaseHeight][i];
            in.hm = columns[MobileHeight][i];
            values[i] = InRange(model, in);
        }
    });
}

struct Publication {
    const char* title;  // of the model
    const char* source;
};

// In the order of ModelNumber.
constexpr std::array<Publication, 4> Publications = {{
    {"ITU-R P.529",
     "ITU-R Recommendation P.529-3 (1999), \"Prediction methods for the terrestrial\n"
     "land mobile service in the VHF and UHF bands\"."},
    {"Okumura-Hata-Davidson",
     "M. Hata, \"Empirical Formula for Propagation Loss in Land Mobile Radio\n"
     "Services\", IEEE Transactions on Vehicular Technology VT-29 (1980); the Davidson\n"
     "corrections as published in TIA/EIA TSB-88-A (1999)."},
    {"COST 231",
     "COST Action 231, \"Digital Mobile Radio towards Future Generation Systems\",\n"
     "Final Report, EUR 18957 (1999), chapter 4."},
    {"the US variant",
     "K. Bullington, \"Radio Propagation at Frequencies above 30 Megacycles\",\n"
     "Proceedings of the IRE 35 (1947); area terms by Hata 1980."},
}};

constexpr const char* PathText =
    "frequency          MHz\n"
    "distance           km\n"
    "base_height        m, of the base antenna\n"
    "mobile_height      m, of the mobile antenna\n"
    "area               'Urban', 'Suburban' or 'Open', in any case\n"
    "city               'Small/Medium' or 'Large', in this case\n"
    "percent_time       % of time, clipped to 1 to 99\n"
    "percent_locations  % of locations, clipped to 1 to 99, in whole percents\n";

constexpr const char* RulesText =
    "Each may be a number or an array (area and city: a text or an array of texts);\n"
    "they are combined by numpy's rules of broadcasting. Numbers give a float, arrays\n"
    "a float64 array. Frequency, distance and heights must be above zero: for others,\n"
    "and for nan, the result is nan or infinite. Outside of what in_range tells the\n"
    "value is an extrapolation. Raises ValueError for a text that is no area or city\n"
    "and for shapes that do not fit.\n";

std::string Signature(const std::string& name, Quantity quantity) {
    return name +
           "(frequency, distance, base_height=100.0, mobile_height=1.5,\n"
           "    area='Urban', city='Small/Medium', *, percent_time=50.0,\n"
           "    percent_locations=50.0" +
           (quantity == Quantity::Loss ? "" : ", power=1000.0") + ")\n\n";
}

std::string Docs(const std::string& name, Quantity quantity, const Publication& publication) {
    const std::string what =
        quantity == Quantity::Loss ? "Path loss in dB by " : "Field strength in dB(µV/m) by ";
    return Signature(name, quantity) + what + publication.title + ".\n\n" + PathText +
           (quantity == Quantity::Loss ? "" : "power              W e.r.p.\n") + '\n' + RulesText +
           "\nSource: " + publication.source;
}

// more: the arguments behind those of the path.
template <class Function, class... More>
void Define(py::module_& module, const Model& model, Quantity quantity, Function function,
            const More&... more) {
    using py::arg;
    const std::size_t row = IndexOf(model.number);
    const std::string name =
        std::string(ModelNames[row]) + (quantity == Quantity::Loss ? "_loss" : "_field_strength");
    module.def(name.c_str(), function, arg("frequency"), arg("distance"),
               arg("base_height") = FirstStart::BaseHeight,
               arg("mobile_height") = FirstStart::MobileHeight, arg("area") = FirstStart::Area,
               arg("city") = FirstStart::City, py::kw_only(),
               arg("percent_time") = FirstStart::Percent,
               arg("percent_locations") = FirstStart::Percent, more...,
               Docs(name, quantity, Publications[row]).c_str());
}

void AddModel(py::module_& module, const Model& model) {
    using Object = const py::object&;
    Define(module, model, Quantity::Loss,
           [&model](Object f, Object d, Object hb, Object hm, Object area, Object city, Object time,
                    Object locations) {
               return ModelValue(model, Quantity::Loss,
                                 {f, d, hb, hm, area, city, time, locations, py::float_(1.0)});
           });
    Define(
        module, model, Quantity::FieldStrength,
        [&model](Object f, Object d, Object hb, Object hm, Object area, Object city, Object time,
                 Object locations, Object power) {
            return ModelValue(model, Quantity::FieldStrength,
                              {f, d, hb, hm, area, city, time, locations, power});
        },
        py::arg("power") = FirstStart::Power);
}

}  // namespace

void AddModels(py::module_& module) {
    for (const Model& model : Models) AddModel(module, model);
    module.def("in_range", InRangeValue, py::arg("model"), py::arg("frequency"),
               py::arg("distance"), py::arg("base_height") = FirstStart::BaseHeight,
               py::arg("mobile_height") = FirstStart::MobileHeight,
               "in_range(model, frequency, distance, base_height=100.0, mobile_height=1.5)\n\n"
               "Whether a model covers a path: a bool, or an array of them.\n\n"
               "model is 'itu529', 'davidson', 'cost231' or 'us'; the others are numbers or\n"
               "arrays in MHz, km, m and m. The bounds count as inside, nan as outside.");
    module.attr("MODELS") =
        py::make_tuple(ModelNames[0], ModelNames[1], ModelNames[2], ModelNames[3]);
}

}  // namespace vardel::python
