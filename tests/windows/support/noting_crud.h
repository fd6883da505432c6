#pragma once

#include "automation/error.h"
#include "persistence/plain_object.h"
#include "support/print_variant.h"
#include "surface/cls_crud.h"

#include <memory>
#include <string>

namespace korvex::tests {

/// Notes the last call that reached an object: "DbGetField(Long 1, String <K>)".
class CallNote {
  public:
    template <class... Arguments>
    void Note(const char* member, const Arguments&... arguments) {
        std::string noted;
        ((noted += (noted.empty() ? "" : ", ") + automation::Describe(automation::Variant(arguments))), ...);
        last = std::string(member) + "(" + noted + ")";
    }

    std::string last;
};

/// A persistence class that notes the public members that are called, and does nothing else.
class NotingCrud final : public clsCRUD, public CallNote {
  public:
    using Variant = automation::Variant;
    using Ref = QORObject::Ref;

    dbResults LastResult() override {
        Note("LastResult");
        return dbObjectNotModified;
    }
    std::string FKPrefix() override { return Answer("FKPrefix"); }
    void FKPrefix(const std::string& value) override { Note("FKPrefix", value); }
    std::shared_ptr<ado::Connection> DbConn() override {
        Note("DbConn");
        return connection;
    }
    void DbConn(const std::shared_ptr<ado::Connection>& given) override {
        Note("DbConn", given);
        connection = given;
    }
    bool ConnectDB(const Variant& text, const Variant& prefix) override {
        return Noted("ConnectDB", text, prefix);
    }
    Variant DisconnectDB() override {
        Note("DisconnectDB");
        return "disconnected";
    }
    bool DbDataExists(const Ref& data, const Variant& key) override {
        return Noted("DbDataExists", data, key);
    }
    bool DbGetField(const Variant& key, const std::string& keyField, const std::string& table,
                    const std::string& field, Variant& value) override {
        Note("DbGetField", key, keyField, table, field, value);
        value = "found";
        return true;
    }
    bool DbSaveField(const Variant& key, const std::string& keyField, const std::string& table,
                     const std::string& field, const Variant& value) override {
        return Noted("DbSaveField", key, keyField, table, field, value);
    }
    std::int32_t DbGetData(const Ref& data, const Variant& key, const std::string& keyField) override {
        return Noted("DbGetData", data, key, keyField) * 11;
    }
    std::int32_t DbSaveData(const Ref& data) override { return Noted("DbSaveData", data) * 12; }
    std::int32_t DbUpdateData(const Ref& data, const Variant& key, const std::string& keyField) override {
        return Noted("DbUpdateData", data, key, keyField) * 13;
    }
    std::int32_t DbUpdateDataRetainRoot(const Ref& data, const Variant& key) override {
        return Noted("DbUpdateDataRetainRoot", data, key) * 14;
    }
    std::int32_t DbDeleteData(const Ref& data, const Variant& key, const std::string& keyField) override {
        return Noted("DbDeleteData", data, key, keyField) * 15;
    }
    std::string GetTableName(const Ref& definition) override { return Answer("GetTableName", definition); }
    std::string GetPrimaryKeyFieldName(const Ref& definition) override {
        return Answer("GetPrimaryKeyFieldName", definition);
    }
    std::string GetForeignKeyFieldName(const Ref& definition) override {
        return Answer("GetForeignKeyFieldName", definition);
    }
    std::shared_ptr<ado::Recordset> OpenRecordset(const std::string& sql) override {
        Note("OpenRecordset", sql);
        return nullptr;
    }

    std::shared_ptr<ado::Connection> connection;

  private:
    template <class... Arguments>
    bool Noted(const char* member, const Arguments&... arguments) {
        Note(member, arguments...);
        return true;
    }
    template <class... Arguments>
    std::string Answer(const char* member, const Arguments&... arguments) {
        Note(member, arguments...);
        return std::string("the ") + member;
    }
};

/// A data object of the library's own side that notes what is asked of it.
class NotingDataObject final : public persistence::PlainObject, public CallNote {
  public:
    using Variant = automation::Variant;

    Ref Parent() override { return Noted("Parent"); }
    bool Modified() override {
        Note("Modified");
        return true;
    }
    void Modified(bool value) override { Note("Modified", value); }
    std::string StringAttribute(std::int32_t id) override {
        Note("StringAttribute", id);
        return "text";
    }
    std::int32_t LongAttribute(std::int32_t id) override {
        Note("LongAttribute", id);
        return 70000;
    }
    void LongAttribute(std::int32_t id, std::int32_t value) override { Note("LongAttribute", id, value); }
    bool BooleanAttribute(std::int32_t id) override {
        Note("BooleanAttribute", id);
        return true;
    }
    std::int16_t IntegerAttribute(std::int32_t id) override {
        Note("IntegerAttribute", id);
        return -5;
    }
    void IntegerAttribute(std::int32_t id, std::int16_t value) override {
        Note("IntegerAttribute", id, value);
    }
    Variant Value(std::int32_t index) override {
        Note("Value", index);
        return 2.5;
    }
    void Value(std::int32_t index, const Variant& value) override { Note("Value", index, value); }
    Variant NamedValue(std::string_view name) override {
        Note("NamedValue", name);
        return "named";
    }
    Ref ObjectAttribute(std::int32_t id) override { return Noted("ObjectAttribute", id); }
    void DataDef(const Ref& definition) override { Note("DataDef", definition); }
    Ref DataDef() override { return Noted("DataDef"); }
    Ref AddItem(const Variant& first, const Variant& second) override {
        return Noted("AddItem", first, second);
    }
    bool HasAttribute(std::int32_t id) override {
        Note("HasAttribute", id);
        return true;
    }
    std::int32_t ValueIndex(std::string_view fieldName) override {
        Note("ValueIndex", fieldName);
        return 3;
    }

  private:
    template <class... Arguments>
    Ref Noted(const char* member, const Arguments&... arguments) {
        Note(member, arguments...);
        return std::static_pointer_cast<QORObject>(shared_from_this());
    }
};

}  // namespace korvex::tests
