// The type library that korvex.dll carries: what is published, and that late binding serves exactly that.

#include "support/type_library.h"

#include "automation/com/bstr.h"
#include "persistence/db_results.h"
#include "persistence/plain_object.h"
#include "support/late_bound.h"
#include "support/module.h"
#include "surface/cls_create_db.h"
#include "surface/cls_crud.h"
#include "surface/cls_field.h"

#include <gtest/gtest.h>

#include <korvex_com.h>
#include <map>
#include <string>
#include <vector>

namespace korvex::tests {
namespace {

using Lines = std::vector<std::string>;

class TypeLibraryTest : public testing::Test {
  protected:
    com::ComPtr<ITypeInfo> Type(REFGUID id) const { return m_module.Type(id); }

    const Module m_module;
    const com::ComPtr<ITypeLib> m_library = m_module.TypeLibrary();
};

std::string Named(const char* name, const char* arguments, const char* result) {
    return std::string(name) + " (" + arguments + ") " + result;
}

TEST_F(TypeLibraryTest, PublishesTheScriptGenerator) {
    const char* run =
        "FileName string by reference, storageName string optional by reference, "
        "sFKPrefix variant optional by reference";
    const Lines expected = {
        "1 ScriptTypes get (oLanguageSvr variant optional by reference) object",
        "2 DoScript method (sID string by reference, sFilename string by reference, "
        "storageName string optional by reference, sFKPrefix variant optional by reference, "
        "oLanguageSvr variant optional by reference) none",
        "3 FKPrefix get () string",
        "3 FKPrefix let (newValue string by reference) none",
        "5 ScriptFilePath get () string",
        "5 ScriptFilePath let (newValue string by reference) none",
        Named("7 DoMSsqlDb method", run, "none"),
        Named("8 DoOracleDb method", run, "none"),
        Named("9 DoSybaseDb method", run, "none"),
        "10 CreateRelationship method (storageName string optional by reference, "
        "sFKPrefix variant optional by reference) none",
        "11 ShutDown method () none",
        "12 DbSQL get () string",
        "13 DropSQL get () string",
        "14 StoredProcSQL get () string",
        "15 FkConstraintSQL get () string",
        "16 DropFkConstraintSQL get () string",
        "17 ShowLog method () none",
        "18 ConnectDB method (sConnection string by reference) variant",
    };
    EXPECT_EQ(SignaturesOf(Type(__uuidof(::_clsCreateDb)).Get()), expected);
}

TEST_F(TypeLibraryTest, PublishesTheField) {
    const std::pair<std::string, std::string> properties[] = {
        {"FieldName", "string"},     {"DataType", "long"},          {"IsPrimaryKey", "boolean"},
        {"IsAutoNumber", "boolean"}, {"IsForeignKey", "boolean"},   {"FKObjectID", "long"},
        {"MaxLength", "string"},     {"ValueID", "long"},           {"FKValueID", "long"},
        {"TypeSize", "string"},      {"nPrimaryKeySeq", "integer"}, {"DefaultVal", "string"},
        {"IsLongFld", "boolean"},
    };
    Lines expected;
    for (const auto& [name, type] : properties) {
        const std::string id = std::to_string(expected.size() + 1);
        expected.push_back(id + " " + name + " get () " + type);
        expected.push_back(id + " " + name + " let (newValue " + type + " by value) none");
    }
    EXPECT_EQ(SignaturesOf(Type(__uuidof(::_clsField)).Get()), expected);
}

TEST_F(TypeLibraryTest, PublishesThePersistenceClass) {
    const char* field =
        "lKey variant by reference, sKeyFieldName string by reference, sTableName string by reference, "
        "sFieldName string by reference, vntFieldValue variant by reference";
    const Lines expected = {
        "1 LastResult get () dbResults",
        "2 FKPrefix get () string",
        "2 FKPrefix let (newValue string by reference) none",
        "4 DbConn get () object",
        "4 DbConn let (newValue object by reference) none",
        "6 ConnectDB method (sConnection variant by reference, sFKPrefix variant optional by reference) "
        "boolean",
        "7 DisconnectDB method () variant",
        "8 DbDataExists method (coData QORObject by reference, lKey variant optional by reference) boolean",
        Named("9 DbGetField method", field, "boolean"),
        Named("10 DbSaveField method", field, "boolean"),
        "11 DbGetData method (coData QORObject by value, lKey variant by reference, "
        "sKeyFieldName string optional by value) long",
        "12 DbSaveData method (coData QORObject by value) long",
        "13 DbUpdateData method (coData QORObject by value, lKey variant optional by reference, "
        "sKeyFieldName string optional by value) long",
        "14 DbUpdateDataRetainRoot method (coData QORObject by value, lKey variant by reference) long",
        "15 DbDeleteData method (coData QORObject by value, lKey variant by reference, "
        "sSelKey string optional by value) long",
        "16 GetTableName method (coDataDef QORObject by reference) string",
        "17 GetPrimaryKeyFieldName method (coDataDef QORObject by reference) string",
        "18 GetForeignKeyFieldName method (coDataDef QORObject by reference) string",
        "19 OpenRecordset method (sSQL string by reference) object",
    };
    EXPECT_EQ(SignaturesOf(Type(__uuidof(::_clsCRUD)).Get()), expected);
}

TEST_F(TypeLibraryTest, PublishesTheDataObjectInterface) {
    const Lines expected = {
        "1 Parent get () QORObject",
        "2 Modified get () boolean",
        "2 Modified let (newValue boolean by value) none",
        "4 StringAttribute get (AttributeID long by value) string",
        "5 LongAttribute get (AttributeID long by value) long",
        "5 LongAttribute let (AttributeID long by value, newValue long by value) none",
        "7 BooleanAttribute get (AttributeID long by value) boolean",
        "8 IntegerAttribute get (AttributeID long by value) integer",
        "8 IntegerAttribute let (AttributeID long by value, newValue integer by value) none",
        "10 Value get (Index long by value) variant",
        "10 Value let (Index long by value, newValue variant by value) none",
        "12 NamedValue get (Name string by value) variant",
        "13 ObjectAttribute get (AttributeID long by value) object",
        "14 DataDef set (newValue QORObject by value) none",
        "14 DataDef get () QORObject",
        "16 AddItem method (vnt1 variant optional by value, vnt2 variant optional by value) QORObject",
        "17 HasAttribute get (AttributeID long by value) boolean",
        "18 ValueIndex get (FieldName string by value) long",
    };
    EXPECT_EQ(SignaturesOf(Type(__uuidof(::QORObject)).Get()), expected);
}

TEST_F(TypeLibraryTest, DescribesThePersistenceClassInThePublishedWords) {
    const std::string prefix =
        "Allows an implementation team to set its own prefix for foreign key field names.  The default is "
        "\"FK_\".";
    const std::string connection = "Object representing an ADO database connection. ";
    const Lines expected = {
        "Describes the result of the last public method called on this object.  Indicates whether the method "
        "was "
        "successful or not, and if unsuccessful, what error occured.",
        prefix,
        prefix,
        connection,
        connection,
        "Connects this object to the specified database.  An optional foreign key prefix can be specified as "
        "the "
        "second parameter of this method.",
        "Disconnects this object from the database (if a connection exists).",
        "Determines if data for a specific primary key exists in the database.  Returns True if the data "
        "exists, "
        "False if it does not.",
        "Retrieves the value of a specifc field in a table.  Returns True if the field was successfully "
        "retrieved, "
        "False if not.",
        "Saves a value to a specifc field in a table. Returns True if the field was successfully saved, "
        "False if it "
        "was not.",
        "Retrieves an object (identified by a specific primary key) from the database. ",
        "Writes an object to the database and returns the new primary key of the topmost record; it may be "
        "given the "
        "data from any point of a data definition's tree.",
        "Updates an existing object in the database by writing only the changes made to the object to the "
        "database.  "
        "Existing data that was not modified is not rewritten to the database.",
        "Updates an existing object in the database by retaining only the record for the root object (thus "
        "preserving this record's primary key).  All child records for the old coData are first deleted, and "
        "then "
        "new ones written to the database.",
        "Deletes an object (identified by a specific primary key) from the database.",
        "Retrieves the name of the database table stored at the top level of this data definition.",
        "Retrieves the name of the primary key field for the top level of this data definition.",
        "Retrieves the name of the foriegn key field for the top level of this data definition.",
        "Open an ADO recordset object for the specified SQL string, using the existing m_DbConnection.",
    };
    EXPECT_EQ(DescriptionsOf(Type(__uuidof(::_clsCRUD)).Get()), expected);

    const std::string ofTheClass =
        "This object is used to read and write QORObject data to/from a relational database.";
    EXPECT_EQ(DocumentationOf(Type(__uuidof(::_clsCRUD)).Get()).help, ofTheClass);
    EXPECT_EQ(DocumentationOf(Type(__uuidof(::clsCRUD)).Get()).help, ofTheClass);
    EXPECT_EQ(clsCRUD().Class().description, ofTheClass);
}

TEST_F(TypeLibraryTest, AndTheMemberTablesSayTheSame) {
    const struct {
        const IID& id;
        const automation::ClassInfo& info;
    } classes[] = {
        {__uuidof(::_clsCreateDb), clsCreateDb().Class()},
        {__uuidof(::_clsField), clsField().Class()},
        {__uuidof(::_clsCRUD), clsCRUD().Class()},
        {__uuidof(::QORObject), persistence::PlainObject().Class()},
    };
    for (const auto& published : classes) {
        const auto type = Type(published.id);
        EXPECT_EQ(SignaturesOf(type.Get()), SignaturesOf(published.info)) << published.info.name;
        EXPECT_EQ(DescriptionsOf(type.Get()), DescriptionsOf(published.info)) << published.info.name;
    }
}

// A client that looks identifiers up in the type library and one that asks the object must get the same.
TEST_F(TypeLibraryTest, AndLateBindingGiveNamesTheSameIdentifiers) {
    const std::pair<const CLSID&, const automation::ClassInfo&> classes[] = {
        {__uuidof(::clsCreateDb), clsCreateDb().Class()},
        {__uuidof(::clsField), clsField().Class()},
        {__uuidof(::clsCRUD), clsCRUD().Class()},
    };
    for (const auto& [classId, info] : classes) {
        const auto object = m_module.Create<IDispatch>(classId);
        com::ComPtr<ITypeInfo> type;
        ASSERT_EQ(object->GetTypeInfo(0, 0, type.Put()), S_OK);
        for (const automation::Member& member : info.members) {
            std::vector<std::wstring> names = {com::ToWide(member.name)};
            const bool isLet = member.kind == automation::InvokeKind::PropertyLet;
            for (const auto& parameter : member.parameters)
                if (!isLet) names.push_back(com::ToWide(parameter.name));
            std::vector<LPOLESTR> pointers;
            for (std::wstring& name : names)
                pointers.push_back(name.data());
            const auto count = static_cast<UINT>(names.size());
            std::vector<DISPID> published(count);
            std::vector<DISPID> served(count);
            EXPECT_EQ(type->GetIDsOfNames(pointers.data(), count, published.data()), S_OK) << member.name;
            EXPECT_EQ(object->GetIDsOfNames(IID_NULL, pointers.data(), count, 0, served.data()), S_OK)
                << member.name;
            EXPECT_EQ(published, served) << member.name;
        }
    }
}

std::string KindName(const TYPEATTR& attributes) {
    switch (attributes.typekind) {
        case TKIND_ENUM:
            return "enumeration";
        case TKIND_DISPATCH:
            return (attributes.wTypeFlags & TYPEFLAG_FDUAL) != 0 ? "dual interface" : "dispatch interface";
        case TKIND_COCLASS:
            return (attributes.wTypeFlags & TYPEFLAG_FCANCREATE) != 0 ? "creatable class" : "class";
        default:
            return "other";
    }
}

TEST_F(TypeLibraryTest, HoldsThreeCreatableClassesAndWhatTheyNeed) {
    TLIBATTR* library = nullptr;
    ASSERT_EQ(m_library->GetLibAttr(&library), S_OK);
    EXPECT_EQ(library->guid, LIBID_Korvex);
    EXPECT_EQ(library->lcid, 0x409u);
    EXPECT_EQ(library->syskind, sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32);
    EXPECT_EQ(library->wMajorVerNum, 1);
    EXPECT_EQ(library->wMinorVerNum, 0);
    m_library->ReleaseTLibAttr(library);
    com::Bstr name;
    ASSERT_EQ(m_library->GetDocumentation(-1, name.Put(), nullptr, nullptr, nullptr), S_OK);
    EXPECT_EQ(name.Text(), "Korvex");

    Lines types;
    for (UINT i = 0; i < m_library->GetTypeInfoCount(); ++i) {
        com::ComPtr<ITypeInfo> type;
        ASSERT_EQ(m_library->GetTypeInfo(i, type.Put()), S_OK);
        TYPEATTR* attributes = nullptr;
        ASSERT_EQ(type->GetTypeAttr(&attributes), S_OK);
        std::string line = KindName(*attributes) + " " + DocumentationOf(type.Get()).name;
        HREFTYPE reference = 0;
        com::ComPtr<ITypeInfo> implemented;
        if (attributes->typekind == TKIND_COCLASS && attributes->cImplTypes == 1 &&
            SUCCEEDED(type->GetRefTypeOfImplType(0, &reference)) &&
            SUCCEEDED(type->GetRefTypeInfo(reference, implemented.Put())))
            line += " of " + DocumentationOf(implemented.Get()).name;
        types.push_back(line);
        type->ReleaseTypeAttr(attributes);
    }
    EXPECT_EQ(types, (Lines{"enumeration dbResults", "dual interface QORObject",
                            "dual interface _clsCreateDb", "dual interface _clsField",
                            "dual interface _clsCRUD", "creatable class clsCreateDb of _clsCreateDb",
                            "creatable class clsField of _clsField", "creatable class clsCRUD of _clsCRUD"}));
}

TEST_F(TypeLibraryTest, NumbersTheResultCodes) {
    const std::map<std::string, LONG> expected = {
        {"dbNoError", 0},
        {"dbConnectError", -32767},
        {"dbNotConnected", -32766},
        {"dbPrimaryKeyFieldNameMissing", -32765},
        {"dbPrimaryKeyMissing", -32764},
        {"dbTableNameMissing", -32763},
        {"dbBadParameter", -32762},
        {"dbNoMatchingRecord", -32761},
        {"dbCannotOpenRecordset", -32760},
        {"dbParentNotInDatabase", -32759},
        {"dbObjectNotModified", 10},
        {"dbTableNotIncluded", -32757},
    };
    com::ComPtr<ITypeInfo> type;
    ASSERT_EQ(m_library->GetTypeInfo(0, type.Put()), S_OK);
    std::map<std::string, LONG> published;
    for (UINT i = 0; i < expected.size(); ++i) {
        VARDESC* constant = nullptr;
        ASSERT_EQ(type->GetVarDesc(i, &constant), S_OK) << i;
        EXPECT_EQ(constant->lpvarValue->vt, VT_I4);
        published[DocumentationOf(type.Get(), constant->memid).name] = constant->lpvarValue->lVal;
        type->ReleaseVarDesc(constant);
    }
    EXPECT_EQ(published, expected);
    VARDESC* none = nullptr;
    EXPECT_NE(type->GetVarDesc(static_cast<UINT>(expected.size()), &none), S_OK);
}

// A C++ host includes the generated header, and nothing of the library's own.
TEST(ResultCodes, AreTheSameInTheGeneratedHeaderAndInTheLibrary) {
    const std::pair<::dbResults, korvex::dbResults> codes[] = {
        {::dbNoError, korvex::dbNoError},
        {::dbConnectError, korvex::dbConnectError},
        {::dbNotConnected, korvex::dbNotConnected},
        {::dbPrimaryKeyFieldNameMissing, korvex::dbPrimaryKeyFieldNameMissing},
        {::dbPrimaryKeyMissing, korvex::dbPrimaryKeyMissing},
        {::dbTableNameMissing, korvex::dbTableNameMissing},
        {::dbBadParameter, korvex::dbBadParameter},
        {::dbNoMatchingRecord, korvex::dbNoMatchingRecord},
        {::dbCannotOpenRecordset, korvex::dbCannotOpenRecordset},
        {::dbParentNotInDatabase, korvex::dbParentNotInDatabase},
        {::dbObjectNotModified, korvex::dbObjectNotModified},
        {::dbTableNotIncluded, korvex::dbTableNotIncluded},
    };
    for (const auto& [published, own] : codes)
        EXPECT_EQ(static_cast<long>(published), static_cast<long>(own));
}

}  // namespace
}  // namespace korvex::tests
