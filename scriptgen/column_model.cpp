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
using repository::ForEachRow;
using repository::InterfaceId;
using repository::ObjectId;
using repository::ReadValue;
using repository::ToId;
using repository::ValueId;

namespace questions = repository::questions;

namespace {

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
        column.FieldName = automation::Trim(ReadValue(fieldName, ToString, what));
        column.DataType = ReadValue(dataType, ToLong, what);
        column.IsAutoNumber = ReadValue(isAutoNumber, ToBoolean, what);
        column.DefaultVal = automation::Trim(ReadValue(defaultVal, ToString, what));
        column.MaxLength = automation::Trim(ReadValue(maxLength, ToString, what));
        if (column.MaxLength.empty()) column.MaxLength = "0";
        AddColumn(columns, std::move(column));
    }
    rows->Close();
    return true;
}

void MarkPrimaryKey(Columns& columns, DefinitionRows& source, ObjectId lObjectID, const std::string& table) {
    const std::string what = "the primary key of " + table;
    ForEachRow(source.Ask(questions::PrimaryKey, lObjectID), [&](dao::Recordset& key) {
        const auto valueID = ReadValue(key.Fields("ValueID"), ToId<ValueId>, what);
        const std::int16_t nSeq = ReadValue(key.Fields("Seq"), ToInteger, what);
        for (Column& column : columns) {
            if (column.ValueID != valueID) continue;
            column.IsPrimaryKey = true;
            column.nPrimaryKeySeq = nSeq;
        }
    });
}

void MarkForeignKeys(Columns& columns, DefinitionRows& source, ObjectId lObjectID, const std::string& table) {
    const repository::KeyParents& parents = source.ScriptedParents();
    const std::string what = "a foreign key of " + table;
    ForEachRow(source.ForeignKeys(lObjectID), [&](dao::Recordset& key) {
        const std::string fieldName = ReadValue(key.Fields("FieldName"), ToString, what);
        const auto objectID = ReadValue(key.Fields("FKObjectID"), ToId<ObjectId>, what);
        const auto valueID = ReadValue(key.Fields("FKValueID"), ToId<ValueId>, what);
        for (Column& column : columns) {
            if (column.FieldName != fieldName) continue;
            // The rows of parents that share the column come in no particular order.
            const auto parent = parents.find(column.ValueID);
            if (parent != parents.end() && parent->second != objectID) continue;
            column.IsForeignKey = true;
            column.FKObjectID = objectID;
            column.FKValueID = valueID;
        }
    });
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
    MarkPrimaryKey(columns, rows, lObjectID, what);
    MarkForeignKeys(columns, rows, lObjectID, what);
    AddStateFields(columns, rows.Ask(questions::SingleObject, lObjectID), repository::SelectStateColumn,
                   repository::CounterColumn);
    AddStateFields(columns, rows.Ask(questions::CollectionObject, lObjectID), repository::SelectedItemColumn,
                   repository::CounterHolderColumn);
    return columns;
}

}  // namespace korvex::scriptgen
