#include "tests/windows/engines/dao_recordset_objects.h"

#include "automation/convert.h"

#include <string>
#include <utility>

namespace korvex::test {

namespace {

using automation::ClassInfo;
using automation::InvokeKind;
using automation::Member;
using automation::Object;
using automation::Parameter;
using automation::Variant;
using automation::VarType;
using Arguments = std::span<Variant>;

template <class T>
T& As(Object& self) {
    return static_cast<T&>(self);
}

class RecordsetObject final : public automation::TableObject {
  public:
    RecordsetObject(std::unique_ptr<dao::Recordset> rows, automation::ObjectRef database)
        : m_database(std::move(database)), m_rows(std::move(rows)) {}
    const ClassInfo& Class() const noexcept override;

    dao::Recordset& Rows() const noexcept { return *m_rows; }

  private:
    automation::ObjectRef m_database;
    std::unique_ptr<dao::Recordset> m_rows;
};

class FieldObject final : public automation::TableObject {
  public:
    FieldObject(std::shared_ptr<RecordsetObject> owner, dao::Field& field)
        : m_owner(std::move(owner)), m_field(field) {}
    const ClassInfo& Class() const noexcept override;

    dao::Field& Engine() const noexcept { return m_field; }

  private:
    std::shared_ptr<RecordsetObject> m_owner;
    dao::Field& m_field;
};

class FieldsObject final : public automation::TableObject {
  public:
    explicit FieldsObject(std::shared_ptr<RecordsetObject> owner) : m_owner(std::move(owner)) {}
    const ClassInfo& Class() const noexcept override;

    std::shared_ptr<FieldObject> Item(std::string_view name) const {
        return std::make_shared<FieldObject>(m_owner, m_owner->Rows().Fields(name));
    }

  private:
    std::shared_ptr<RecordsetObject> m_owner;
};

// ---- Field

constexpr Parameter NewValue[] = {{"Value", VarType::Variant}};

constexpr Member FieldMembers[] = {
    {"Name",
     InvokeKind::PropertyGet,
     {},
     VarType::String,
     [](Object& self, Arguments) -> Variant { return As<FieldObject>(self).Engine().Name(); }},
    {"Value",
     InvokeKind::PropertyGet,
     {},
     VarType::Variant,
     [](Object& self, Arguments) { return As<FieldObject>(self).Engine().Value(); }},
    {"Value", InvokeKind::PropertyLet, NewValue, VarType::Void,
     [](Object& self, Arguments arguments) -> Variant {
         As<FieldObject>(self).Engine().Value(arguments[0]);
         return {};
     }},
};
constexpr ClassInfo FieldClass{"Field", {}, FieldMembers, "Value"};

// ---- Fields

constexpr Parameter ItemParameter[] = {{"Item", VarType::String}};

constexpr Member FieldsMembers[] = {
    {"Item", InvokeKind::PropertyGet, ItemParameter, VarType::Object,
     [](Object& self, Arguments arguments) -> Variant {
         return As<FieldsObject>(self).Item(*arguments[0].If<std::string>());
     }},
};
constexpr ClassInfo FieldsClass{"Fields", {}, FieldsMembers, "Item"};

// ---- Recordset

template <void (dao::Recordset::*Action)()>
constexpr Member Method(std::string_view name) {
    return {.name = name, .parameters = {}, .call = [](Object& self, Arguments) -> Variant {
                (As<RecordsetObject>(self).Rows().*Action)();
                return {};
            }};
}

constexpr Member RecordsetMembers[] = {
    {"EOF",
     InvokeKind::PropertyGet,
     {},
     VarType::Boolean,
     [](Object& self, Arguments) -> Variant { return As<RecordsetObject>(self).Rows().Eof(); }},
    {"Fields",
     InvokeKind::PropertyGet,
     {},
     VarType::Object,
     [](Object& self, Arguments) -> Variant {
         return std::make_shared<FieldsObject>(
             std::static_pointer_cast<RecordsetObject>(self.shared_from_this()));
     }},
    Method<&dao::Recordset::MoveNext>("MoveNext"),
    Method<&dao::Recordset::MoveLast>("MoveLast"),
    Method<&dao::Recordset::AddNew>("AddNew"),
    Method<&dao::Recordset::Edit>("Edit"),
    Method<&dao::Recordset::Update>("Update"),
    Method<&dao::Recordset::Close>("Close"),
};
constexpr ClassInfo RecordsetClass{"Recordset", {}, RecordsetMembers, "Fields"};

const ClassInfo& FieldObject::Class() const noexcept { return FieldClass; }
const ClassInfo& FieldsObject::Class() const noexcept { return FieldsClass; }
const ClassInfo& RecordsetObject::Class() const noexcept { return RecordsetClass; }

}  // namespace

std::shared_ptr<automation::TableObject> WrapRecordset(std::unique_ptr<dao::Recordset> rows,
                                                       automation::ObjectRef database) {
    return std::make_shared<RecordsetObject>(std::move(rows), std::move(database));
}

}  // namespace korvex::test
