#include "persistence/remove.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/text.h"
#include "persistence/definition_walk.h"
#include "persistence/plain_object.h"
#include "persistence/record_lookup.h"
#include "persistence/record_members.h"

namespace korvex::persistence {

using automation::Variant;

namespace {

void ExpectTable(QORObject& valueDef, std::string_view name) {
    if (!valueDef.BooleanAttribute(attIsIncluded) || !valueDef.StringAttribute(attTableName).empty()) return;
    throw automation::Error(
        automation::InvalidProcedureCall,
        "The value definition of the child object " + automation::Quoted(name) +
            " names no table, so what is stored beneath it cannot be deleted. It must answer for "
            "the definition of the child object, or the host must supply working data objects.");
}

/// A working data object that only carries a definition: enough for a delete, which finds records by key and
/// asks the object for nothing but its definition and its children. It needs no class of the host. The value
/// definition of a child object serves as the child's definition.
class DefinitionCarrier final : public PlainObject {
  public:
    using PlainObject::DataDef;
    void DataDef(const Ref& definition) override { m_definition = definition; }
    Ref DataDef() override { return m_definition; }
    /// A carrier of the child's definition. MemberNotFound (438) for a name that is no child object;
    /// InvalidProcedureCall (5) for a stored child whose value definition names no table, as what is stored
    /// of it could not be found.
    Variant NamedValue(std::string_view name) override {
        std::shared_ptr<DefinitionCarrier> child;
        const auto values = m_definition != nullptr ? m_definition->ObjectAttribute(attValues) : nullptr;
        ForEach(values.get(), [&](const Ref& valueDef) {
            if (child != nullptr || !IsChild(*valueDef) || valueDef->StringAttribute(attName) != name) return;
            ExpectTable(*valueDef, name);
            child = std::make_shared<DefinitionCarrier>();
            child->DataDef(valueDef);
        });
        return child != nullptr ? Variant(child) : PlainObject::NamedValue(name);
    }

  private:
    Ref m_definition;
};

/// A working data object with that definition: one of the host's where it has one that takes it.
QORObject::Ref WorkingObject(CrudState& session, const QORObject::Ref& definition) {
    if (auto object = session.NewDataObject()) {
        try {
            object->DataDef(definition);
            if (object->DataDef() != nullptr) return object;
        } catch (const automation::Error&) {
            // The class of one maker need not take the definitions of another.
        }
    }
    auto carrier = std::make_shared<DefinitionCarrier>();
    carrier->DataDef(definition);
    return carrier;
}

}  // namespace

// The keys are gathered first, so that no recordset is open while the deletes run.
std::optional<std::vector<Variant>> ElementKeys(CrudState& session, const QORObject::Ref& elementDef,
                                                const std::string& ownKey, std::int32_t lPK) {
    const auto [records, keyColumn] = OpenElements(session, elementDef, ownKey, lPK);
    if (records == nullptr) return std::nullopt;
    if (keyColumn.empty()) {
        session.Fail(dbPrimaryKeyFieldNameMissing);
        return std::nullopt;
    }
    std::vector<Variant> keys;
    for (; !records->Eof(); records->MoveNext())
        keys.push_back(records->FieldValue(keyColumn));
    records->Close();
    return keys;
}

void DeleteElements(CrudState& session, const QORObject::Ref& elementDef, const std::vector<Variant>& keys) {
    if (keys.empty()) return;
    const auto working = WorkingObject(session, elementDef);
    for (const auto& key : keys)
        session.Members().DbDeleteData(working, key, {});
    working->DataDef(nullptr);
}

void DeleteBeneath(CrudState& session, const QORObject::Ref& coData, const std::string& ownKey,
                   std::int32_t lPK) {
    const auto definition = DefinitionOf(coData);
    const auto reading = session.Read(definition);
    ForEachChild(*coData, reading->childNames, [&](const QORObject::Ref& child) {
        session.Members().DbDeleteData(child, lPK, session.ForeignKeyColumn(ownKey));
    });
    if (!IsCollection(*definition)) return;
    const auto elementDef = ElementDefinitionOf(*definition);
    if (const auto keys = ElementKeys(session, elementDef, ownKey, lPK))
        DeleteElements(session, elementDef, *keys);
}

std::int32_t DbDeleteData(CrudState& session, const QORObject::Ref& coData, const Variant& lKey,
                          const std::string& sSelKey) {
    session.ResetLastResult();
    if (!CheckConnected(session) || !CheckKey(session, lKey)) return 0;
    const Descent descent(session);
    const auto place = FindPlace(session, DefinitionOf(coData), sSelKey);
    if (!place) return 0;
    auto records = OpenExisting(session, SelectRecord(*place, lKey));
    if (records == nullptr) return session.LastResult() == dbNoMatchingRecord ? automation::ToLong(lKey) : 0;
    const std::int32_t lPK = KeyOfRecord(*records, place->ownKey);
    if (lPK < 1) {
        session.Fail(dbPrimaryKeyMissing);
        return 0;
    }
    records->Close();
    records.reset();
    const std::size_t failedOpens = session.Counts().failedOpens;
    DeleteBeneath(session, coData, place->ownKey, lPK);
    if (session.IsUpdating() && session.Counts().failedOpens != failedOpens) return 0;
    session.Execute(DeleteWhere(place->table, place->keyColumn, lKey));
    return automation::ToLong(lKey);
}

}  // namespace korvex::persistence
