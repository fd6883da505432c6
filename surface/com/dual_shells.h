#pragma once

#include "automation/collection.h"
#include "automation/com/shell.h"
#include "persistence/qor_object.h"
#include "surface/cls_create_db.h"
#include "surface/cls_crud.h"
#include "surface/cls_field.h"
#include "surface/com/host_binding.h"

#include <korvex_com.h>
#include <memory>
#include <utility>

/// The dual interfaces over the public classes: one line per slot, everything else is the shell's.
namespace korvex::com {

class CreateDbShell final : public ClassShell<::_clsCreateDb, ::clsCreateDb> {
  public:
    explicit CreateDbShell(std::shared_ptr<clsCreateDb> object)
        : ClassShell(std::move(object), BindHostObject) {}

    STDMETHODIMP get_ScriptTypes(VARIANT* oLanguageSvr, IDispatch** result) override {
        return ResultSlot(1, result, oLanguageSvr);
    }
    STDMETHODIMP DoScript(BSTR* sID, BSTR* sFilename, BSTR* storageName, VARIANT* sFKPrefix,
                          VARIANT* oLanguageSvr) override {
        return Slot(2, sID, sFilename, storageName, sFKPrefix, oLanguageSvr);
    }
    STDMETHODIMP get_FKPrefix(BSTR* result) override { return ResultSlot(3, result); }
    STDMETHODIMP put_FKPrefix(BSTR* newValue) override { return Slot(4, newValue); }
    STDMETHODIMP get_ScriptFilePath(BSTR* result) override { return ResultSlot(5, result); }
    STDMETHODIMP put_ScriptFilePath(BSTR* newValue) override { return Slot(6, newValue); }
    STDMETHODIMP DoMSsqlDb(BSTR* FileName, BSTR* storageName, VARIANT* sFKPrefix) override {
        return Slot(7, FileName, storageName, sFKPrefix);
    }
    STDMETHODIMP DoOracleDb(BSTR* FileName, BSTR* storageName, VARIANT* sFKPrefix) override {
        return Slot(8, FileName, storageName, sFKPrefix);
    }
    STDMETHODIMP DoSybaseDb(BSTR* FileName, BSTR* storageName, VARIANT* sFKPrefix) override {
        return Slot(9, FileName, storageName, sFKPrefix);
    }
    STDMETHODIMP CreateRelationship(BSTR* storageName, VARIANT* sFKPrefix) override {
        return Slot(10, storageName, sFKPrefix);
    }
    STDMETHODIMP ShutDown() override { return Slot(11); }
    STDMETHODIMP get_DbSQL(BSTR* result) override { return ResultSlot(12, result); }
    STDMETHODIMP get_DropSQL(BSTR* result) override { return ResultSlot(13, result); }
    STDMETHODIMP get_StoredProcSQL(BSTR* result) override { return ResultSlot(14, result); }
    STDMETHODIMP get_FkConstraintSQL(BSTR* result) override { return ResultSlot(15, result); }
    STDMETHODIMP get_DropFkConstraintSQL(BSTR* result) override { return ResultSlot(16, result); }
    STDMETHODIMP ShowLog() override { return Slot(17); }
    STDMETHODIMP ConnectDB(BSTR* sConnection, VARIANT* result) override {
        return ResultSlot(18, result, sConnection);
    }
};

class FieldShell final : public ClassShell<::_clsField, ::clsField> {
  public:
    explicit FieldShell(std::shared_ptr<clsField> object) : ClassShell(std::move(object), BindHostObject) {}

