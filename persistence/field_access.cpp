#include "automation/error.h"
#include "persistence/record_lookup.h"
#include "persistence/record_members.h"

namespace korvex::persistence {

using automation::Variant;

namespace {

/// Runs `action` and answers whether it raised no error; the error is passed over.
template <class Action>
bool Succeeds(CrudState& session, Action&& action) {
    try {
        action();
        return true;
    } catch (const automation::Error& error) {
        session.Trap(error);
        return false;
    }
}

/// The records with that key; nullptr and a code when a name is missing or the statement does not open. The
/// field's name stands in no statement: one that names no column is an unknown column, whatever it holds.
RecordsetRef OpenFieldRecords(CrudState& session, const Variant& lKey, const std::string& sKeyFieldName,
                              const std::string& sTableName, const std::string& sFieldName) {
    session.ResetLastResult();
    if (!CheckConnected(session)) return nullptr;
    if (sKeyFieldName.empty() || sTableName.empty() || sFieldName.empty()) {
        session.Fail(dbBadParameter);
        return nullptr;
    }
    return OpenRecords(session, SelectWhere(sTableName, sKeyFieldName, lKey, KeyClause::Spaced));
}

bool CheckRecord(CrudState& session, ado::Recordset& records) {
    return !records.Eof() || session.Fail(dbNoMatchingRecord);
}

}  // namespace

bool DbGetField(CrudState& session, const Variant& lKey, const std::string& sKeyFieldName,
                const std::string& sTableName, const std::string& sFieldName, Variant& vntFieldValue) {
    const auto records = OpenFieldRecords(session, lKey, sKeyFieldName, sTableName, sFieldName);
    if (records == nullptr) return false;
    const bool read = CheckRecord(session, *records) &&
                      Succeeds(session, [&] { vntFieldValue = records->Fields(sFieldName)->Value(); });
    records->Close();
    return read;
}

bool DbSaveField(CrudState& session, const Variant& lKey, const std::string& sKeyFieldName,
                 const std::string& sTableName, const std::string& sFieldName, const Variant& vntFieldValue) {
    const auto records = OpenFieldRecords(session, lKey, sKeyFieldName, sTableName, sFieldName);
    if (records == nullptr) return false;
    const bool written = CheckRecord(session, *records) &&
                         Succeeds(session, [&] { records->Fields(sFieldName)->Value(vntFieldValue); });
    if (written) Succeeds(session, [&] { records->Update(); });
    Succeeds(session, [&] { records->Close(); });
    return written;
}

}  // namespace korvex::persistence
