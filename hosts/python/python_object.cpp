#include "hosts/python/python_object.h"

#include "automation/convert.h"
#include "hosts/python/values.h"

#include <utility>

namespace korvex::python {

using automation::InvokeKind;
using automation::Variant;

namespace {

/// A reference whose last holder may not have the interpreter.
void Release(py::object& object) {
    const py::gil_scoped_acquire interpreter;
    object = py::object();
}

class Iteration final : public automation::Enumerator {
  public:
    explicit Iteration(py::object iterator) : m_iterator(std::move(iterator)) {}
    ~Iteration() override { Release(m_iterator); }

    std::optional<Variant> Next() override {
        const py::gil_scoped_acquire interpreter;
        const auto item = py::reinterpret_steal<py::object>(PyIter_Next(m_iterator.ptr()));
        if (item) return ToVariant(item);
        if (PyErr_Occurred() != nullptr) throw py::error_already_set();
        return std::nullopt;
    }

  private:
    py::object m_iterator;
};

/// None, where a text, number or truth value is asked for, is the blank one.
Variant OrBlank(Variant value) { return value.IsNull() ? Variant() : std::move(value); }

QORObject::Ref AsDataObject(const Variant& value) {
    return value.IsNull() ? nullptr : automation::ObjectAs<QORObject>(value);
}

}  // namespace

PythonObject::~PythonObject() { Release(m_object); }

bool PythonObject::Has(const char* name) const {
    const py::gil_scoped_acquire interpreter;
    return py::hasattr(m_object, name);
}

Variant PythonObject::Get(std::string_view name) {
    const py::gil_scoped_acquire interpreter;
    return ToVariant(m_object.attr(Text(name)));
}

void PythonObject::Set(std::string_view name, const Variant& value) {
    const py::gil_scoped_acquire interpreter;
    m_object.attr(Text(name)) = ToPython(value);
}

template <class... Arguments>
Variant PythonObject::Ask(std::string_view name, const Arguments&... arguments) {
    const py::gil_scoped_acquire interpreter;
    return ToVariant(m_object.attr(Text(name))(ToPython(Variant(arguments))...));
}

QORObject::Ref PythonObject::Parent() { return AsDataObject(Get("Parent")); }
bool PythonObject::Modified() { return automation::ToBoolean(OrBlank(Get("Modified"))); }
void PythonObject::Modified(bool value) { Set("Modified", value); }
std::string PythonObject::StringAttribute(std::int32_t id) {
    return automation::ToString(OrBlank(Ask("StringAttribute", id)));
}
std::int32_t PythonObject::LongAttribute(std::int32_t id) {
    return automation::ToLong(OrBlank(Ask("LongAttribute", id)));
}
void PythonObject::LongAttribute(std::int32_t id, std::int32_t value) { Ask("SetLongAttribute", id, value); }
bool PythonObject::BooleanAttribute(std::int32_t id) {
    return automation::ToBoolean(OrBlank(Ask("BooleanAttribute", id)));
}
std::int16_t PythonObject::IntegerAttribute(std::int32_t id) {
    return automation::ToInteger(OrBlank(Ask("IntegerAttribute", id)));
}
void PythonObject::IntegerAttribute(std::int32_t id, std::int16_t value) {
    Ask("SetIntegerAttribute", id, value);
}
Variant PythonObject::Value(std::int32_t index) { return Ask("Value", index); }
void PythonObject::Value(std::int32_t index, const Variant& value) { Ask("SetValue", index, value); }
Variant PythonObject::NamedValue(std::string_view name) { return Ask("NamedValue", name); }
QORObject::Ref PythonObject::ObjectAttribute(std::int32_t id) {
    return AsDataObject(Ask("ObjectAttribute", id));
}
void PythonObject::DataDef(const Ref& definition) { Set("DataDef", definition); }
QORObject::Ref PythonObject::DataDef() { return AsDataObject(Get("DataDef")); }
QORObject::Ref PythonObject::AddItem(const Variant& first, const Variant& second) {
    if (first.IsMissing() && second.IsMissing()) return AsDataObject(Ask("AddItem"));
    return AsDataObject(Ask("AddItem", first, second));
}
bool PythonObject::HasAttribute(std::int32_t id) {
    return automation::ToBoolean(OrBlank(Ask("HasAttribute", id)));
}
std::int32_t PythonObject::ValueIndex(std::string_view fieldName) {
    return automation::ToLong(OrBlank(Ask("ValueIndex", fieldName)));
}

bool PythonObject::ListModified() {
    return Has("ListModified") ? automation::ToBoolean(OrBlank(Get("ListModified"))) : Modified();
}

bool PythonObject::IsOptionalLink() {
    return Has("IsOptionalLink") && automation::ToBoolean(OrBlank(Get("IsOptionalLink")));
}

Variant PythonObject::Invoke(std::string_view name, InvokeKind kind, std::span<Variant> arguments) {
    const py::gil_scoped_acquire interpreter;
    py::list values;
    for (const Variant& argument : arguments)
        values.append(ToPython(argument));
    const bool isAssignment = kind == InvokeKind::PropertyLet || kind == InvokeKind::PropertySet;
    if (isAssignment && arguments.size() == 1) {
        m_object.attr(Text(name)) = values[0];
        return {};
    }
    const py::object member = m_object.attr(Text((isAssignment ? "Set" : "") + std::string(name)));
    const bool isCalled = !arguments.empty() || PyCallable_Check(member.ptr()) != 0;
    return ToVariant(isCalled ? member(*values) : member);
}

std::unique_ptr<automation::Enumerator> PythonObject::NewEnum() {
    const py::gil_scoped_acquire interpreter;
    return std::make_unique<Iteration>(py::iter(m_object));
}

}  // namespace korvex::python
