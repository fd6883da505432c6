#include "platform/ado.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/member_rows.h"
#include "automation/text.h"

#include <utility>

namespace korvex::ado {

namespace {

using automation::ClassInfo;
using automation::GetRow;
using automation::LetRow;
using automation::Member;
using automation::MethodRow;
using automation::ObjectRef;
using automation::Parameter;
using automation::Passing;
using automation::Taking;
using automation::Variant;
using automation::VarType;

std::int32_t LongOr(const Variant& argument, std::int32_t fallback) {
    return argument.IsMissing() ? fallback : automation::ToLong(argument);
}

std::shared_ptr<Field> FieldAt(Recordset& recordset, const Variant& index) {
    if (index.IsString()) return recordset.Fields(*index.If<std::string>());
    return recordset.Fields(automation::ToLong(index));
}

class FieldEnumerator final : public automation::Enumerator {
  public:
    explicit FieldEnumerator(std::shared_ptr<Recordset> recordset) : m_recordset(std::move(recordset)) {}

    std::optional<Variant> Next() override {
        if (m_next >= m_recordset->FieldCount()) return std::nullopt;
        return Variant(m_recordset->Fields(m_next++));
    }

  private:
    std::shared_ptr<Recordset> m_recordset;
    std::int32_t m_next = 0;
};

/// ADO's Fields collection, late bound only: C++ callers ask the recordset itself.
class FieldCollection final : public automation::TableObject {
  public:
    explicit FieldCollection(std::shared_ptr<Recordset> recordset) : m_recordset(std::move(recordset)) {}

    const ClassInfo& Class() const noexcept override;
    std::unique_ptr<automation::Enumerator> NewEnum() override {
        return std::make_unique<FieldEnumerator>(m_recordset);
    }

    Recordset& Owner() noexcept { return *m_recordset; }

