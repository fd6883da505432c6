// The type library that korvex.dll carries: it publishes what the member tables hold and late binding serves.

#include "support/type_library.h"

#include "automation/collection.h"
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
#include <span>
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

TEST_F(TypeLibraryTest, PublishesTheMemberTables) {
    const struct {
        const IID& id;
        const automation::ClassInfo& info;
    } classes[] = {
        {__uuidof(::_clsCreateDb), clsCreateDb().Class()},
        {__uuidof(::_clsField), clsField().Class()},
        {__uuidof(::_clsCRUD), clsCRUD().Class()},
        {__uuidof(::QORObject), persistence::PlainObject().Class()},
        {__uuidof(::Collection), automation::Collection().Class()},
    };
    for (const auto& published : classes) {
        const auto type = Type(published.id);
        EXPECT_EQ(MembersText(type.Get()), MembersText(published.info)) << published.info.name;
        EXPECT_EQ(DocumentationOf(type.Get()).help, published.info.description);
    }
    const std::pair<const CLSID&, const automation::ClassInfo&> creatable[] = {
        {__uuidof(::clsCreateDb), clsCreateDb().Class()},
        {__uuidof(::clsField), clsField().Class()},
        {__uuidof(::clsCRUD), clsCRUD().Class()},
    };
    for (const auto& [classId, info] : creatable) {
        EXPECT_EQ(DocumentationOf(Type(classId).Get()).help, info.description) << info.name;
        for (const automation::Member& member : info.members)
            EXPECT_NE(member.description, "") << info.name << "." << member.name;
    }
}

// A client that looks identifiers up in the type library and one that asks the object must get the same.
TEST_F(TypeLibraryTest, AndLateBindingGiveNamesTheSameIdentifiers) {
    com::ComPtr<IDispatch> collection;
    m_module.Create<::_clsCreateDb>(__uuidof(::clsCreateDb))->get_ScriptTypes(nullptr, collection.Put());
    const std::pair<com::ComPtr<IDispatch>, const automation::ClassInfo&> objects[] = {
        {m_module.Create<IDispatch>(__uuidof(::clsCreateDb)), clsCreateDb().Class()},
        {m_module.Create<IDispatch>(__uuidof(::clsField)), clsField().Class()},
        {m_module.Create<IDispatch>(__uuidof(::clsCRUD)), clsCRUD().Class()},
        {collection, automation::Collection().Class()},
    };
    for (const auto& [object, info] : objects) {
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
    EXPECT_EQ(types,
              (Lines{"enumeration dbResults", "enumeration QORAttributes", "dual interface Collection",
                     "dual interface QORObject", "dual interface _clsCreateDb", "dual interface _clsField",
                     "dual interface _clsCRUD", "creatable class clsCreateDb of _clsCreateDb",
                     "creatable class clsField of _clsField", "creatable class clsCRUD of _clsCRUD"}));
}

/// A constant of the type library, of the generated header that a C++ host includes, of the library's own
/// header.
struct Constant {
    const char* name;
    int published;
    int own;
    LONG number;
};
#define CONSTANT(name, number) \
    { #name, ::name, korvex::name, number }
const Constant results[] = {
    CONSTANT(dbNoError, 0),
    CONSTANT(dbConnectError, -32767),
    CONSTANT(dbNotConnected, -32766),
    CONSTANT(dbPrimaryKeyFieldNameMissing, -32765),
    CONSTANT(dbPrimaryKeyMissing, -32764),
    CONSTANT(dbTableNameMissing, -32763),
    CONSTANT(dbBadParameter, -32762),
    CONSTANT(dbNoMatchingRecord, -32761),
    CONSTANT(dbCannotOpenRecordset, -32760),
    CONSTANT(dbParentNotInDatabase, -32759),
    CONSTANT(dbObjectNotModified, 10),
    CONSTANT(dbTableNotIncluded, -32757),
};
const Constant attributes[] = {
    CONSTANT(attName, 800001),           CONSTANT(attForeignKeyField, 800004),
    CONSTANT(attFieldName, 800007),      CONSTANT(attTableName, 800010),
    CONSTANT(attValueIndex, 300001),     CONSTANT(attIsIncluded, 1100002),
    CONSTANT(attIsAutoNumber, 1100003),  CONSTANT(attValues, 1300001),
    CONSTANT(attElementDef, 1300003),    CONSTANT(attForeignKeys, 1300005),
    CONSTANT(attPrimaryKeys, 1300006),   CONSTANT(attSelectedItem, -300005),
    CONSTANT(attCounterHolder, -300004), CONSTANT(attCounter, -300003),
    CONSTANT(attSelectState, -200001),
};
#undef CONSTANT

TEST_F(TypeLibraryTest, NumbersTheResultsAndTheAttributes) {
    const std::pair<UINT, std::span<const Constant>> enumerations[] = {{0, results}, {1, attributes}};
    for (const auto& [index, constants] : enumerations) {
        std::map<std::string, LONG> expected;
        for (const Constant& constant : constants) {
            expected[constant.name] = constant.number;
            EXPECT_EQ(constant.published, constant.number) << constant.name;
            EXPECT_EQ(constant.own, constant.number) << constant.name;
        }
        com::ComPtr<ITypeInfo> type;
        ASSERT_EQ(m_library->GetTypeInfo(index, type.Put()), S_OK);
        std::map<std::string, LONG> published;
        VARDESC* constant = nullptr;
        for (UINT i = 0; type->GetVarDesc(i, &constant) == S_OK; ++i) {
            EXPECT_EQ(constant->lpvarValue->vt, VT_I4);
            published[DocumentationOf(type.Get(), constant->memid).name] = constant->lpvarValue->lVal;
            type->ReleaseVarDesc(constant);
        }
        EXPECT_EQ(published, expected);
    }
}

}  // namespace
}  // namespace korvex::tests
