#pragma once

#include <pybind11/pybind11.h>

#include "engine/PathInputs.h"

// The parts of the module, each in a file of its own.

namespace vardel::python {

// Each adds its functions and classes to the module.
void AddNames(pybind11::module_& module);
void AddModels(pybind11::module_& module);
void AddPlanning(pybind11::module_& module);
void AddReports(pybind11::module_& module);
void AddFiles(pybind11::module_& module);
void AddGround(pybind11::module_& module);
void AddAreas(pybind11::module_& module);

// One path, metric, of frequency, distance, base and mobile height, area, city, percentages of time
// and of locations, and power. Throws TypeError or ValueError for what is none.
PathInputs PathOf(const pybind11::tuple& values);

}  // namespace vardel::python
