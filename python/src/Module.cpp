#include <pybind11/pybind11.h>

#include "Parts.h"
#include "Ufuncs.h"

PYBIND11_MODULE(_vardel, module) {
    pybind11::options options;
    options.disable_function_signatures();  // the texts have them, with the arguments' own names
    module.attr("__version__") = VARDEL_VERSION;
    vardel::python::LoadNumpy();
    vardel::python::AddNames(module);
    vardel::python::AddModels(module);
    vardel::python::AddPlanning(module);
    vardel::python::AddReports(module);
    vardel::python::AddFiles(module);
    vardel::python::AddGround(module);
    vardel::python::AddAreas(module);
}
