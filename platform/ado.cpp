#include "platform/ado.h"

#include "automation/convert.h"
#include "automation/error.h"

#include <limits>
#include <span>
#include <utility>

namespace korvex::ado {

namespace {

using automation::ClassInfo;
using automation::InvokeKind;
using automation::Member;
using automation::Object;
using automation::ObjectRef;
using automation::Parameter;
using automation::Passing;
using automation::Variant;
using automation::VarType;
using Arguments = std::span<Variant>;

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

template <class T>
T& As(Object& self) {
    return static_cast<T&>(self);
}

// ---- Field

Variant GetValue(Object& self, Arguments) { return As<Field>(self).Value(); }

Variant LetValue(Object& self, Arguments arguments) {
    As<Field>(self).Value(arguments[0]);
    return {};
}

constexpr Parameter LengthParameter[] = {{"Length", VarType::Long}};
constexpr Parameter DataParameter[] = {{"Data", VarType::Variant}};
constexpr Parameter ValueParameter[] = {{"Value", VarType::Variant}};

constexpr Member FieldMembers[] = {
    {"Name",
     InvokeKind::PropertyGet,
     {},
     VarType::String,
     [](Object& self, Arguments) -> Variant { return As<Field>(self).Name(); }},
    {"Value", InvokeKind::PropertyGet, {}, VarType::Variant, GetValue},
    {"Value", InvokeKind::PropertyLet, ValueParameter, VarType::Void, LetValue},
    {"Type",
     InvokeKind::PropertyGet,
     {},
     VarType::Long,
     [](Object& self, Arguments) -> Variant { return As<Field>(self).Type(); }},
    {"DefinedSize",
     InvokeKind::PropertyGet,
     {},
     VarType::Long,
     [](Object& self, Arguments) -> Variant { return As<Field>(self).DefinedSize(); }},
    {"ActualSize",
     InvokeKind::PropertyGet,
     {},
     VarType::Long,
     [](Object& self, Arguments) -> Variant { return As<Field>(self).ActualSize(); }},
    {"Attributes",
     InvokeKind::PropertyGet,
     {},
     VarType::Long,
     [](Object& self, Arguments) -> Variant { return As<Field>(self).Attributes(); }},
    {"GetChunk", InvokeKind::Method, LengthParameter, VarType::Variant,
     [](Object& self, Arguments arguments) {
         return As<Field>(self).GetChunk(automation::ToLong(arguments[0]));
     }},
    {"AppendChunk", InvokeKind::Method, DataParameter, VarType::Void,
     [](Object& self, Arguments arguments) -> Variant {
         As<Field>(self).AppendChunk(arguments[0]);
         return {};
     }},
};
constexpr ClassInfo FieldClass{"Field", {}, FieldMembers, "Value"};

// ---- Fields

Variant GetItem(Object& self, Arguments arguments) {
    return FieldAt(As<FieldCollection>(self).Owner(), arguments[0]);
}

Variant LetItem(Object& self, Arguments arguments) {
    FieldAt(As<FieldCollection>(self).Owner(), arguments[0])->Value(arguments[1]);
    return {};
}

constexpr Parameter IndexParameter[] = {{"Index", VarType::Variant}};
constexpr Parameter OptionalIndexParameter[] = {{"Index", VarType::Variant, Passing::ByValue, true}};
constexpr Parameter IndexAndValueParameters[] = {{"Index", VarType::Variant}, {"Value", VarType::Variant}};

constexpr Member FieldCollectionMembers[] = {
    {"Count",
     InvokeKind::PropertyGet,
     {},
     VarType::Long,
     [](Object& self, Arguments) -> Variant { return As<FieldCollection>(self).Owner().FieldCount(); }},
    {"Item", InvokeKind::PropertyGet, IndexParameter, VarType::Object, GetItem, {}, "ADODB.Field"},
    {"Item", InvokeKind::PropertyLet, IndexAndValueParameters, VarType::Void, LetItem},
};
constexpr ClassInfo FieldCollectionClass{"Fields", {}, FieldCollectionMembers, "Item"};

// ---- Recordset

/// `rs.Fields` is the collection; with an index, as `rs.Fields("Name")` arrives, it is the field itself.
Variant GetFields(Object& self, Arguments arguments) {
    if (!arguments[0].IsMissing()) return FieldAt(As<Recordset>(self), arguments[0]);
    auto recordset = std::static_pointer_cast<Recordset>(self.shared_from_this());
    return std::make_shared<FieldCollection>(std::move(recordset));
}

/// `rs.Fields("Name") = value`: the assignment reaches the field's value.
Variant LetFields(Object& self, Arguments arguments) {
    FieldAt(As<Recordset>(self), arguments[0])->Value(arguments[1]);
    return {};
}

Variant OpenRecordset(Object& self, Arguments arguments) {
    const auto connection = arguments[1].IsObject()
                                ? std::dynamic_pointer_cast<Connection>(*arguments[1].If<ObjectRef>())
                                : nullptr;
    if (!connection) {
        throw automation::Error(adErrInvalidArgument,
                                "Recordset.Open needs a Connection object as its ActiveConnection.");
    }
    As<Recordset>(self).Open(automation::ToString(arguments[0]), connection,
                             LongOr(arguments[2], adUnspecified), LongOr(arguments[3], adUnspecified),
                             LongOr(arguments[4], adUnspecified));
    return {};
}

constexpr Parameter TypeParameter[] = {{"Type", VarType::Long}};
constexpr Parameter RecordsetOpenParameters[] = {
    {"Source", VarType::Variant},
    {"ActiveConnection", VarType::Variant},
    {"CursorType", VarType::Variant, Passing::ByValue, true},
    {"LockType", VarType::Variant, Passing::ByValue, true},
    {"Options", VarType::Variant, Passing::ByValue, true},
};

template <void (Recordset::*Action)()>
Variant Do(Object& self, Arguments) {
    (As<Recordset>(self).*Action)();
    return {};
}

constexpr Member RecordsetMembers[] = {
    {"CursorType",
     InvokeKind::PropertyGet,
     {},
     VarType::Long,
     [](Object& self, Arguments) -> Variant { return As<Recordset>(self).CursorType(); }},
    {"CursorType", InvokeKind::PropertyLet, TypeParameter, VarType::Void,
     [](Object& self, Arguments arguments) -> Variant {
         As<Recordset>(self).CursorType(automation::ToLong(arguments[0]));
         return {};
     }},
    {"LockType",
     InvokeKind::PropertyGet,
     {},
     VarType::Long,
     [](Object& self, Arguments) -> Variant { return As<Recordset>(self).LockType(); }},
    {"LockType", InvokeKind::PropertyLet, TypeParameter, VarType::Void,
     [](Object& self, Arguments arguments) -> Variant {
         As<Recordset>(self).LockType(automation::ToLong(arguments[0]));
         return {};
     }},
    {"State",
     InvokeKind::PropertyGet,
     {},
     VarType::Long,
     [](Object& self, Arguments) -> Variant { return As<Recordset>(self).State(); }},
    {"Open", InvokeKind::Method, RecordsetOpenParameters, VarType::Void, OpenRecordset},
    {"EOF",
     InvokeKind::PropertyGet,
     {},
     VarType::Boolean,
     [](Object& self, Arguments) -> Variant { return As<Recordset>(self).Eof(); }},
    {"MoveNext", InvokeKind::Method, {}, VarType::Void, Do<&Recordset::MoveNext>},
    {"AddNew", InvokeKind::Method, {}, VarType::Void, Do<&Recordset::AddNew>},
    {"Update", InvokeKind::Method, {}, VarType::Void, Do<&Recordset::Update>},
    {"CancelUpdate", InvokeKind::Method, {}, VarType::Void, Do<&Recordset::CancelUpdate>},
    {"Close", InvokeKind::Method, {}, VarType::Void, Do<&Recordset::Close>},
    {"Fields", InvokeKind::PropertyGet, OptionalIndexParameter, VarType::Object, GetFields},
    {"Fields", InvokeKind::PropertyLet, IndexAndValueParameters, VarType::Void, LetFields},
};
constexpr ClassInfo RecordsetClass{"Recordset", {}, RecordsetMembers, "Fields"};

// ---- Connection

Variant OpenConnection(Object& self, Arguments arguments) {
    As<Connection>(self).Open(*arguments[0].If<std::string>(), *arguments[1].If<std::string>(),
                              *arguments[2].If<std::string>(), LongOr(arguments[3], adUnspecified));
    return {};
}

Variant Execute(Object& self, Arguments arguments) {
    std::int32_t affected = 0;
    auto recordset = As<Connection>(self).Execute(*arguments[0].If<std::string>(),
                                                  LongOr(arguments[2], adUnspecified), &affected);
    arguments[1] = affected;
    return recordset;
}

template <void (Connection::*Action)()>
Variant Do(Object& self, Arguments) {
    (As<Connection>(self).*Action)();
    return {};
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
    {"Open", InvokeKind::Method, ConnectionOpenParameters, VarType::Void, OpenConnection},
    {"Close", InvokeKind::Method, {}, VarType::Void, Do<&Connection::Close>},
    {"Execute", InvokeKind::Method, ExecuteParameters, VarType::Object, Execute, {}, "ADODB.Recordset"},
    {"State",
     InvokeKind::PropertyGet,
     {},
     VarType::Long,
     [](Object& self, Arguments) -> Variant { return As<Connection>(self).State(); }},
    {"BeginTrans",
     InvokeKind::Method,
     {},
     VarType::Long,
     [](Object& self, Arguments) -> Variant { return As<Connection>(self).BeginTrans(); }},
    {"CommitTrans", InvokeKind::Method, {}, VarType::Void, Do<&Connection::CommitTrans>},
    {"RollbackTrans", InvokeKind::Method, {}, VarType::Void, Do<&Connection::RollbackTrans>},
};
constexpr ClassInfo ConnectionClass{"Connection", {}, ConnectionMembers};

const ClassInfo& FieldCollection::Class() const noexcept { return FieldCollectionClass; }

}  // namespace

const ClassInfo& Field::Class() const noexcept { return FieldClass; }
const ClassInfo& Recordset::Class() const noexcept { return RecordsetClass; }
const ClassInfo& Connection::Class() const noexcept { return ConnectionClass; }

}  // namespace korvex::ado
