#include "tests/windows/engines/dao_recordset_objects.h"

#include "automation/member_rows.h"

#include <string>
#include <utility>

namespace korvex::test {

namespace {

using automation::ClassInfo;
using automation::GetRow;
using automation::LetRow;
using automation::Member;
using automation::MethodRow;
using automation::Parameter;
using automation::Taking;
using automation::Variant;
using automation::VarType;

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

    std::string_view Name() const { return m_field.Name(); }
    Variant Value() const { return m_field.Value(); }
    void Value(const Variant& value) const { m_field.Value(value); }

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
    GetRow<&FieldObject::Name>("Name"),
    GetRow<Taking<>(&FieldObject::Value)>("Value"),
    LetRow<Taking<const Variant&>(&FieldObject::Value)>("Value", {NewValue}),
};
constexpr ClassInfo FieldClass{"Field", {}, FieldMembers, "Value"};

// ---- Fields

constexpr Parameter ItemParameter[] = {{"Item", VarType::String}};

constexpr Member FieldsMembers[] = {GetRow<&FieldsObject::Item>("Item", {ItemParameter})};
constexpr ClassInfo FieldsClass{"Fields", {}, FieldsMembers, "Item"};

// ---- Recordset

bool Eof(RecordsetObject& self) { return self.Rows().Eof(); }

std::shared_ptr<FieldsObject> Fields(RecordsetObject& self) {
    return std::make_shared<FieldsObject>(std::static_pointer_cast<RecordsetObject>(self.shared_from_this()));
}

template <void (dao::Recordset::*action)()>
void Do(RecordsetObject& self) {
    (self.Rows().*action)();
}

constexpr Member RecordsetMembers[] = {
    GetRow<Eof>("EOF"),
    GetRow<Fields>("Fields"),
    MethodRow<Do<&dao::Recordset::MoveNext>>("MoveNext"),
    MethodRow<Do<&dao::Recordset::MoveLast>>("MoveLast"),
    MethodRow<Do<&dao::Recordset::AddNew>>("AddNew"),
    MethodRow<Do<&dao::Recordset::Edit>>("Edit"),
    MethodRow<Do<&dao::Recordset::Update>>("Update"),
    MethodRow<Do<&dao::Recordset::Close>>("Close"),
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
