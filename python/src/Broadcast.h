#pragma once

#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>

#include <cstddef>
#include <cstring>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

// Arguments that are numbers or arrays, combined by numpy's rules.

namespace vardel::python {

namespace py = pybind11;

// A plain number of Python's; nothing for all else.
std::optional<double> PlainNumber(py::handle value);

// Numbers of any real type as doubles. Throws TypeError, with the argument's name, for all else.
py::array Numbers(py::handle value, const char* argument);

// The names that an argument may have.
struct NameList {
    const char* argument;
    std::span<const char* const> names;
    // The place of a text in names, or their number; null: case and blanks count.
    std::size_t (*find)(std::string_view text) noexcept = nullptr;
};

// The place of a text, or of each text of an array, in the list. Throw ValueError for another text
// and TypeError for what is no text.
std::size_t PlaceOf(py::handle text, const NameList& list);
py::array PlacesOf(py::handle texts, const NameList& list);

// An argument along one row, which is all of the last axis.
struct Column {
    const char* first;
    std::ptrdiff_t stride;  // bytes; 0: the same number all along

    double operator[](std::size_t i) const noexcept {
        double x = 0.0;
        std::memcpy(&x, first + stride * static_cast<std::ptrdiff_t>(i), sizeof x);
        return x;
    }
};
using Columns = std::vector<Column>;

// Arguments of different shapes as rows of the shape that they have in common.
class Broadcast {
public:
    // Throws ValueError where the shapes do not fit each other.
    explicit Broadcast(const std::vector<py::array>& arguments);

    // fill(columns, count, values) for each row, without the interpreter's lock. A single value is
    // given as a number, all else as an array.
    template <class Value, class Fill>
    py::object Compute(Fill fill) const {
        py::array_t<Value> result(shape_);
        Value* values = result.mutable_data();
        {
            const py::gil_scoped_release release;
            ForEachRow([&](const Columns& columns, std::size_t row) {
                fill(columns, count_, values + row * count_);
            });
        }
        if (shape_.empty()) return py::cast(*values);
        return result;
    }

private:
    template <class Visit>
    void ForEachRow(Visit visit) const {
        std::vector<py::ssize_t> place(shape_.size());
        for (std::size_t row = 0; row < rows_; ++row) {
            visit(ColumnsAt(place), row);
            for (std::size_t axis = shape_.size(); axis >= 2; --axis) {
                if (++place[axis - 2] < shape_[axis - 2]) break;
                place[axis - 2] = 0;
            }
        }
    }
    Columns ColumnsAt(const std::vector<py::ssize_t>& place) const;

    std::vector<py::array> arguments_;  // each of the common shape
    std::vector<py::ssize_t> shape_;
    std::size_t rows_ = 1;
    std::size_t count_ = 1;  // in a row
};

}  // namespace vardel::python
