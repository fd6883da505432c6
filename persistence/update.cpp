#include "persistence/update.h"

#include "automation/convert.h"
#include "persistence/definition_walk.h"
#include "persistence/record_lookup.h"
#include "persistence/remove.h"
#include "persistence/save.h"
#include "persistence/update_tree.h"

namespace korvex::persistence {

using automation::Variant;

namespace {

/// The key that stands in a column of the object; Null for none, as a key below 1 is none.
Variant KeyInObject(QORObject& coData, const std::string& column) {
    const std::int32_t key = OwnKey(coData, column);
    return key < 1 ? Variant::Null() : Variant(key);
}

/// The link of a root to its parent: the key that the object carries, where it carries one.
ParentLink LinkOfRoot(Session& session, QORObject& coData, const QORObject::Ref& definition) {
    ParentLink link{session.Members().GetForeignKeyFieldName(definition)};
    if (!link.column.empty()) {
        const std::int32_t key = OwnKey(coData, link.column);
        if (key > 0) link.value = key;
    }
    return link;
}

/// The root's record, open; and the place where it stands.
struct RootRecord {
    RecordPlace place;
    RecordsetRef records;
    std::int32_t key = 0;
};

/// Finds the root's record by `lKey`, or by the key in the object when that is missing. A record without a
/// usable key has nothing beneath it that could be found, so it counts as missing its key.
std::optional<RootRecord> OpenRoot(Session& session, QORObject& coData, const QORObject::Ref& definition,
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

/// The end of an update: nothing may have been passed over since `failedOpens`.
std::int32_t Finish(Session& session, const QORObject::Ref& coData, std::int32_t key,
                    std::size_t failedOpens) {
    if (session.FailedOpens() != failedOpens) {
        session.Fail(dbCannotOpenRecordset);
        return 0;
    }
    ClearModified(session, coData);
    session.ResetLastResult();
    return key;
}

}  // namespace

std::int32_t DbUpdateData(Session& session, const QORObject::Ref& coData, const Variant& lKey,
                          const std::string& sKeyFieldName) {
    session.ResetLastResult();
    if (!CheckConnected(session)) return 0;
    const Descent descent(session);
    const std::size_t failedOpens = session.FailedOpens();
    const auto definition = DefinitionOf(coData);
    auto root = OpenRoot(session, *coData, definition, lKey, sKeyFieldName);
    if (!root) return 0;
    if (!TreeModified(session, coData)) {
        root->records->Close();
        session.Fail(dbObjectNotModified);
        return root->key;
    }
    const ParentLink link = LinkOfRoot(session, *coData, definition);
    const auto stored =
        UpdateRecord(session, coData, root->records, root->place.ownKey, link, Columns::Modified);
    UpdateBeneath(session, coData, stored);
    return Finish(session, coData, root->key, failedOpens);
}

// The record is written before anything beneath it is deleted: when the database refuses the values, all is
// as it was.
std::int32_t DbUpdateDataRetainRoot(Session& session, const QORObject::Ref& coData, const Variant& lKey) {
    session.ResetLastResult();
    if (!CheckConnected(session) || !CheckKey(session, lKey)) return 0;
    const Descent descent(session);
    const std::size_t failedOpens = session.FailedOpens();
    const auto definition = DefinitionOf(coData);
    auto root = OpenRoot(session, *coData, definition, lKey, {});
    if (!root) return 0;
    const ParentLink link = LinkOfRoot(session, *coData, definition);
    const std::string& ownKey = root->place.ownKey;
    UpdateRecord(session, coData, root->records, ownKey, link, Columns::All);
    DeleteBeneath(session, coData, ownKey, root->key);
    if (session.FailedOpens() == failedOpens) SaveBeneath(session, *coData, definition, root->key, ownKey);
    return Finish(session, coData, root->key, failedOpens);
}

}  // namespace korvex::persistence
