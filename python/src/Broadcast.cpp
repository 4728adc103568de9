#include "Broadcast.h"

#include <algorithm>
#include <string>

namespace vardel::python {

namespace {

constexpr int Aligned = py::detail::npy_api::NPY_ARRAY_ALIGNED_;
using AlignedNumbers = py::array_t<double, int{py::array::forcecast} | Aligned>;

std::string Listed(const NameList& list) {
    std::string all;
    for (std::size_t i = 0; i < list.names.size(); ++i) {
        if (i > 0) all += i + 1 < list.names.size() ? ", " : " or ";
        all += list.names[i];
    }
    return all;
}

}  // namespace

std::optional<double> PlainNumber(py::handle value) {
    if (PyFloat_Check(value.ptr())) return PyFloat_AS_DOUBLE(value.ptr());
    if (!PyLong_Check(value.ptr())) return std::nullopt;
    const double x = PyLong_AsDouble(value.ptr());
    if (x == -1.0 && PyErr_Occurred() != nullptr) throw py::error_already_set();
    return x;
}

py::array Numbers(py::handle value, const char* argument) {
    const py::array given = py::module_::import("numpy").attr("asarray")(value);
    if (std::string("biuf").find(given.dtype().kind()) == std::string::npos)
        throw py::type_error(std::string(argument) + " takes numbers, not " +
                             std::string(py::str(given.dtype())));
    return AlignedNumbers(given);
}

std::size_t PlaceOf(py::handle text, const NameList& list) {
    if (!PyUnicode_Check(text.ptr()))
        throw py::type_error(std::string(list.argument) + " takes text: " + Listed(list));
    const auto given = text.cast<std::string>();
    const std::size_t place =
        list.find != nullptr
            ? list.find(given)
            : static_cast<std::size_t>(std::find(list.names.begin(), list.names.end(), given) -
                                       list.names.begin());
    if (place >= list.names.size())
        throw py::value_error(std::string(list.argument) + " is " + Listed(list) + ", not " +
                              std::string(py::repr(text)));
    return place;
}

py::array PlacesOf(py::handle texts, const NameList& list) {
    const py::module_ numpy = py::module_::import("numpy");
    const py::array given = numpy.attr("asarray")(texts, py::arg("dtype") = "object");
    py::array_t<double> places(
        std::vector<py::ssize_t>(given.shape(), given.shape() + given.ndim()));
    double* place = places.mutable_data();
    for (const py::handle text : given.attr("flat"))
        *place++ = static_cast<double>(PlaceOf(text, list));
    return places;
}

Broadcast::Broadcast(const std::vector<py::array>& arguments) {
    py::tuple given(arguments.size());
    for (std::size_t i = 0; i < arguments.size(); ++i) given[i] = arguments[i];
    for (const py::handle one : py::module_::import("numpy").attr("broadcast_arrays")(*given))
        arguments_.push_back(py::reinterpret_borrow<py::array>(one));
    const py::array& any = arguments_.front();
    shape_.assign(any.shape(), any.shape() + any.ndim());
    if (!shape_.empty()) count_ = static_cast<std::size_t>(shape_.back());
    for (std::size_t axis = 0; axis + 1 < shape_.size(); ++axis)
        rows_ *= static_cast<std::size_t>(shape_[axis]);
    if (count_ == 0) rows_ = 0;
}

Columns Broadcast::ColumnsAt(const std::vector<py::ssize_t>& place) const {
    Columns columns;
    columns.reserve(arguments_.size());
    for (const py::array& argument : arguments_) {
        const char* first = static_cast<const char*>(argument.data());
        for (std::size_t axis = 0; axis + 1 < place.size(); ++axis)
            first += place[axis] * argument.strides()[axis];
        columns.push_back({first, place.empty() ? 0 : argument.strides()[place.size() - 1]});
    }
    return columns;
}

}  // namespace vardel::python
