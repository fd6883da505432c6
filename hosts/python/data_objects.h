#pragma once

#include "hosts/python/handle.h"

/// The library's own data objects, their definitions, and the tables of a definition.
namespace korvex::python {

void AddDataObjects(py::module_& module);
/// Stored ones, found by their values.
void AddStoredObjects(py::module_& module);

}  // namespace korvex::python