  private:
    std::shared_ptr<Recordset> m_recordset;
};

// ---- Field

constexpr Parameter LengthParameter[] = {{"Length", VarType::Long}};
constexpr Parameter DataParameter[] = {{"Data", VarType::Variant}};
constexpr Parameter ValueParameter[] = {{"Value", VarType::Variant}};

constexpr Member FieldMembers[] = {
    GetRow<&Field::Name>("Name", {.description = "Name of the column."}),
    GetRow<Taking<>(&Field::Value)>("Value", {.description = "The column's value in the current record."}),
    LetRow<Taking<const Variant&>(&Field::Value)>(
        "Value", {.parameters = ValueParameter, .description = "The column's value in the current record."}),
    GetRow<&Field::Type>("Type", {.description = "Type of the column, as ADO's DataTypeEnum numbers it."}),
    GetRow<&Field::DefinedSize>(
        "DefinedSize",
        {.description = "Declared size of the column: in characters for text, else in bytes."}),
    GetRow<&Field::ActualSize>(
        "ActualSize", {.description = "Size of the current value: in characters for text, else in bytes."}),
    GetRow<&Field::Attributes>("Attributes", {.description = "ADO's FieldAttributeEnum bits of the column."}),
    MethodRow<&Field::GetChunk>(
        "GetChunk", {.parameters = LengthParameter,
                     .description = "The next characters or bytes of a long value; Null at its end."}),
    MethodRow<&Field::AppendChunk>(
        "AppendChunk", {.parameters = DataParameter,
                        .description = "Extends a long value; the first call on a record replaces it."}),
};
constexpr ClassInfo FieldClass{"Field", "One column of the current record of a recordset.", FieldMembers,
                               "Value"};

// ---- Fields

std::int32_t CountItems(FieldCollection& self) { return self.Owner().FieldCount(); }

std::shared_ptr<Field> GetItem(FieldCollection& self, const Variant& index) {
    return FieldAt(self.Owner(), index);
}

void LetItem(FieldCollection& self, const Variant& index, const Variant& value) {
    FieldAt(self.Owner(), index)->Value(value);
}

constexpr Parameter IndexParameter[] = {{"Index", VarType::Variant}};
constexpr Parameter OptionalIndexParameter[] = {{"Index", VarType::Variant, Passing::ByValue, true}};
constexpr Parameter IndexAndValueParameters[] = {{"Index", VarType::Variant}, {"Value", VarType::Variant}};

constexpr Member FieldCollectionMembers[] = {
    GetRow<CountItems>("Count", {.description = "Number of fields."}),
    GetRow<GetItem>("Item", {.parameters = IndexParameter,
                             .description = "The field of a name, or at a position counted from 0.",
                             .resultTypeName = "ADODB.Field"}),
    LetRow<LetItem>("Item",
                    {.parameters = IndexAndValueParameters, .description = "Sets the value of a field."}),
};
constexpr ClassInfo FieldCollectionClass{"Fields", "The columns of a recordset.", FieldCollectionMembers,
                                         "Item"};

// ---- Recordset

/// `rs.Fields` is the collection; with an index, as `rs.Fields("Name")` arrives, it is the field itself.
ObjectRef GetFields(Recordset& self, const Variant& index) {
    if (!index.IsMissing()) return FieldAt(self, index);
    auto recordset = std::static_pointer_cast<Recordset>(self.shared_from_this());
    return std::make_shared<FieldCollection>(std::move(recordset));
}

/// `rs.Fields("Name") = value`: the assignment reaches the field's value.
void LetFields(Recordset& self, const Variant& index, const Variant& value) {
    FieldAt(self, index)->Value(value);
}

void OpenRecordset(Recordset& self, const Variant& source, const Variant& activeConnection,
                   const Variant& cursorType, const Variant& lockType, const Variant& options) {
    const auto connection = activeConnection.IsObject()
                                ? std::dynamic_pointer_cast<Connection>(*activeConnection.If<ObjectRef>())
                                : nullptr;
    if (!connection) {
        throw automation::Error(adErrInvalidArgument,
                                "Recordset.Open needs a Connection object as its ActiveConnection.");
    }
    self.Open(automation::ToString(source), connection, LongOr(cursorType, adUnspecified),
              LongOr(lockType, adUnspecified), LongOr(options, adUnspecified));
}

constexpr Parameter TypeParameter[] = {{"Type", VarType::Long}};
constexpr Parameter RecordsetOpenParameters[] = {
    {"Source", VarType::Variant},
    {"ActiveConnection", VarType::Variant},
    {"CursorType", VarType::Variant, Passing::ByValue, true},
    {"LockType", VarType::Variant, Passing::ByValue, true},
    {"Options", VarType::Variant, Passing::ByValue, true},
};

constexpr Member RecordsetMembers[] = {
    GetRow<Taking<>(&Recordset::CursorType)>(
        "CursorType", {.description = "Kind of cursor, as ADO's CursorTypeEnum numbers it."}),
    LetRow<Taking<std::int32_t>(&Recordset::CursorType)>(
        "CursorType",
        {.parameters = TypeParameter, .description = "Kind of cursor, as ADO's CursorTypeEnum numbers it."}),
    GetRow<Taking<>(&Recordset::LockType)>(
        "LockType", {.description = "Kind of locking, as ADO's LockTypeEnum numbers it."}),
    LetRow<Taking<std::int32_t>(&Recordset::LockType)>(
        "LockType",
        {.parameters = TypeParameter, .description = "Kind of locking, as ADO's LockTypeEnum numbers it."}),
    GetRow<&Recordset::State>("State", {.description = "1 while the recordset is open, else 0."}),
    MethodRow<OpenRecordset>(
        "Open", {.parameters = RecordsetOpenParameters,
                 .description = "Runs a statement on an open connection and stands on its first record."}),
    GetRow<&Recordset::Eof>("EOF", {.description = "Whether the last record was passed."}),
    MethodRow<&Recordset::MoveNext>("MoveNext", {.description = "Goes to the next record."}),
    MethodRow<&Recordset::AddNew>("AddNew", {.description = "Starts a new record; Update writes it."}),
    MethodRow<&Recordset::Update>("Update",
                                  {.description = "Writes what was changed in the current record."}),
    MethodRow<&Recordset::CancelUpdate>("CancelUpdate",
                                        {.description = "Drops what was changed and not written yet."}),
    MethodRow<&Recordset::Close>("Close", {.description = "Closes the recordset."}),
    GetRow<GetFields>(
        "Fields",
        {.parameters = OptionalIndexParameter,
         .description = "The fields of the current record; with a name or a position, that field."}),
    LetRow<LetFields>("Fields",
                      {.parameters = IndexAndValueParameters, .description = "Sets the value of a field."}),
};
constexpr ClassInfo RecordsetClass{"Recordset", "Records that a statement gives, in the shape of ADO.",
                                   RecordsetMembers, "Fields"};

// ---- Connection

void OpenConnection(Connection& self, const std::string& connectionString, const std::string& user,
                    const std::string& password, const Variant& options) {
    self.Open(connectionString, user, password, LongOr(options, adUnspecified));
}

std::shared_ptr<Recordset> Execute(Connection& self, const std::string& text, Variant& recordsAffected,
                                   const Variant& options) {
    std::int32_t affected = 0;
    auto recordset = self.Execute(text, LongOr(options, adUnspecified), &affected);
    recordsAffected = affected;
    return recordset;
}

constexpr Parameter ConnectionOpenParameters[] = {
    {"ConnectionString", VarType::String},
    {"UserID", VarType::String, Passing::ByValue, true},
    {"Password", VarType::String, Passing::ByValue, true},
    {"Options", VarType::Variant, Passing::ByValue, true},
};
constexpr Parameter ExecuteParameters[] = {
    {"CommandText", VarType::String},
    {"RecordsAffected", VarType::Variant, Passing::ByReference, true},
    {"Options", VarType::Variant, Passing::ByValue, true},
};

constexpr Member ConnectionMembers[] = {
    MethodRow<OpenConnection>("Open",
                              {.parameters = ConnectionOpenParameters, .description = "Opens a database."}),
    MethodRow<&Connection::Close>(
        "Close", {.description = "Closes the connection, which must not have an open transaction."}),
    MethodRow<Execute>(
        "Execute",
        {.parameters = ExecuteParameters,
         .description = "Runs a statement; gives its recordset and the number of records that it changed.",
         .resultTypeName = "ADODB.Recordset"}),
    GetRow<&Connection::State>("State", {.description = "1 while the connection is open, else 0."}),
    MethodRow<&Connection::BeginTrans>(
        "BeginTrans", {.description = "Starts a transaction and answers its nesting level."}),
    MethodRow<&Connection::CommitTrans>("CommitTrans",
                                        {.description = "Keeps what was done since BeginTrans."}),
    MethodRow<&Connection::RollbackTrans>("RollbackTrans",
                                          {.description = "Undoes what was done since BeginTrans."}),
};
constexpr ClassInfo ConnectionClass{"Connection", "A connection to a database, in the shape of ADO.",
                                    ConnectionMembers};

const ClassInfo& FieldCollection::Class() const noexcept { return FieldCollectionClass; }

}  // namespace

Variant Field::WholeValue() {
    const std::int32_t type = Type();
    if (type != adLongVarChar && type != adLongVarBinary) return Value();
    const std::int32_t size = ActualSize();
    return size < 1 ? Value() : GetChunk(size);
}

std::int32_t Recordset::FieldIndex(std::string_view name) {
    for (std::int32_t index = 0; index < FieldCount(); ++index)
        if (automation::EqualsIgnoreCase(Fields(index)->Name(), name)) return index;
    throw automation::Error(adErrItemNotFound,
                            "The recordset has no field " + automation::Quoted(name) + ".");
}

const ClassInfo& Field::Class() const noexcept { return FieldClass; }
const ClassInfo& Recordset::Class() const noexcept { return RecordsetClass; }
const ClassInfo& Connection::Class() const noexcept { return ConnectionClass; }

}  // namespace korvex::ado
