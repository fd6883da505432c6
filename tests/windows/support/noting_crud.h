#pragma once

#include "persistence/plain_object.h"
#include "support/call_note.h"
#include "surface/cls_crud.h"

#include <memory>
#include <string>

namespace korvex::tests {

/// A persistence class that notes the public members that are called, and does nothing else.
class NotingCrud final : public clsCRUD, public CallNote {
  public:
    using Text = const std::string&;
    using Any = const automation::Variant&;
    using Ref = const QORObject::Ref&;

    dbResults LastResult() override { return Noted(dbObjectNotModified, "LastResult"); }
    std::string FKPrefix() override { return Answer("FKPrefix"); }
    void FKPrefix(Text value) override { Note("FKPrefix", value); }
    std::shared_ptr<ado::Connection> DbConn() override { return Noted(nullptr, "DbConn"); }
    void DbConn(const std::shared_ptr<ado::Connection>& given) override { Note("DbConn", given); }
    bool ConnectDB(Any text, Any prefix) override { return Noted(true, "ConnectDB", text, prefix); }
    automation::Variant DisconnectDB() override { return Noted("disconnected", "DisconnectDB"); }
    bool DbDataExists(Ref data, Any key) override { return Noted(true, "DbDataExists", data, key); }
    bool DbGetField(Any key, Text keyField, Text table, Text field, automation::Variant& value) override {
        Note("DbGetField", key, keyField, table, field, value);
        value = "found";
        return true;
    }
    bool DbSaveField(Any key, Text keyField, Text table, Text field, Any value) override {
        return Noted(true, "DbSaveField", key, keyField, table, field, value);
    }
    std::int32_t DbGetData(Ref data, Any key, Text keyField) override {
        return Noted(11, "DbGetData", data, key, keyField);
    }
    std::int32_t DbSaveData(Ref data) override { return Noted(12, "DbSaveData", data); }
    std::int32_t DbUpdateData(Ref data, Any key, Text keyField) override {
        return Noted(13, "DbUpdateData", data, key, keyField);
    }
    std::int32_t DbUpdateDataRetainRoot(Ref data, Any key) override {
        return Noted(14, "DbUpdateDataRetainRoot", data, key);
    }
    std::int32_t DbDeleteData(Ref data, Any key, Text keyField) override {
        return Noted(15, "DbDeleteData", data, key, keyField);
    }
    std::string GetTableName(Ref definition) override { return Answer("GetTableName", definition); }
    std::string GetPrimaryKeyFieldName(Ref definition) override {
        return Answer("GetPrimaryKeyFieldName", definition);
    }
    std::string GetForeignKeyFieldName(Ref definition) override {
        return Answer("GetForeignKeyFieldName", definition);
    }
    std::shared_ptr<ado::Recordset> OpenRecordset(Text sql) override {
        return Noted(nullptr, "OpenRecordset", sql);
    }
};

/// A data object of the library's own side that notes what is asked of it.
class NotingDataObject final : public persistence::PlainObject, public CallNote {
  public:
    using Id = std::int32_t;
    using Variant = automation::Variant;

    Ref Parent() override { return Noted(Self(), "Parent"); }
    bool Modified() override { return Noted(true, "Modified"); }
    void Modified(bool value) override { Note("Modified", value); }
    std::string StringAttribute(Id id) override { return Noted("text", "StringAttribute", id); }
    std::int32_t LongAttribute(Id id) override { return Noted(70000, "LongAttribute", id); }
    void LongAttribute(Id id, std::int32_t value) override { Note("LongAttribute", id, value); }
    bool BooleanAttribute(Id id) override { return Noted(true, "BooleanAttribute", id); }
    std::int16_t IntegerAttribute(Id id) override { return Noted(std::int16_t{-5}, "IntegerAttribute", id); }
    void IntegerAttribute(Id id, std::int16_t value) override { Note("IntegerAttribute", id, value); }
    Variant Value(std::int32_t index) override { return Noted(2.5, "Value", index); }
    void Value(std::int32_t index, const Variant& value) override { Note("Value", index, value); }
    Variant NamedValue(std::string_view name) override { return Noted("named", "NamedValue", name); }
    Ref ObjectAttribute(Id id) override { return Noted(Self(), "ObjectAttribute", id); }
    void DataDef(const Ref& definition) override { Note("DataDef", definition); }
    Ref DataDef() override { return Noted(Self(), "DataDef"); }
    Ref AddItem(const Variant& first, const Variant& second) override {
        return Noted(Self(), "AddItem", first, second);
    }
    bool HasAttribute(Id id) override { return Noted(true, "HasAttribute", id); }
    std::int32_t ValueIndex(std::string_view fieldName) override { return Noted(3, "ValueIndex", fieldName); }

  private:
    Ref Self() { return std::static_pointer_cast<QORObject>(shared_from_this()); }
};

}  // namespace korvex::tests