    STDMETHODIMP get_FieldName(BSTR* result) override { return ResultSlot(1, result); }
    STDMETHODIMP put_FieldName(BSTR newValue) override { return Slot(2, newValue); }
    STDMETHODIMP get_DataType(LONG* result) override { return ResultSlot(3, result); }
    STDMETHODIMP put_DataType(LONG newValue) override { return Slot(4, newValue); }
    STDMETHODIMP get_IsPrimaryKey(VARIANT_BOOL* result) override { return ResultSlot(5, result); }
    STDMETHODIMP put_IsPrimaryKey(VARIANT_BOOL newValue) override { return Slot(6, newValue); }
    STDMETHODIMP get_IsAutoNumber(VARIANT_BOOL* result) override { return ResultSlot(7, result); }
    STDMETHODIMP put_IsAutoNumber(VARIANT_BOOL newValue) override { return Slot(8, newValue); }
    STDMETHODIMP get_IsForeignKey(VARIANT_BOOL* result) override { return ResultSlot(9, result); }
    STDMETHODIMP put_IsForeignKey(VARIANT_BOOL newValue) override { return Slot(10, newValue); }
    STDMETHODIMP get_FKObjectID(LONG* result) override { return ResultSlot(11, result); }
    STDMETHODIMP put_FKObjectID(LONG newValue) override { return Slot(12, newValue); }
    STDMETHODIMP get_MaxLength(BSTR* result) override { return ResultSlot(13, result); }
    STDMETHODIMP put_MaxLength(BSTR newValue) override { return Slot(14, newValue); }
    STDMETHODIMP get_ValueID(LONG* result) override { return ResultSlot(15, result); }
    STDMETHODIMP put_ValueID(LONG newValue) override { return Slot(16, newValue); }
    STDMETHODIMP get_FKValueID(LONG* result) override { return ResultSlot(17, result); }
    STDMETHODIMP put_FKValueID(LONG newValue) override { return Slot(18, newValue); }
    STDMETHODIMP get_TypeSize(BSTR* result) override { return ResultSlot(19, result); }
    STDMETHODIMP put_TypeSize(BSTR newValue) override { return Slot(20, newValue); }
    STDMETHODIMP get_nPrimaryKeySeq(short* result) override { return ResultSlot(21, result); }
    STDMETHODIMP put_nPrimaryKeySeq(short newValue) override { return Slot(22, newValue); }
    STDMETHODIMP get_DefaultVal(BSTR* result) override { return ResultSlot(23, result); }
    STDMETHODIMP put_DefaultVal(BSTR newValue) override { return Slot(24, newValue); }
    STDMETHODIMP get_IsLongFld(VARIANT_BOOL* result) override { return ResultSlot(25, result); }
    STDMETHODIMP put_IsLongFld(VARIANT_BOOL newValue) override { return Slot(26, newValue); }
};

class CrudShell final : public ClassShell<::_clsCRUD, ::clsCRUD> {
  public:
    explicit CrudShell(std::shared_ptr<clsCRUD> object) : ClassShell(std::move(object), BindHostObject) {}

    STDMETHODIMP get_LastResult(::dbResults* result) override { return ResultSlot(1, result); }
    STDMETHODIMP get_FKPrefix(BSTR* result) override { return ResultSlot(2, result); }
    STDMETHODIMP put_FKPrefix(BSTR* newValue) override { return Slot(3, newValue); }
    STDMETHODIMP get_DbConn(IDispatch** result) override { return ResultSlot(4, result); }
    STDMETHODIMP put_DbConn(IDispatch** newValue) override { return Slot(5, newValue); }
    STDMETHODIMP ConnectDB(VARIANT* sConnection, VARIANT* sFKPrefix, VARIANT_BOOL* result) override {
        return ResultSlot(6, result, sConnection, sFKPrefix);
    }
    STDMETHODIMP DisconnectDB(VARIANT* result) override { return ResultSlot(7, result); }
    STDMETHODIMP DbDataExists(::QORObject** coData, VARIANT* lKey, VARIANT_BOOL* result) override {
        return ResultSlot(8, result, coData, lKey);
    }
    STDMETHODIMP DbGetField(VARIANT* lKey, BSTR* sKeyFieldName, BSTR* sTableName, BSTR* sFieldName,
                            VARIANT* vntFieldValue, VARIANT_BOOL* result) override {
        return ResultSlot(9, result, lKey, sKeyFieldName, sTableName, sFieldName, vntFieldValue);
    }
    STDMETHODIMP DbSaveField(VARIANT* lKey, BSTR* sKeyFieldName, BSTR* sTableName, BSTR* sFieldName,
                             VARIANT* vntFieldValue, VARIANT_BOOL* result) override {
        return ResultSlot(10, result, lKey, sKeyFieldName, sTableName, sFieldName, vntFieldValue);
    }
    STDMETHODIMP DbGetData(::QORObject* coData, VARIANT* lKey, BSTR sKeyFieldName, LONG* result) override {
        return ResultSlot(11, result, coData, lKey, sKeyFieldName);
    }
    STDMETHODIMP DbSaveData(::QORObject* coData, LONG* result) override {
        return ResultSlot(12, result, coData);
    }
    STDMETHODIMP DbUpdateData(::QORObject* coData, VARIANT* lKey, BSTR sKeyFieldName, LONG* result) override {
        return ResultSlot(13, result, coData, lKey, sKeyFieldName);
    }
    STDMETHODIMP DbUpdateDataRetainRoot(::QORObject* coData, VARIANT* lKey, LONG* result) override {
        return ResultSlot(14, result, coData, lKey);
    }
    STDMETHODIMP DbDeleteData(::QORObject* coData, VARIANT* lKey, BSTR sSelKey, LONG* result) override {
        return ResultSlot(15, result, coData, lKey, sSelKey);
    }
    STDMETHODIMP GetTableName(::QORObject** coDataDef, BSTR* result) override {
        return ResultSlot(16, result, coDataDef);
    }
    STDMETHODIMP GetPrimaryKeyFieldName(::QORObject** coDataDef, BSTR* result) override {
        return ResultSlot(17, result, coDataDef);
    }
    STDMETHODIMP GetForeignKeyFieldName(::QORObject** coDataDef, BSTR* result) override {
        return ResultSlot(18, result, coDataDef);
    }
    STDMETHODIMP OpenRecordset(BSTR* sSQL, IDispatch** result) override {
        return ResultSlot(19, result, sSQL);
    }
};

class CollectionShell final : public Shell<::Collection> {
  public:
    explicit CollectionShell(std::shared_ptr<automation::Collection> object) : Shell(std::move(object)) {}

