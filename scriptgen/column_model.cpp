#include "scriptgen/column_model.h"

#include "automation/convert.h"
#include "automation/text.h"
#include "automation/variant.h"
#include "repository/lookups.h"
#include "repository/names.h"
#include "repository/read_value.h"
#include "scriptgen/column_text.h"
#include "scriptgen/script_text.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvex::scriptgen {

using automation::ToBoolean;
using automation::ToInteger;
using automation::ToLong;
using automation::ToString;
using repository::ReadValue;
using repository::Repository;

namespace {

struct PrimaryKeyValue {
    std::int32_t ValueID = 0;
    std::int16_t Seq = 0;
};

struct ForeignKeyField {
    std::string FieldName;
    std::int32_t FKObjectID = 0;
    std::int32_t FKValueID = 0;
};

/// Opens the statement followed by the identifier; nullptr when it failed.
std::unique_ptr<dao::Recordset> OpenFor(Repository& repository, std::string_view sql, std::int32_t id) {
    std::string text;
    Append(text, sql, std::to_string(id));
    return repository.OpenSnapshot(text);
}

std::string Trimmed(std::string text) {
    const std::string_view trimmed = automation::Trim(text);
    return trimmed.size() == text.size() ? std::move(text) : std::string(trimmed);
}

using Columns = std::vector<Column>;

void AddColumn(Columns& columns, Column column) {
    column.FKObjectID = -1;
    column.FKValueID = -1;
    columns.push_back(std::move(column));
}

/// Adds the stored values of one interface; `table` names the table. False when the repository could not be
/// asked.
bool AddInterfaceFields(Columns& columns, Repository& repository, std::int32_t lInterfaceID,
                        const std::string& table) {
    const auto rows = OpenFor(repository,
                              "SELECT ValueID, MaxLength, DataType, FieldName, IsAutoNumber, DefaultVal "
                              "FROM tValues where ChildObjectID = 0 and FieldName is not null "
                              "and IsIncluded <> 0  and DataType <> 13  and InterfaceID = ",
                              lInterfaceID);
    if (rows == nullptr) return false;
    dao::Field& valueID = rows->Fields("ValueID");
    dao::Field& fieldName = rows->Fields("FieldName");
    dao::Field& dataType = rows->Fields("DataType");
    dao::Field& isAutoNumber = rows->Fields("IsAutoNumber");
    dao::Field& defaultVal = rows->Fields("DefaultVal");
    dao::Field& maxLength = rows->Fields("MaxLength");
    const auto what = [&] { return repository::DescribeRow("tValues", *rows) + ", " + table; };
    for (; !rows->Eof(); rows->MoveNext()) {
        Column column;
        column.ValueID = ReadValue(valueID, ToLong, what);
        column.FieldName = Trimmed(ReadValue(fieldName, ToString, what));
        column.DataType = ReadValue(dataType, ToLong, what);
        column.IsAutoNumber = ReadValue(isAutoNumber, ToBoolean, what);
        column.DefaultVal = Trimmed(ReadValue(defaultVal, ToString, what));
        column.MaxLength = Trimmed(ReadValue(maxLength, ToString, what));
        if (column.MaxLength.empty()) column.MaxLength = "0";
        AddColumn(columns, std::move(column));
    }
    rows->Close();
    return true;
}

std::vector<PrimaryKeyValue> GetPrimaryKeyValues(Repository& repository, std::int32_t lObjectID,
                                                 const std::string& table) {
    std::vector<PrimaryKeyValue> values;
    const auto rows =
        OpenFor(repository, "SELECT ValueID, Seq from tPrimaryKeys where ObjectID = ", lObjectID);
    if (rows == nullptr) return values;
    const std::string what = "the primary key of " + table;
    for (; !rows->Eof(); rows->MoveNext()) {
        values.push_back({.ValueID = ReadValue(rows->Fields("ValueID"), ToLong, what),
                          .Seq = ReadValue(rows->Fields("Seq"), ToInteger, what)});
    }
    rows->Close();
    return values;
}

std::vector<ForeignKeyField> GetForeignKeyFields(Repository& repository, std::int32_t lObjectID,
                                                 const std::string& table) {
    std::vector<ForeignKeyField> fields;
    const auto rows = OpenFor(repository,
                              "SELECT tValues.FieldName, tForeignKeys.FKObjectID, tForeignKeys.FKValueID "
                              "FROM tObjects INNER JOIN "
                              "(tForeignKeys INNER JOIN tValues ON tForeignKeys.ValueID = tValues.ValueID) "
                              "ON tObjects.ObjectID = tForeignKeys.ObjectID "
                              "where tObjects.ObjectID =",
                              lObjectID);
    if (rows == nullptr) return fields;
    const std::string what = "a foreign key of " + table;
    for (; !rows->Eof(); rows->MoveNext()) {
        fields.push_back({.FieldName = ReadValue(rows->Fields("FieldName"), ToString, what),
                          .FKObjectID = ReadValue(rows->Fields("FKObjectID"), ToLong, what),
                          .FKValueID = ReadValue(rows->Fields("FKValueID"), ToLong, what)});
    }
    rows->Close();
    return fields;
}

void MarkPrimaryKey(Columns& columns, const std::vector<PrimaryKeyValue>& keys) {
    for (const PrimaryKeyValue& key : keys) {
        for (Column& column : columns) {
            if (column.ValueID != key.ValueID) continue;
            column.IsPrimaryKey = true;
            column.nPrimaryKeySeq = key.Seq;
        }
    }
}

void MarkForeignKeys(Columns& columns, const std::vector<ForeignKeyField>& keys,
                     const repository::KeyParents& parents) {
    for (const ForeignKeyField& key : keys) {
        for (Column& column : columns) {
            if (column.FieldName != key.FieldName) continue;
            // The rows of parents that share the column come in no particular order.
            const auto parent = parents.find(column.ValueID);
            if (parent != parents.end() && parent->second != key.FKObjectID) continue;
            column.IsForeignKey = true;
            column.FKObjectID = key.FKObjectID;
            column.FKValueID = key.FKValueID;
        }
    }
}

/// Adds the two whole-number columns of an object's kind when the statement finds the object to be of it.
void AddStateFields(Columns& columns, std::unique_ptr<dao::Recordset> object, std::string_view first,
                    std::string_view second) {
    if (object == nullptr || object->Eof()) return;
    object->Close();
    for (const std::string_view name : {first, second}) {
        Column column;
        column.FieldName = name;
        column.DataType = TypeCode(automation::VarType::Long);
        column.MaxLength = "0";
        AddColumn(columns, std::move(column));
    }
}

void AddTopLevelFields(Columns& columns, Repository& repository, std::int32_t lObjectID) {
    AddStateFields(columns,
                   OpenFor(repository,
                           "SELECT Name from tObjects where CollectionObjectID = 0 "
                           " and IsIncluded <> 0 and TableName  is not null and ObjectID =",
                           lObjectID),
                   repository::SelectStateColumn, repository::CounterColumn);
}

void AddCollectionItemFields(Columns& columns, Repository& repository, std::int32_t lObjectID) {
    AddStateFields(columns,
                   OpenFor(repository,
                           "SELECT Name from tObjects where CollectionObjectID <> 0 "
                           " and IsIncluded <> 0 and TableName  is not null and ObjectID =",
                           lObjectID),
                   repository::SelectedItemColumn, repository::CounterHolderColumn);
}

}  // namespace

std::vector<Column> BuildTableFields(Repository& repository, std::int32_t lObjectID, std::string_view table) {
    const std::string what = "table " + std::string(table);
    Columns columns;
    for (const std::int32_t lInterfaceID : repository::GetObjectInterfaces(repository, lObjectID)) {
        if (!AddInterfaceFields(columns, repository, lInterfaceID, what)) return columns;
    }
    MarkPrimaryKey(columns, GetPrimaryKeyValues(repository, lObjectID, what));
    MarkForeignKeys(columns, GetForeignKeyFields(repository, lObjectID, what), repository.ScriptedParents());
    AddTopLevelFields(columns, repository, lObjectID);
    AddCollectionItemFields(columns, repository, lObjectID);
    return columns;
}

}  // namespace korvex::scriptgen
