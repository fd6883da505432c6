#include "automation/convert.h"
#include "automation/text.h"
#include "platform/windows/ado_objects.h"

namespace korvex::windows {

using automation::Variant;

std::int32_t AdoObject::GetLong(std::string_view name) const { return automation::ToLong(Get(name)); }

// ---- Field

std::string AdoField::Name() const { return automation::ToString(Get("Name")); }
Variant AdoField::Value() { return Get("Value"); }
void AdoField::Value(const Variant& value) { Let("Value", value); }
std::int32_t AdoField::Type() const { return GetLong("Type"); }
std::int32_t AdoField::DefinedSize() const { return GetLong("DefinedSize"); }
std::int32_t AdoField::ActualSize() { return GetLong("ActualSize"); }
std::int32_t AdoField::Attributes() const { return GetLong("Attributes"); }
Variant AdoField::GetChunk(std::int32_t length) { return Call("GetChunk", length); }
void AdoField::AppendChunk(const Variant& data) { Call("AppendChunk", data); }

// ---- Recordset

/// ADO's Fields collection.
class AdoRecordset::FieldList : public AdoObject {
  public:
    using AdoObject::AdoObject;

    Variant Item(const Variant& index) const { return Call("Item", index); }
    std::int32_t Count() const { return GetLong("Count"); }
};

AdoRecordset::FieldList AdoRecordset::FieldCollection() const {
    return FieldList(com::AsHost(Get("Fields")));
}

std::int32_t AdoRecordset::CursorType() const { return GetLong("CursorType"); }
void AdoRecordset::CursorType(std::int32_t type) { Let("CursorType", type); }
std::int32_t AdoRecordset::LockType() const { return GetLong("LockType"); }
void AdoRecordset::LockType(std::int32_t type) { Let("LockType", type); }
std::int32_t AdoRecordset::State() const { return GetLong("State"); }

void AdoRecordset::Open(std::string_view source, const std::shared_ptr<ado::Connection>& connection,
                        std::int32_t cursorType, std::int32_t lockType, std::int32_t options) {
    m_fields.clear();
    Call("Open", source, connection, cursorType, lockType, options);
}

bool AdoRecordset::Eof() { return automation::ToBoolean(Get("EOF")); }
void AdoRecordset::MoveNext() { Call("MoveNext"); }
void AdoRecordset::AddNew() { Call("AddNew"); }
void AdoRecordset::Update() { Call("Update"); }
void AdoRecordset::CancelUpdate() { Call("CancelUpdate"); }

void AdoRecordset::Close() {
    m_fields.clear();
    Call("Close");
}

std::shared_ptr<AdoField> AdoRecordset::FieldAt(const Variant& index) const {
    return std::make_shared<AdoField>(com::AsHost(FieldCollection().Item(index)));
}

std::shared_ptr<ado::Field> AdoRecordset::Fields(std::string_view name) {
    const std::string key = automation::ToUpperAscii(name);
    for (const auto& [known, field] : m_fields) {
        if (known == key) return field;
    }
    return m_fields.emplace_back(key, FieldAt(name)).second;
}

std::shared_ptr<ado::Field> AdoRecordset::Fields(std::int32_t index) { return FieldAt(index); }

std::int32_t AdoRecordset::FieldCount() const { return FieldCollection().Count(); }

}  // namespace korvex::windows
