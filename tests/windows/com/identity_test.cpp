// Class factories, interfaces and references: who answers to what, and that everything goes in the end.

#include "support/module.h"
#include "support/type_library.h"

#include <gtest/gtest.h>

#include <korvex_com.h>
#include <ocidl.h>

namespace korvex::tests {
namespace {

struct CreatableClass {
    const char* name;
    const CLSID& classId;
    const IID& defaultInterface;
};

const CreatableClass creatableClasses[] = {
    {"clsCreateDb", __uuidof(::clsCreateDb), __uuidof(::_clsCreateDb)},
    {"clsField", __uuidof(::clsField), __uuidof(::_clsField)},
    {"clsCRUD", __uuidof(::clsCRUD), __uuidof(::_clsCRUD)},
};

void** Address(com::ComPtr<IUnknown>& object) { return reinterpret_cast<void**>(object.Put()); }

/// References that are held to the object.
ULONG ReferencesOf(IUnknown* object) {
    object->AddRef();
    return object->Release();
}

TEST(IdentityTest, FactoriesServeThreeClassesAndNothingElse) {
    const Module module;
    com::ComPtr<IUnknown> object;
    for (const CreatableClass& creatable : creatableClasses) {
        EXPECT_EQ(module.GetClassObject(creatable.classId, IID_IClassFactory, Address(object)), S_OK);
        EXPECT_TRUE(object) << creatable.name;
        EXPECT_EQ(module.GetClassObject(creatable.classId, IID_IDispatch, Address(object)), E_NOINTERFACE);
        EXPECT_FALSE(object) << creatable.name;
        EXPECT_EQ(module.GetClassObject(creatable.classId, IID_IUnknown, nullptr), E_POINTER);
    }
    for (const CLSID& unknown : {__uuidof(::_clsCRUD), __uuidof(::QORObject), GUID_NULL}) {
        EXPECT_EQ(module.GetClassObject(unknown, IID_IClassFactory, Address(object)),
                  CLASS_E_CLASSNOTAVAILABLE);
        EXPECT_FALSE(object);
    }
    EXPECT_EQ(module.CanUnloadNow(), S_OK);
}

TEST(IdentityTest, FactoriesRefuseAggregationAndUnknownInterfaces) {
    const Module module;
    for (const CreatableClass& creatable : creatableClasses) {
        com::ComPtr<IClassFactory> factory;
        ASSERT_EQ(module.GetClassObject(creatable.classId, IID_IClassFactory,
                                        reinterpret_cast<void**>(factory.Put())),
                  S_OK);
        com::ComPtr<IUnknown> object;
        EXPECT_EQ(factory->CreateInstance(factory.Get(), IID_IUnknown, Address(object)),
                  CLASS_E_NOAGGREGATION);
        EXPECT_FALSE(object);
        EXPECT_EQ(factory->CreateInstance(nullptr, IID_IClassFactory, Address(object)), E_NOINTERFACE);
        EXPECT_FALSE(object);
        EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
        EXPECT_EQ(factory->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
        EXPECT_EQ(ReferencesOf(factory.Get()), 1u) << "what failed left nothing behind";
    }
    EXPECT_EQ(module.CanUnloadNow(), S_OK);
}

TEST(IdentityTest, ObjectsAnswerToTheirInterfacesAndHaveOneIdentity) {
    const Module module;
    for (const CreatableClass& creatable : creatableClasses) {
        const auto object = module.Create<IUnknown>(creatable.classId);
        for (const IID& id : {IID_IUnknown, IID_IDispatch, creatable.defaultInterface, IID_ISupportErrorInfo,
                              IID_IProvideClassInfo}) {
            com::ComPtr<IUnknown> face;
            ASSERT_EQ(object->QueryInterface(id, Address(face)), S_OK) << creatable.name;
            EXPECT_EQ(face.As<IUnknown>().Get(), object.Get()) << creatable.name;
        }
        for (const CreatableClass& other : creatableClasses) {
            com::ComPtr<IUnknown> face(object.Get());
            const HRESULT expected = other.classId == creatable.classId ? S_OK : E_NOINTERFACE;
            EXPECT_EQ(object->QueryInterface(other.defaultInterface, Address(face)), expected);
            EXPECT_EQ(static_cast<bool>(face), expected == S_OK);
        }
        EXPECT_EQ(object->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
        com::ComPtr<ITypeInfo> info;
        EXPECT_EQ(object.As<IProvideClassInfo>()->GetClassInfo(info.Put()), S_OK);
        EXPECT_EQ(DocumentationOf(info.Get()).name, creatable.name);
        const auto support = object.As<ISupportErrorInfo>();
        EXPECT_EQ(support->InterfaceSupportsErrorInfo(creatable.defaultInterface), S_OK);
        EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID_IClassFactory), S_FALSE);
    }
    EXPECT_EQ(module.CanUnloadNow(), S_OK);
}

TEST(IdentityTest, TheModuleStaysWhileAnythingOfItIsHeld) {
    const Module module;
    EXPECT_EQ(module.CanUnloadNow(), S_OK);
    com::ComPtr<IClassFactory> factory;
    module.GetClassObject(__uuidof(::clsField), IID_IClassFactory, reinterpret_cast<void**>(factory.Put()));
    EXPECT_EQ(module.CanUnloadNow(), S_FALSE) << "a factory";
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    factory = {};
    EXPECT_EQ(module.CanUnloadNow(), S_FALSE) << "a lock";

    auto scripts = module.Create<::_clsCreateDb>(__uuidof(::clsCreateDb));
    module.GetClassObject(__uuidof(::clsField), IID_IClassFactory, reinterpret_cast<void**>(factory.Put()));
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
    factory = {};
    EXPECT_EQ(module.CanUnloadNow(), S_FALSE) << "an object";

    com::ComPtr<IDispatch> collection;
    ASSERT_EQ(scripts->get_ScriptTypes(nullptr, collection.Put()), S_OK);
    EXPECT_EQ(scripts.Detach()->Release(), 0u);
    EXPECT_EQ(module.CanUnloadNow(), S_FALSE) << "a collection that an object gave";
    EXPECT_EQ(collection.Detach()->Release(), 0u);
    EXPECT_EQ(module.CanUnloadNow(), S_OK);
}

}  // namespace
}  // namespace korvex::tests
