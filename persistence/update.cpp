#include "automation/convert.h"
#include "persistence/definition_walk.h"
#include "persistence/record_lookup.h"
#include "persistence/record_members.h"
#include "persistence/remove.h"
#include "persistence/save.h"
#include "persistence/update_tree.h"

namespace korvex::persistence {

using automation::Variant;

namespace {

/// The key that stands in a column of the object; Null for none, as a key below 1 is none.
Variant KeyInObject(QORObject& coData, const std::string& column) {
    const std::int32_t key = ToKey(ColumnValue(coData, column));
    return key < 1 ? Variant::Null() : Variant(key);
}

/// The root's record, open; and the place where it stands.
struct RootRecord {
    RecordPlace place;
    RecordsetRef records;
    std::int32_t key = 0;
};

/// Finds the root's record by `lKey`, or by the key in the object when that is missing. A record without a
/// usable key has nothing beneath it that could be found, so it counts as missing its key.
std::optional<RootRecord> OpenRoot(CrudState& session, QORObject& coData, const QORObject::Ref& definition,
                                   const Variant& lKey, const std::string& sKeyFieldName) {
    auto place = FindKeyColumn(session, definition, sKeyFieldName);
    if (!place) return std::nullopt;
    if (place->ownKey.empty()) {
        session.Fail(dbPrimaryKeyFieldNameMissing);
        return std::nullopt;
    }
    const Variant key = lKey.IsMissing() ? KeyInObject(coData, place->keyColumn) : lKey;
    if (!CheckKey(session, key) || !FindTable(session, definition, *place)) return std::nullopt;
    RootRecord root{*place, OpenExisting(session, SelectRecord(*place, key))};
    if (root.records == nullptr) return std::nullopt;
    root.key = KeyOfRecord(*root.records, place->ownKey);
    if (root.key > 0) return root;
    session.Fail(dbPrimaryKeyMissing);
    return std::nullopt;
}

/// The link of a root to its parent: the key that the object carries. An object that carries the key of its
/// record, and so was loaded or saved, has no parent any more when it carries 0 or Null.
ParentLink LinkOfRoot(CrudState& session, QORObject& coData, const QORObject::Ref& definition,
                      const RootRecord& root) {
    ParentLink link{session.Members().GetForeignKeyFieldName(definition)};
    if (link.column.empty()) return link;
    const Variant carried = ColumnValue(coData, link.column);
    const std::int32_t key = ToKey(carried);
    if (key > 0)
        link.value = key;
    else if (!carried.IsEmpty() && ToKey(ColumnValue(coData, root.place.ownKey)) == root.key)
        link.value = Variant::Null();
    return link;
}

/// The end of an update: nothing may have been passed over since `before`.
std::int32_t Finish(CrudState& session, const QORObject::Ref& coData, std::int32_t key,
                    const StepCounts& before) {
    const StepCounts& now = session.Counts();
    const bool allOpened = now.failedOpens == before.failedOpens;
    if (!allOpened || now.passedOver != before.passedOver) {
        session.Fail(allOpened ? dbNoMatchingRecord : dbCannotOpenRecordset);
        return 0;
    }
    ClearModified(session, coData);
    session.ResetLastResult();
    return key;
}

/// Brings a root up to date: what differs in its record and beneath it or, where all columns are asked for,
/// the whole record, what is beneath it being saved anew. The record is written before anything beneath it is
/// deleted: when the database refuses the values, all is as it was.
std::int32_t UpdateRoot(CrudState& session, const QORObject::Ref& coData, const Variant& lKey,
                        const std::string& sKeyFieldName, Columns columns) {
    const Descent descent(session, true);
    const StepCounts before = session.Counts();
    const auto definition = DefinitionOf(coData);
    const auto root = OpenRoot(session, *coData, definition, lKey, sKeyFieldName);
    if (!root) return 0;
    if (columns == Columns::Modified && !TreeModified(session, coData)) {
        root->records->Close();
        session.Fail(dbObjectNotModified);
        return root->key;
    }
    const ParentLink link = LinkOfRoot(session, *coData, definition, *root);
    const std::string& ownKey = root->place.ownKey;
    const auto stored = UpdateRecord(session, coData, root->records, ownKey, link, columns);
    if (columns == Columns::Modified) {
        UpdateBeneath(session, coData, stored);
    } else {
        DeleteBeneath(session, coData, ownKey, root->key);
        if (session.Counts().failedOpens == before.failedOpens)
            SaveBeneath(session, *coData, definition, root->key, ownKey);
    }
    return Finish(session, coData, root->key, before);
}

}  // namespace

std::int32_t DbUpdateData(CrudState& session, const QORObject::Ref& coData, const Variant& lKey,
                          const std::string& sKeyFieldName) {
    session.ResetLastResult();
    if (!CheckConnected(session)) return 0;
    return UpdateRoot(session, coData, lKey, sKeyFieldName, Columns::Modified);
}

std::int32_t DbUpdateDataRetainRoot(CrudState& session, const QORObject::Ref& coData, const Variant& lKey) {
    session.ResetLastResult();
    if (!CheckConnected(session) || !CheckKey(session, lKey)) return 0;
    return UpdateRoot(session, coData, lKey, {}, Columns::All);
}

}  // namespace korvex::persistence
