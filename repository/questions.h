#pragma once

#include "repository/catalog.h"

#include <cstdint>
#include <string_view>

namespace korvex::repository {

/// A question about the rows of one table that belong to an identifier: the statement that a database is
/// sent, and the condition that rows in memory meet.
template <class Row, RowId Id>
struct Question {
    std::string_view sql;                     ///< the identifier follows
    bool (*takes)(const Row& row) = nullptr;  ///< all rows when there is none
    bool isEdited = false;                    ///< the rows can be edited or added to
    std::string_view end = {};                ///< of the statement, behind the identifier
};

using ObjectQuestion = Question<ObjectRow, ObjectId>;    ///< about one object
using ValuesQuestion = Question<ValueRow, InterfaceId>;  ///< about the values of an interface
using ValueQuestion = Question<ValueRow, ValueId>;       ///< about one value
using KeyQuestion = Question<PrimaryKeyRow, ObjectId>;   ///< about the primary key of an object

namespace questions {

// ---- Asked by a walk.

/// ChildObjectID of the values of an interface that hold an object.
inline constexpr ValuesQuestion Children{
    .sql = "SELECT ChildObjectID FROM tValues WHERE ChildObjectID > 0 and InterfaceID = ",
    .takes = [](const ValueRow& value) { return IsRow(value.ChildObjectID); }};

// ---- Asked for the description of a table.

/// CollectionObjectID and TableName of an object that takes part in the scripts. The word touches the number
/// in this statement; the engines' layer knows that.
inline constexpr ObjectQuestion ScriptedObject{
    .sql =
        "SELECT CollectionObjectID, TableName from tObjects where IsIncluded <> 0"
        "and TableName is not null and ObjectID = ",
    .takes = [](const ObjectRow& object) { return object.IsIncluded && object.TableName.has_value(); }};
/// ValueID, MaxLength, DataType, FieldName, IsAutoNumber and DefaultVal of the stored values.
inline constexpr ValuesQuestion StoredValues{
    .sql =
        "SELECT ValueID, MaxLength, DataType, FieldName, IsAutoNumber, DefaultVal "
        "FROM tValues where ChildObjectID = 0 and FieldName is not null "
        "and IsIncluded <> 0  and DataType <> 13  and InterfaceID = ",
    .takes = [](const ValueRow& value) {
        return value.IsPlain && value.FieldName && value.IsIncluded && value.DataType != TypeNoColumn;
    }};
/// ValueID and Seq of the primary key.
inline constexpr KeyQuestion PrimaryKey{"SELECT ValueID, Seq from tPrimaryKeys where ObjectID = "};
/// A row when the object is scripted and holds no collection.
inline constexpr ObjectQuestion SingleObject{
    .sql =
        "SELECT Name from tObjects where CollectionObjectID = 0 "
        " and IsIncluded <> 0 and TableName  is not null and ObjectID =",
    .takes = [](const ObjectRow& object) {
        return ScriptedObject.takes(object) && object.HasKind && object.CollectionObjectID == NoObject;
    }};
/// A row when the object is scripted and holds a collection.
inline constexpr ObjectQuestion CollectionObject{
    .sql =
        "SELECT Name from tObjects where CollectionObjectID <> 0 "
        " and IsIncluded <> 0 and TableName  is not null and ObjectID =",
    .takes = [](const ObjectRow& object) {
        return ScriptedObject.takes(object) && object.CollectionObjectID != NoObject;
    }};
inline constexpr ObjectQuestion TableName{"select TableName from tObjects where ObjectID= "};
inline constexpr ValueQuestion FieldName{"select FieldName from tValues where ValueID= "};

// ---- Asked by the relationship builder.

inline constexpr ObjectQuestion Object{.sql = "SELECT * FROM tObjects WHERE ObjectID = ", .isEdited = true};
/// The values of an interface that become columns.
inline constexpr ValuesQuestion PlainValues{
    .sql = "select * from tValues where InterfaceID=",
    .takes =
        [](const ValueRow& value) {
            return value.IsPlain && value.DataType != TypeNoColumn && value.DataType != 1;
        },
    .isEdited = true,
    .end = " and ChildObjectID = 0 and DataType <> 13  and DataType <> 1"};
inline constexpr KeyQuestion PrimaryKeyRows{.sql = "select * from tPrimaryKeys where ObjectID = ",
                                            .isEdited = true};
inline constexpr ValueQuestion Value{.sql = "select * from tValues where ValueID = ", .isEdited = true};
inline constexpr ValuesQuestion Numbers{"select VID from tValues where InterfaceID = "};
inline constexpr ObjectQuestion ElementObject{"select CollectionObjectID from tObjects where ObjectID = "};

}  // namespace questions

}  // namespace korvex::repository
