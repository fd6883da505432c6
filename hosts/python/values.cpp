#include "hosts/python/values.h"

#include "automation/convert.h"
#include "automation/date_text.h"
#include "automation/error.h"
#include "hosts/python/python_object.h"

#include <cmath>
#include <datetime.h>
#include <string>
#include <utility>

namespace korvex::python {

using automation::Error;
using automation::Variant;
using automation::VarType;

namespace {

/// Lives as long as the interpreter, which may be gone before statics are.
struct ObjectClass {
    py::object type;
    py::object wrap;
};
ObjectClass& LibraryObjects() {
    static auto* const objects = new ObjectClass;
    return *objects;
}

void ImportDateTime() {
    if (PyDateTimeAPI == nullptr) PyDateTime_IMPORT;
    if (PyDateTimeAPI == nullptr) throw py::error_already_set();
}

std::string TypeName(py::handle value) { return Py_TYPE(value.ptr())->tp_name; }

[[noreturn]] void Refuse(py::handle value, const std::string& reason) {
    throw py::type_error("'" + TypeName(value) + "' " + reason);
}

Variant FromInt(py::handle value) {
    int overflow = 0;
    const long long number = PyLong_AsLongLongAndOverflow(value.ptr(), &overflow);
    if (overflow != 0)
        throw Error(automation::Overflow, "An int of more than 64 bits is no automation value.");
    if (number == -1 && PyErr_Occurred() != nullptr) throw py::error_already_set();
    if (std::in_range<std::int32_t>(number)) return static_cast<std::int32_t>(number);
    return static_cast<std::int64_t>(number);
}

Variant FromFloat(double number) {
    if (!std::isfinite(number))
        throw Error(automation::Overflow, "A float that is not finite is no automation value.");
    return number;
}

std::string FromText(py::handle value) {
    Py_ssize_t size = 0;
    if (const char* text = PyUnicode_AsUTF8AndSize(value.ptr(), &size))
        return {text, static_cast<std::size_t>(size)};
    PyErr_Clear();
    throw Error(automation::InvalidProcedureCall,
                "A str with a lone surrogate is no text: " + py::repr(value).cast<std::string>());
}

Variant FromDecimal(py::handle value) {
    if (!value.attr("is_finite")().cast<bool>())
        throw Error(automation::Overflow, "A Decimal that is not finite is no automation value.");
    const auto text = value.attr("__format__")("f").cast<std::string>();
    const auto point = text.find('.');
    const auto last = text.find_last_not_of('0');
    if (point != std::string::npos && last > point + 4)
        throw Error(automation::TypeMismatch,
                    "A Decimal is an amount with at most four decimals; " + text + " has more.");
    return automation::ToCurrency(text);
}

Variant FromDate(py::handle value) {
    using namespace std::chrono;
    PyObject* const date = value.ptr();
    const sys_days day = year(PyDateTime_GET_YEAR(date)) /
                         month(static_cast<unsigned>(PyDateTime_GET_MONTH(date))) /
                         std::chrono::day(static_cast<unsigned>(PyDateTime_GET_DAY(date)));
    if (PyDateTime_GET_YEAR(date) < 100)
        throw Error(automation::Overflow, "Automation dates begin with the year 100.");
    if (!PyDateTime_Check(date)) return automation::FromMoment(day);
    if (!value.attr("tzinfo").is_none())
        throw Error(automation::TypeMismatch,
                    "A datetime with a time zone is no automation date; convert it to the time that is to be "
                    "stored and take the zone off: value.replace(tzinfo=None).");
    const int microseconds = PyDateTime_DATE_GET_MICROSECOND(date);
    if (microseconds % 1000 != 0)
        throw Error(automation::TypeMismatch,
                    "Dates are stored to the millisecond, this datetime has parts of one: "
                    "value.replace(microsecond=value.microsecond // 1000 * 1000).");
    return automation::FromMoment(
        day + hours(PyDateTime_DATE_GET_HOUR(date)) + minutes(PyDateTime_DATE_GET_MINUTE(date)) +
        seconds(PyDateTime_DATE_GET_SECOND(date)) + milliseconds(microseconds / 1000));
}

py::object ToDateTime(automation::Date date) {
    using namespace std::chrono;
    ImportDateTime();
    const automation::Moment moment = automation::ToMoment(date);
    const auto midnight = floor<days>(moment);
    const year_month_day day{midnight};
    const hh_mm_ss clock{moment - midnight};
    PyObject* const result = PyDateTime_FromDateAndTime(
        static_cast<int>(day.year()), static_cast<int>(static_cast<unsigned>(day.month())),
        static_cast<int>(static_cast<unsigned>(day.day())), static_cast<int>(clock.hours().count()),
        static_cast<int>(clock.minutes().count()), static_cast<int>(clock.seconds().count()),
        static_cast<int>(clock.subseconds().count()) * 1000);
    if (result == nullptr) throw py::error_already_set();
    return py::reinterpret_steal<py::object>(result);
}

py::object ToDecimal(automation::Currency amount) {
    // Made of text it has all its digits, whatever precision the host computes with.
    return py::module_::import("decimal").attr("Decimal")(std::to_string(amount.units) + "E-4");
}

Variant FromBytes(py::handle value) {
    const auto bytes = py::reinterpret_steal<py::bytes>(PyBytes_FromObject(value.ptr()));
    if (!bytes) throw py::error_already_set();
    const auto view = static_cast<std::string_view>(bytes);
    return automation::Bytes(view.begin(), view.end());
}

/// Objects of classes written in Python; anything else that is no value is one of Python's own.
bool IsOfPythonClass(py::handle value) {
    return PyType_HasFeature(Py_TYPE(value.ptr()), Py_TPFLAGS_HEAPTYPE) && PyType_Check(value.ptr()) == 0;
}

Variant FromObject(py::handle value, VarType expected) {
    PyObject* const object = value.ptr();
    if (PyObject_TypeCheck(object, reinterpret_cast<PyTypeObject*>(LibraryObjects().type.ptr())))
        return value.attr("_handle").cast<const Handle&>().Object();
    if (py::hasattr(value, "__fspath__"))
        return ToVariant(py::reinterpret_steal<py::object>(PyOS_FSPath(object)), expected);
    if (PyIndex_Check(object)) {
        const auto number = py::reinterpret_steal<py::object>(PyNumber_Index(object));
        if (!number) throw py::error_already_set();
        return FromInt(number);
    }
    if (!IsOfPythonClass(value)) Refuse(value, "is no value that the library takes");
    return automation::ObjectRef(std::make_shared<PythonObject>(py::reinterpret_borrow<py::object>(value)));
}

py::object ToObject(const automation::ObjectRef& object) {
    if (object == nullptr) return py::none();
    if (const auto* python = dynamic_cast<const PythonObject*>(object.get())) return python->Self();
    return LibraryObjects().wrap(Handle(object));
}

struct Conversion {
    py::object operator()(automation::EmptyValue) const { return py::none(); }
    py::object operator()(automation::NullValue) const { return py::none(); }
    py::object operator()(automation::MissingValue) const { return py::ellipsis(); }
    py::object operator()(automation::Currency amount) const { return ToDecimal(amount); }
    py::object operator()(automation::Date date) const { return ToDateTime(date); }
    py::object operator()(const automation::Bytes& data) const {
        return py::bytes(reinterpret_cast<const char*>(data.data()), data.size());
    }
    py::object operator()(const automation::ObjectRef& object) const { return ToObject(object); }
    py::object operator()(const std::string& text) const { return py::cast(text); }
    py::object operator()(auto plain) const { return py::cast(plain); }
};

}  // namespace

Variant ToVariant(py::handle value, VarType expected) {
    PyObject* const object = value.ptr();
    if (value.is_none())
        return expected == VarType::Object ? Variant(automation::ObjectRef()) : Variant::Null();
    if (object == Py_Ellipsis) return Variant::Missing();
    if (PyBool_Check(object)) return object == Py_True;
    if (PyLong_Check(object)) return FromInt(value);
    if (PyFloat_Check(object)) return FromFloat(PyFloat_AsDouble(object));
    if (PyUnicode_Check(object)) return FromText(value);
    if (PyBytes_Check(object) || PyByteArray_Check(object) || PyMemoryView_Check(object))
        return FromBytes(value);
    ImportDateTime();
    if (PyDate_Check(object)) return FromDate(value);
    if (py::isinstance(value, py::module_::import("decimal").attr("Decimal"))) return FromDecimal(value);
    return FromObject(value, expected);
}

py::object ToPython(const Variant& value) { return std::visit(Conversion(), value.Value()); }

py::tuple ToPython(const std::vector<Variant>& values) {
    py::tuple row(values.size());
    for (std::size_t i = 0; i < values.size(); ++i)
        row[i] = ToPython(values[i]);
    return row;
}

py::str ReadableText(std::string_view text) {
    PyObject* const result =
        PyUnicode_DecodeUTF8(text.data(), static_cast<Py_ssize_t>(text.size()), "replace");
    if (result == nullptr) throw py::error_already_set();
    return py::reinterpret_steal<py::str>(result);
}

void UseObjectClass(py::object objectClass, py::object wrap) {
    LibraryObjects() = {std::move(objectClass), std::move(wrap)};
}

}  // namespace korvex::python
