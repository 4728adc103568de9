#include "Ufuncs.h"

#define NPY_NO_DEPRECATED_API NPY_1_22_API_VERSION
#include <numpy/arrayobject.h>
#include <numpy/ufuncobject.h>

#include <algorithm>
#include <cfenv>
#include <exception>
#include <memory>
#include <type_traits>
#include <vector>

namespace vardel::python {

namespace {

// What numpy keeps pointers to as long as a universal function lives.
struct Parts {
    explicit Parts(std::string given) : name(std::move(given)) {}

    std::string name;
    std::vector<char> types;
    std::array<PyUFuncGenericFunction, 1> loops{};
    std::array<void*, 1> data{};
};

template <class Function>
struct PartsOf : Parts {
    PartsOf(std::string ufunc, Function given)
        : Parts(std::move(ufunc)), function(std::move(given)) {
        data[0] = &function;
    }
    Function function;
};

template <class Value>
constexpr char TypeOf() {
    if (std::is_same_v<Value, bool>) return NPY_BOOL;
    return std::is_same_v<Value, double> ? NPY_DOUBLE : NPY_INT8;
}

// Tells the interpreter of the exception in flight.
void TellInterpreter() {
    const py::gil_scoped_acquire lock;
    try {
        throw;
    } catch (py::error_already_set& error) {
        error.restore();
    } catch (const py::builtin_exception& error) {
        error.set_error();
    } catch (const std::exception& error) {
        PyErr_SetString(PyExc_RuntimeError, error.what());
    }
}

// Numpy's loop over a row: its last column is the result's.
template <class Value>
void Loop(char** first, const npy_intp* size, const npy_intp* strides, void* data) {
    const auto& [fill, arguments] = *static_cast<std::pair<FillRow<Value>, std::size_t>*>(data);
    const auto count = static_cast<std::size_t>(*size);
    Columns columns{};
    std::array<Value, LongestRow> values;
    try {
        for (std::size_t done = 0; done < count; done += values.size()) {
            const auto place = static_cast<std::ptrdiff_t>(done);
            for (std::size_t i = 0; i < arguments; ++i)
                columns[i] = {first[i] + strides[i] * place, strides[i]};
            const std::size_t now = std::min(values.size(), count - done);
            char* result = first[arguments] + strides[arguments] * place;
            if (strides[arguments] == sizeof(Value)) {
                fill(columns, now, reinterpret_cast<Value*>(result));
                continue;
            }
            fill(columns, now, values.data());
            for (std::size_t i = 0; i < now; ++i, result += strides[arguments])
                std::memcpy(result, &values[i], sizeof(Value));
        }
    } catch (...) {
        TellInterpreter();
    }
    // Out of its range a formula gives nan or infinity; numpy would warn of how it came to that.
    std::feclearexcept(FE_ALL_EXCEPT);
}

void TextLoop(char** first, const npy_intp* size, const npy_intp* strides, void* data) {
    const auto& codeOf = *static_cast<CodeOfText*>(data);
    try {
        for (npy_intp i = 0; i < *size; ++i) {
            PyObject* text = *reinterpret_cast<PyObject**>(first[0] + i * strides[0]);
            const std::int8_t code = codeOf(text == nullptr ? Py_None : text);
            std::memcpy(first[1] + i * strides[1], &code, sizeof code);
        }
    } catch (...) {
        TellInterpreter();
    }
}

// The last of the types is the result's.
void Add(py::module_& module, std::unique_ptr<Parts> parts, void (*free)(PyObject*)) {
    Parts& all = *parts;
    const auto arguments = static_cast<int>(all.types.size()) - 1;
    auto owner = py::reinterpret_steal<py::object>(PyCapsule_New(&all, nullptr, free));
    if (!owner) throw py::error_already_set();
    static_cast<void>(parts.release());  // the capsule has it now
    auto made = py::reinterpret_steal<py::object>(
        PyUFunc_FromFuncAndData(all.loops.data(), all.data.data(), all.types.data(), 1, arguments,
                                1, PyUFunc_None, all.name.c_str(), nullptr, 0));
    if (!made) throw py::error_already_set();
    reinterpret_cast<PyUFuncObject*>(made.ptr())->obj = owner.release().ptr();
    module.attr(all.name.c_str()) = made;
}

template <class Whole>
void Free(PyObject* capsule) {
    const std::unique_ptr<Whole> last(
        static_cast<Whole*>(static_cast<Parts*>(PyCapsule_GetPointer(capsule, nullptr))));
}

}  // namespace

void LoadNumpy() {
    if (_import_array() < 0 || _import_umath() < 0) throw py::error_already_set();
}

template <class Value>
void AddUfunc(py::module_& module, const std::string& name, std::string_view arguments,
              FillRow<Value> fill) {
    using Whole = PartsOf<std::pair<FillRow<Value>, std::size_t>>;
    auto parts = std::make_unique<Whole>(name, std::pair(std::move(fill), arguments.size()));
    for (const char argument : arguments)
        parts->types.push_back(argument == 'n' ? TypeOf<double>() : TypeOf<std::int8_t>());
    parts->types.push_back(TypeOf<Value>());
    parts->loops[0] = Loop<Value>;
    Add(module, std::move(parts), Free<Whole>);
}

template void AddUfunc(py::module_&, const std::string&, std::string_view, FillRow<double>);
template void AddUfunc(py::module_&, const std::string&, std::string_view, FillRow<bool>);
template void AddUfunc(py::module_&, const std::string&, std::string_view, FillRow<std::int8_t>);

void AddTextUfunc(py::module_& module, const std::string& name, CodeOfText code) {
    using Whole = PartsOf<CodeOfText>;
    auto parts = std::make_unique<Whole>(name, std::move(code));
    parts->types = {NPY_OBJECT, TypeOf<std::int8_t>()};
    parts->loops[0] = TextLoop;
    Add(module, std::move(parts), Free<Whole>);
}

}  // namespace vardel::python
