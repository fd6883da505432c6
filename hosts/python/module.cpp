#include "automation/error.h"
#include "hosts/python/calls.h"
#include "hosts/python/data_objects.h"
#include "hosts/python/host_platform.h"
#include "hosts/python/values.h"
#include "persistence/db_results.h"
#include "persistence/qor_object.h"
#include "surface/cls_create_db.h"
#include "surface/cls_crud.h"
#include "surface/cls_field.h"

#include <memory>
#include <string>

/// The extension beneath the Python package: objects by handle, members by name. Users see the package.
namespace korvex::python {

namespace {

Handle CreateField() { return Handle(std::make_shared<clsField>()); }
Handle CreateDb() { return Handle(std::make_shared<clsCreateDb>(HostPlatform())); }

/// `newDataObject` makes the working objects for what stands beneath deleted elements; None leaves that to
/// the library.
Handle CreateCrud(py::object newDataObject) {
    Platform platform = HostPlatform();
    if (!newDataObject.is_none()) {
        // Its last holder may not have the interpreter.
        const std::shared_ptr<py::object> factory(new py::object(std::move(newDataObject)),
                                                  [](py::object* last) {
                                                      const py::gil_scoped_acquire interpreter;
                                                      delete last;
                                                  });
        platform.newDataObject = [factory] {
            const py::gil_scoped_acquire interpreter;
            return automation::ObjectAs<automation::Object>(
                ToVariant((*factory)(), automation::VarType::Object));
        };
    }
    return Handle(std::make_shared<clsCRUD>(platform));
}

template <automation::InvokeKind kind>
py::object Invoke(const Handle& self, const std::string& name, const py::args& arguments) {
    return python::Invoke(self, name, kind, arguments);
}

template <class Names>
py::list List(const Names& names) {
    py::list list;
    for (const auto& [value, name] : names)
        list.append(py::make_tuple(std::string(name), static_cast<std::int32_t>(value)));
    return list;
}

/// The library's errors are the package's.
// NOLINTNEXTLINE(performance-unnecessary-value-param): the form in which translators are registered
void Translate(std::exception_ptr failure) {
    try {
        if (failure) std::rethrow_exception(failure);
    } catch (const automation::Error& error) {
        const py::object type = py::module_::import("korvex._error").attr("Error");
        const py::object raised =
            type(error.Number(), ReadableText(error.Description()), ReadableText(error.Source()));
        PyErr_SetObject(type.ptr(), raised.ptr());
    }
}

}  // namespace

}  // namespace korvex::python

PYBIND11_MODULE(_korvex, module) {
    using namespace korvex;
    using namespace korvex::python;
    py::register_exception_translator(Translate);

    py::class_<Handle>(module, "Handle")
        .def("call", Invoke<automation::InvokeKind::Method>)
        .def("get", Invoke<automation::InvokeKind::PropertyGet>)
        .def("let", Invoke<automation::InvokeKind::PropertyLet>)
        .def_property_readonly("class_name", &Handle::ClassName)
        .def_property_readonly("address", &Handle::Address);
    py::class_<Iterator>(module, "Iterator")
        .def(py::init<const Handle&>())
        .def("__iter__", [](py::object self) { return self; })
        .def("__next__", &Iterator::Next);

    module.def("use_object_class", UseObjectClass);
    module.def("create_field", CreateField);
    module.def("create_db", CreateDb);
    module.def("create_crud", CreateCrud);
    module.def("describe", Describe);
    module.def("column_names", ColumnNames);
    module.def("next_record", NextRecord);
    module.def("results", [] { return List(DbResultNames); });
    module.def("attributes", [] { return List(AttributeNames); });
    AddDataObjects(module);
}
