#pragma once

#include "hosts/python/handle.h"
#include "persistence/qor_object.h"

namespace korvex::python {

/// An object of a Python class, called by name: a data object or a definition has the members of QORObject, a
/// language service has GetString. What needs arguments is a method, what does not an attribute; a property
/// with arguments that can be set has a second method, SetValue for Value. An exception raised in Python goes
/// through the library to the caller.
class PythonObject final : public QORObject {
  public:
    explicit PythonObject(py::object object) : m_object(std::move(object)) {}
    ~PythonObject() override;

    const py::object& Self() const noexcept { return m_object; }

    Ref Parent() override;
    bool Modified() override;
    void Modified(bool value) override;
    std::string StringAttribute(std::int32_t id) override;
    std::int32_t LongAttribute(std::int32_t id) override;
    void LongAttribute(std::int32_t id, std::int32_t value) override;
    bool BooleanAttribute(std::int32_t id) override;
    std::int16_t IntegerAttribute(std::int32_t id) override;
    void IntegerAttribute(std::int32_t id, std::int16_t value) override;
    automation::Variant Value(std::int32_t index) override;
    void Value(std::int32_t index, const automation::Variant& value) override;
    automation::Variant NamedValue(std::string_view name) override;
    Ref ObjectAttribute(std::int32_t id) override;
    void DataDef(const Ref& definition) override;
    Ref DataDef() override;
    Ref AddItem(const automation::Variant& first, const automation::Variant& second) override;
    bool HasAttribute(std::int32_t id) override;
    std::int32_t ValueIndex(std::string_view fieldName) override;

    /// An attribute ListModified, where the class has one; else Modified answers.
    bool ListModified() override;
    /// An attribute IsOptionalLink, where the class has one; else False.
    bool IsOptionalLink() override;

    automation::Variant Invoke(std::string_view name, automation::InvokeKind kind,
                               std::span<automation::Variant> arguments) override;
    /// What iter() of the object gives.
    std::unique_ptr<automation::Enumerator> NewEnum() override;

  private:
    bool Has(const char* name) const;
    automation::Variant Get(std::string_view name);
    void Set(std::string_view name, const automation::Variant& value);
    template <class... Arguments>
    automation::Variant Ask(std::string_view name, const Arguments&... arguments);

    py::object m_object;
};

}  // namespace korvex::python