    STDMETHODIMP get_Item(VARIANT Index, VARIANT* result) override { return ResultSlot(1, result, Index); }
    STDMETHODIMP Add(VARIANT Item, VARIANT Key, VARIANT Before, VARIANT After) override {
        return Slot(2, Item, Key, Before, After);
    }
    STDMETHODIMP get_Count(LONG* result) override { return ResultSlot(3, result); }
    STDMETHODIMP Remove(VARIANT Index) override { return Slot(4, Index); }
    STDMETHODIMP get__NewEnum(IUnknown** result) override { return EnumeratorSlot(result); }
};

/// A data object of this library's own C++ classes, for hosts and their data objects.
class DataObjectShell final : public Shell<::QORObject> {
  public:
    explicit DataObjectShell(korvex::QORObject::Ref object) : Shell(std::move(object), BindHostObject) {}

    STDMETHODIMP get_Parent(::QORObject** result) override { return ResultSlot(1, result); }
    STDMETHODIMP get_Modified(VARIANT_BOOL* result) override { return ResultSlot(2, result); }
    STDMETHODIMP put_Modified(VARIANT_BOOL newValue) override { return Slot(3, newValue); }
    STDMETHODIMP get_StringAttribute(LONG lAttributeID, BSTR* result) override {
        return ResultSlot(4, result, lAttributeID);
    }
    STDMETHODIMP get_LongAttribute(LONG lAttributeID, LONG* result) override {
        return ResultSlot(5, result, lAttributeID);
    }
    STDMETHODIMP put_LongAttribute(LONG lAttributeID, LONG newValue) override {
        return Slot(6, lAttributeID, newValue);
    }
    STDMETHODIMP get_BooleanAttribute(LONG lAttributeID, VARIANT_BOOL* result) override {
        return ResultSlot(7, result, lAttributeID);
    }
    STDMETHODIMP get_IntegerAttribute(LONG lAttributeID, short* result) override {
        return ResultSlot(8, result, lAttributeID);
    }
    STDMETHODIMP put_IntegerAttribute(LONG lAttributeID, short newValue) override {
        return Slot(9, lAttributeID, newValue);
    }
    STDMETHODIMP get_Value(LONG lIndex, VARIANT* result) override { return ResultSlot(10, result, lIndex); }
    STDMETHODIMP put_Value(LONG lIndex, VARIANT newValue) override { return Slot(11, lIndex, newValue); }
    STDMETHODIMP get_NamedValue(BSTR sName, VARIANT* result) override {
        return ResultSlot(12, result, sName);
    }
    STDMETHODIMP get_ObjectAttribute(LONG lAttributeID, IDispatch** result) override {
        return ResultSlot(13, result, lAttributeID);
    }
    STDMETHODIMP putref_DataDef(::QORObject* newValue) override { return Slot(14, newValue); }
    STDMETHODIMP get_DataDef(::QORObject** result) override { return ResultSlot(15, result); }
    STDMETHODIMP AddItem(VARIANT vntFirst, VARIANT vntSecond, ::QORObject** result) override {
        return ResultSlot(16, result, vntFirst, vntSecond);
    }
    STDMETHODIMP get_HasAttribute(LONG lAttributeID, VARIANT_BOOL* result) override {
        return ResultSlot(17, result, lAttributeID);
    }
    STDMETHODIMP get_ValueIndex(BSTR sFieldName, LONG* result) override {
        return ResultSlot(18, result, sFieldName);
    }
};

}  // namespace korvex::com
