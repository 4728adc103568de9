#pragma once

#include <pybind11/pybind11.h>

// The parts of the module, each in a file of its own.

namespace vardel::python {

// Each adds its functions and classes to the module.
void AddModels(pybind11::module_& module);
void AddPlanning(pybind11::module_& module);
void AddFiles(pybind11::module_& module);
void AddGround(pybind11::module_& module);

}  // namespace vardel::python
