#include "scriptgen/column_model.h"

#include "automation/convert.h"
#include "automation/text.h"
#include "automation/variant.h"
#include "repository/lookups.h"
#include "repository/names.h"
#include "repository/read_value.h"
#include "scriptgen/column_text.h"

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
using repository::DefinitionRows;
using repository::InterfaceId;
using repository::ObjectId;
using repository::ReadValue;
using repository::ToId;
using repository::ValueId;

namespace questions = repository::questions;

namespace {

struct PrimaryKeyValue {
    ValueId ValueID = {};
    std::int16_t Seq = 0;
};

struct ForeignKeyField {
    std::string FieldName;
    ObjectId FKObjectID = {};
    ValueId FKValueID = {};
};

std::string Trimmed(std::string text) {
    const std::string_view trimmed = automation::Trim(text);
    return trimmed.size() == text.size() ? std::move(text) : std::string(trimmed);
}

using Columns = std::vector<Column>;

void AddColumn(Columns& columns, Column column) {
    column.FKObjectID = ObjectId{-1};
    column.FKValueID = ValueId{-1};
    columns.push_back(std::move(column));
}

/// Adds the stored values of one interface; `table` names the table. False when the repository could not be
/// asked.
bool AddInterfaceFields(Columns& columns, DefinitionRows& source, InterfaceId lInterfaceID,
                        const std::string& table) {
    const auto rows = source.Ask(questions::StoredValues, lInterfaceID);
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
        column.ValueID = ReadValue(valueID, ToId<ValueId>, what);
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

std::vector<PrimaryKeyValue> GetPrimaryKeyValues(DefinitionRows& source, ObjectId lObjectID,
                                                 const std::string& table) {
    std::vector<PrimaryKeyValue> values;
    const auto rows = source.Ask(questions::PrimaryKey, lObjectID);
    if (rows == nullptr) return values;
    const std::string what = "the primary key of " + table;
    for (; !rows->Eof(); rows->MoveNext()) {
        values.push_back({.ValueID = ReadValue(rows->Fields("ValueID"), ToId<ValueId>, what),
                          .Seq = ReadValue(rows->Fields("Seq"), ToInteger, what)});
    }
    rows->Close();
    return values;
}

std::vector<ForeignKeyField> GetForeignKeyFields(DefinitionRows& source, ObjectId lObjectID,
                                                 const std::string& table) {
    std::vector<ForeignKeyField> fields;
    const auto rows = source.ForeignKeys(lObjectID);
    if (rows == nullptr) return fields;
    const std::string what = "a foreign key of " + table;
    for (; !rows->Eof(); rows->MoveNext()) {
        fields.push_back({.FieldName = ReadValue(rows->Fields("FieldName"), ToString, what),
                          .FKObjectID = ReadValue(rows->Fields("FKObjectID"), ToId<ObjectId>, what),
                          .FKValueID = ReadValue(rows->Fields("FKValueID"), ToId<ValueId>, what)});
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

/// Adds the two whole-number columns of an object's kind when the object is found to be of it.
void AddStateFields(Columns& columns, DefinitionRows::Rows object, std::string_view first,
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

}  // namespace

std::vector<Column> BuildTableFields(DefinitionRows& rows, ObjectId lObjectID, std::string_view table) {
    const std::string what = "table " + std::string(table);
    Columns columns;
    for (const InterfaceId lInterfaceID : repository::GetObjectInterfaces(rows, lObjectID)) {
        if (!AddInterfaceFields(columns, rows, lInterfaceID, what)) return columns;
    }
    MarkPrimaryKey(columns, GetPrimaryKeyValues(rows, lObjectID, what));
    MarkForeignKeys(columns, GetForeignKeyFields(rows, lObjectID, what), rows.ScriptedParents());
    AddStateFields(columns, rows.Ask(questions::SingleObject, lObjectID), repository::SelectStateColumn,
                   repository::CounterColumn);
    AddStateFields(columns, rows.Ask(questions::CollectionObject, lObjectID), repository::SelectedItemColumn,
                   repository::CounterHolderColumn);
    return columns;
}

}  // namespace korvex::scriptgen
