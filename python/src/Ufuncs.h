#pragma once

#include <pybind11/pybind11.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <string>
#include <string_view>

// Universal functions of numpy: arrays of every library that follows numpy's protocols go through
// them, chunk for chunk, with their labels and masks.

namespace vardel::python {

namespace py = pybind11;

// Before the first universal function is made. Throws where numpy is missing.
void LoadNumpy();

constexpr std::size_t MostArguments = 12;

// An argument along a row. A number is a double, a code of a text an int8.
struct Column {
    const char* first = nullptr;
    std::ptrdiff_t stride = 0;  // bytes; 0: the same value all along

    double Number(std::size_t i) const noexcept { return Value<double>(i); }
    int Code(std::size_t i) const noexcept { return Value<std::int8_t>(i); }

private:
    template <class T>
    T Value(std::size_t i) const noexcept {
        T value{};
        std::memcpy(&value, first + stride * static_cast<std::ptrdiff_t>(i), sizeof value);
        return value;
    }
};
using Columns = std::array<Column, MostArguments>;

// Computes count values, not more than LongestRow, from the columns. Called on any thread, without
// the interpreter's lock.
template <class Value>
using FillRow = std::function<void(const Columns& columns, std::size_t count, Value* values)>;
constexpr std::size_t LongestRow = 512;

// The name must be the function's in the module, by which it is pickled. arguments: a character
// each, 'n' for a number and 'c' for a code. Value: double, bool or std::int8_t.
template <class Value>
void AddUfunc(py::module_& module, const std::string& name, std::string_view arguments,
              FillRow<Value> fill);

// Gives the code of each text. Called with the interpreter's lock; may throw.
using CodeOfText = std::function<std::int8_t(py::handle text)>;
void AddTextUfunc(py::module_& module, const std::string& name, CodeOfText code);

}  // namespace vardel::python
