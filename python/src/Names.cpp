#include "Names.h"

#include <algorithm>

#include "Parts.h"
#include "Ufuncs.h"

namespace vardel::python {

namespace {

std::string Listed(const NameList& list) {
    std::string all;
    for (std::size_t i = 0; i < list.names.size(); ++i) {
        if (i > 0) all += i + 1 < list.names.size() ? ", " : " or ";
        all += list.names[i];
    }
    return all;
}

// What tables have where a text is missing: None, nan, or the NA of pandas, which is imported for
// nobody's sake here.
bool IsMissing(py::handle value) {
    if (value.is_none()) return true;
    if (PyFloat_Check(value.ptr()))
        return PyFloat_AS_DOUBLE(value.ptr()) != PyFloat_AS_DOUBLE(value.ptr());
    return std::string_view(Py_TYPE(value.ptr())->tp_name).ends_with("NAType");
}

void AddCodes(py::module_& module, const NameList& list) {
    AddTextUfunc(module, std::string(list.argument) + "_codes", [&list](py::handle text) {
        return static_cast<std::int8_t>(IsMissing(text) ? MissingCode
                                                        : static_cast<int>(PlaceOf(text, list)));
    });
}

}  // namespace

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

void AddNames(py::module_& module) {
    for (const NameList* list : {&ModelList, &AreaList, &CityList, &UnitList})
        AddCodes(module, *list);
}

}  // namespace vardel::python
