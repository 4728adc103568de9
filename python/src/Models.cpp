#include "models/Model.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "Parts.h"
#include "Paths.h"
#include "engine/curves/Curves.h"

namespace vardel::python {

namespace {

constexpr std::size_t Power = 8;
constexpr PathPlaces Places = PlacesFrom(0);
constexpr std::string_view LossArguments = "nnnnccnn";
constexpr std::string_view FieldStrengthArguments = "nnnnccnnn";

struct Function {
    const Model& model;
    Quantity quantity;

    std::size_t Arguments() const { return quantity == Quantity::Loss ? Power : Power + 1; }

    double Value(const ModelInputs& in, double power) const {
        ModelTermsRecord terms;
        return quantity == Quantity::Loss ? model.loss(in, terms)
                                          : model.fieldStrength(in, power, terms);
    }
    void Curve(const ModelInputs& in, double power, const double* km, std::size_t count,
               double* values) const {
        if (quantity == Quantity::Loss)
            model.lossOverKm(in, km, count, values);
        else
            model.fieldStrengthOverKm(in, power, km, count, values);
    }
    double PowerAt(const Columns& columns, std::size_t i) const {
        return quantity == Quantity::Loss ? 1.0 : columns[Power].Number(i);
    }
};

bool OnlyDistanceVaries(const Function& function, const Columns& columns) {
    for (std::size_t place = 0; place < function.Arguments(); ++place)
        if (place != Places.distance && columns[place].stride != 0) return false;
    return columns[Places.distance].stride != 0;
}

void FillValues(const Function& function, const Columns& columns, std::size_t count,
                double* values) {
    PathReader paths(Places);
    if (!OnlyDistanceVaries(function, columns)) {
        for (std::size_t i = 0; i < count; ++i) {
            const ModelInputs* const in = paths.Read(columns, i);
            values[i] =
                in != nullptr ? function.Value(*in, function.PowerAt(columns, i)) : NoNumber;
        }
        return;
    }
    const ModelInputs* const in = paths.Read(columns, 0);
    if (in == nullptr) {
        std::fill_n(values, count, NoNumber);
        return;
    }
    std::array<double, LongestRow> km;
    for (std::size_t i = 0; i < count; ++i) km[i] = columns[Places.distance].Number(i);
    function.Curve(*in, function.PowerAt(columns, 0), km.data(), count, values);
}

void FillInRange(const Columns& columns, std::size_t count, bool* values) {
    ModelInputs in;
    for (std::size_t i = 0; i < count; ++i) {
        in.f = columns[1].Number(i);
        in.d = columns[2].Number(i);
        in.hb = columns[3].Number(i);
        in.hm = columns[4].Number(i);
        const auto model = static_cast<std::size_t>(columns[0].Code(i));
        values[i] = model < Models.size() && InRange(Models[model], in);
    }
}

std::optional<double> PlainNumber(py::handle value) {
    if (PyFloat_Check(value.ptr())) return PyFloat_AS_DOUBLE(value.ptr());
    if (!PyLong_Check(value.ptr())) return std::nullopt;
    const double x = PyLong_AsDouble(value.ptr());
    if (x == -1.0 && PyErr_Occurred() != nullptr) throw py::error_already_set();
    return x;
}

// The value of one path of plain numbers and texts, without the detour through arrays; None where
// an argument is anything else.
py::object SingleValue(const Function& function, const py::args& given) {
    std::array<double, Power + 1> numbers{};
    for (std::size_t place = 0; place < function.Arguments(); ++place) {
        const py::handle argument = PyTuple_GET_ITEM(given.ptr(), static_cast<Py_ssize_t>(place));
        if (place == Places.area || place == Places.city) {
            if (!PyUnicode_Check(argument.ptr())) return py::none();
        } else {
            const auto number = PlainNumber(argument);
            if (!number) return py::none();
            numbers[place] = *number;
        }
    }
    const ModelInputs in{.f = numbers[Places.frequency],
                         .d = numbers[Places.distance],
                         .hb = numbers[Places.baseHeight],
                         .hm = numbers[Places.mobileHeight],
                         .area = AreaNames[PlaceOf(given[Places.area], AreaList)],
                         .city = CityNames[PlaceOf(given[Places.city], CityList)],
                         .pctTime = numbers[Places.percentTime],
                         .pctLoc = numbers[Places.percentLocations]};
    return py::float_(function.Value(in, numbers[Power]));
}

void AddFunction(py::module_& module, const Function& function) {
    const bool isLoss = function.quantity == Quantity::Loss;
    const std::string name = std::string(ModelNames[IndexOf(function.model.number)]) +
                             (isLoss ? "_loss" : "_field_strength");
    AddUfunc<double>(module, name, isLoss ? LossArguments : FieldStrengthArguments,
                     [function](const Columns& columns, std::size_t count, double* values) {
                         FillValues(function, columns, count, values);
                     });
    module.def((name + "_of_one").c_str(),
               [function](const py::args& given) { return SingleValue(function, given); });
}

}  // namespace

void AddModels(py::module_& module) {
    for (const Model& model : Models)
        for (const Quantity quantity : {Quantity::Loss, Quantity::FieldStrength})
            AddFunction(module, {model, quantity});
    AddUfunc<bool>(module, "in_range", "cnnnn", FillInRange);
    module.attr("MODELS") =
        py::make_tuple(ModelNames[0], ModelNames[1], ModelNames[2], ModelNames[3]);
}

}  // namespace vardel::python
