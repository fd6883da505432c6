#pragma once

#include "hosts/python/handle.h"

namespace korvex::python {

/// The library's own data objects, their definitions, the tables of a definition, and stored objects found by
/// their values.
void AddDataObjects(py::module_& module);

}  // namespace korvex::python
